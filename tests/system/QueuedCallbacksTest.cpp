#include "RoadTest.h"

namespace {

using namespace system_tests;

// Callbacks that wait, because their federate has disabled them, while things change: what a federate is told
// is so when it is told.
class QueuedCallbacks : public RoadTest
{
protected:
   QueuedCallbacks()
   {
      shareACar();
      alpha->subscribeObjectClassAttributes(car, ofVehicle);
   }

   void updateNow(std::string const& value)
   {
      alpha->updateAttributeValues(object, values({{position, value}}), bytes(""));
   }
};
IN_BOTH_CALLBACK_MODELS(QueuedCallbacks);

TEST_P(QueuedCallbacks, TellOfARetractionOnlyWhereTheMessageWasDelivered)
{
   regulate(alpha, 1);
   beta->disableCallbacks();
   alpha->retract(update("1", 5));
   beta->enableCallbacks();
   expectNothing(beta);

   beta->disableCallbacks();
   MessageRetractionHandle const unwanted = update("1", 5);
   beta->unsubscribeObjectClass(car);
   alpha->retract(unwanted);
   beta->enableCallbacks();
   expectNothing(beta);

   // A deletion that is retracted in the very callback that tells of it.
   MessageRetractionHandle deletion;
   beta.onCallback = [&](std::string const&) {
      beta.onCallback = nullptr;
      alpha->retract(deletion);
   };
   beta->subscribeObjectClassAttributes(car, ofVehicle);
   for (bool const told : {false, true}) {
      beta->disableCallbacks();
      deletion = alpha->deleteObjectInstance(object, bytes(""), time(5));
      names().add(deletion.toString(), "deletion");
      if (!told) {
         alpha->retract(deletion);
      }
      beta->enableCallbacks();
      expect(beta,
             told ? Callbacks{"removeObjectInstance(car, , TSO, 5, RO, retractable, by alpha)",
                              "requestRetraction(deletion)", "discoverObjectInstance(car, Car, car, alpha)"}
                  : Callbacks{});
      EXPECT_EQ(beta->getKnownObjectClassHandle(object), car);
   }
}

TEST_P(QueuedCallbacks, TellNothingOfAnObjectThatTheFederateGaveUp)
{
   regulate(alpha, 1);
   constrain(beta);
   beta->enableAsynchronousDelivery();
   beta->disableCallbacks();
   updateNow("1");
   update("2", 5);
   alpha->requestAttributeValueUpdate(object, {position}, bytes(""));
   beta->queryAttributeOwnership(object, position);
   beta->localDeleteObjectInstance(object);
   beta->enableCallbacks();
   expectNothing(beta);
   beta->unsubscribeObjectClass(car);
   beta->subscribeObjectClassAttributes(car, ofVehicle);
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});

   alpha->unconditionalAttributeOwnershipDivestiture(object, {privilege});
   beta.callbacks();
   beta->attributeOwnershipAcquisitionIfAvailable(object, {privilege});
   beta.callbacks();
   beta->disableCallbacks();
   updateNow("1");
   update("2", 5);
   beta->deleteObjectInstance(object, bytes(""));
   beta->enableCallbacks();
   expectNothing(beta);
   expect(alpha, {"removeObjectInstance(car, , RO, by beta)"});

   // An object that it does not even know of yet.
   beta->disableCallbacks();
   beta->localDeleteObjectInstance(registered(alpha, car, "other"));
   beta->enableCallbacks();
   expectNothing(beta);
   alpha->timeAdvanceRequest(time(50));
   beta->timeAdvanceRequest(time(20));
   expect(beta, {"timeAdvanceGrant(20)"});
}

TEST_P(QueuedCallbacks, ComeInTheOrderOfTimeOnlyToWhoKnowsThatItIsConstrained)
{
   regulate(alpha, 1);
   beta->disableCallbacks();
   update("before", 9);
   beta->enableTimeConstrained();
   beta->enableCallbacks();
   update("after", 8);
   update("after", 7);
   expect(beta, {reflected("before", 9, "RO"), "timeConstrainedEnabled(0)"});
   beta->flushQueueRequest(time(0));
   expect(beta, {reflected("after", 7), reflected("after", 8), "timeAdvanceGrant(0)"});

   beta->disableCallbacks();
   update("b", 6);
   update("a", 5);
   beta->flushQueueRequest(time(0));
   update("c", 4);
   beta->disableTimeConstrained();
   beta->enableCallbacks();
   expect(beta,
          {reflected("a", 5, "RO"), reflected("b", 6, "RO"), "timeAdvanceGrant(0)", reflected("c", 4, "RO")});
}

TEST_P(QueuedCallbacks, TellOfOwnershipOnlyAsItIs)
{
   // Offered, taken and given up again before it heard of any of it.
   beta->disableCallbacks();
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position, speed});
   beta->attributeOwnershipAcquisition(object, {position, speed}, bytes("mine"));
   beta->unpublishObjectClassAttributes(car, {position});
   beta->enableCallbacks();
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Speed}, )"});
   EXPECT_FALSE(beta->isAttributeOwnedByFederate(object, position));
   EXPECT_TRUE(beta->isAttributeOwnedByFederate(object, speed));
   expect(alpha, {"requestAttributeOwnershipAssumption(car, {Position}, )"});
   alpha->attributeOwnershipAcquisition(object, {position, speed}, bytes(""));
   beta->unconditionalAttributeOwnershipDivestiture(object, {speed});
   beta->publishObjectClassAttributes(car, {position});
   alpha.callbacks(1);
   beta.callbacks();

   // Asked for the release, or to confirm one, and neither is wanted any more.
   alpha->disableCallbacks();
   beta->attributeOwnershipAcquisition(object, {position, speed}, bytes("mine"));
   beta->cancelAttributeOwnershipAcquisition(object, {position});
   alpha->unconditionalAttributeOwnershipDivestiture(object, {speed});
   alpha->enableCallbacks();
   expectNothing(alpha);
   expect(beta, {"confirmAttributeOwnershipAcquisitionCancellation(car, {Position})",
                 "attributeOwnershipAcquisitionNotification(car, {Speed}, )"});
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position, fuel}, bytes(""));
   beta.callbacks(1);
   alpha->disableCallbacks();
   beta->attributeOwnershipAcquisition(object, {position, fuel}, bytes(""));
   beta->cancelAttributeOwnershipAcquisition(object, {fuel});
   alpha->cancelNegotiatedAttributeOwnershipDivestiture(object, {position});
   alpha->enableCallbacks();
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position}, )"});
   beta.callbacks();

   // Asked for values of what it owns no more; its transportation type changes no more either.
   alpha->disableCallbacks();
   beta->requestAttributeValueUpdate(object, {position, fuel}, bytes(""));
   alpha->requestAttributeTransportationTypeChange(object, {position, fuel}, BEST_EFFORT);
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   alpha->enableCallbacks();
   expect(alpha, {"provideAttributeValueUpdate(car, {Fuel}, )",
                  "confirmAttributeTransportationTypeChange(car, {Fuel}, best-effort)"});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   beta->queryAttributeTransportationType(object, position);
   expect(beta, {"reportAttributeTransportationType(car, Position, reliable)"});
}

TEST_P(QueuedCallbacks, AreNoneAfterAResignation)
{
   beta->disableCallbacks();
   update("1", 5);
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   beta->attributeOwnershipAcquisition(object, {position}, bytes(""));
   beta->enableTimeConstrained();
   beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES);
   beta.join(federation());
   beta->enableCallbacks();
   expectNothing(beta);
   alpha.callbacks();
   alpha->queryAttributeOwnership(object, position);
   expect(alpha, {"attributeIsNotOwned(car, Position)"});
   EXPECT_REFUSED("TimeConstrainedIsNotEnabled", beta->disableTimeConstrained());
}

TEST_P(QueuedCallbacks, AreNoneOfWhatARestoreReplaces)
{
   alpha->requestFederationSave(L"noon");
   for (Federate* const federate : {&alpha, &beta}) {
      federate->callbacks(1);
      (*federate)->federateSaveBegun();
      (*federate)->federateSaveComplete();
   }
   expectEach({&alpha, &beta}, {"federationSaved()"});
   beta->disableCallbacks();
   updateNow("1");
   alpha->requestFederationRestore(L"noon");
   alpha->federateRestoreComplete();
   beta->federateRestoreComplete();
   beta->enableCallbacks();
   expect(beta, {"federationRestored()"});
}

TEST_P(QueuedCallbacks, ThatAnswerTheConnectionOutliveTheMembership)
{
   beta->disableCallbacks();
   beta->listFederationExecutions();
   beta->resignFederationExecution(NO_ACTION);
   beta.join(federation());
   beta->enableCallbacks();
   EXPECT_EQ(beta.callbacks(1).size(), 1u);
}

} // namespace
