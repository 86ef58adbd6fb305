#include "RoadTest.h"

namespace {

using namespace rti1516e;
using namespace system_tests;

// Callbacks that wait while things change: what a federate is told is so when it is told.
class QueuedCallbacks : public RoadTest
{
protected:
   QueuedCallbacks()
   {
      shareACar();
      alpha->subscribeObjectClassAttributes(car, ofVehicle);
   }

   // The callbacks that the action leaves for the federate wait until the other is done.
   template <class Action, class Meanwhile>
   void whileTheyWait(Federate& federate, Action&& action, Meanwhile&& meanwhile)
   {
      federate->disableCallbacks();
      action();
      meanwhile();
      federate->enableCallbacks();
   }
};
IN_BOTH_CALLBACK_MODELS(QueuedCallbacks);

TEST_P(QueuedCallbacks, TellOfARetractionOnlyWhereTheMessageWasDelivered)
{
   regulate(alpha, 1);
   MessageRetractionHandle handle;
   auto const send = [&] { handle = update("1", 5); };
   send();
   expect(beta, {reflected("1", 5, "RO")});
   names().add(handle.toString(), "sent");
   alpha->retract(handle);
   expect(beta, {"requestRetraction(sent)"});

   whileTheyWait(beta, send, [&] { alpha->retract(handle); });
   expectNothing(beta);
   whileTheyWait(beta, send, [&] {
      beta->unsubscribeObjectClass(car);
      alpha->retract(handle);
   });
   expectNothing(beta);

   // The news of a deletion is delivered in any case, for the object is there no more.
   whileTheyWait(
      beta, [&] { handle = alpha->deleteObjectInstance(object, bytes(""), time(5)); },
      [&] {
         names().add(handle.toString(), "deletion");
         alpha->retract(handle);
         beta->subscribeObjectClassAttributes(car, ofVehicle);
      });
   expect(beta, {"removeObjectInstance(car, , TSO, 5, RO, retractable, by alpha)",
                 "requestRetraction(deletion)", "discoverObjectInstance(car, Car, car, alpha)"});
}

TEST_P(QueuedCallbacks, TellNothingOfAnObjectThatTheFederateGaveUp)
{
   regulate(alpha, 1);
   constrain(beta);
   beta->enableAsynchronousDelivery();
   whileTheyWait(
      beta,
      [&] {
         alpha->updateAttributeValues(object, values({{position, "1"}}), bytes(""));
         update("2", 5);
         alpha->requestAttributeValueUpdate(object, {position}, bytes(""));
         beta->queryAttributeOwnership(object, position);
      },
      [&] { beta->localDeleteObjectInstance(object); });
   expectNothing(beta);
   beta->unsubscribeObjectClass(car);
   beta->subscribeObjectClassAttributes(car, ofVehicle);
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});

   alpha->unconditionalAttributeOwnershipDivestiture(object, {privilege});
   beta.callbacks();
   beta->attributeOwnershipAcquisitionIfAvailable(object, {privilege});
   beta.callbacks();
   whileTheyWait(
      beta,
      [&] {
         alpha->updateAttributeValues(object, values({{position, "1"}}), bytes(""));
         update("2", 5);
      },
      [&] { beta->deleteObjectInstance(object, bytes("")); });
   expectNothing(beta);
   expect(alpha, {"removeObjectInstance(car, , RO, by beta)"});

   // An object that it does not even know of yet.
   ObjectInstanceHandle other;
   whileTheyWait(
      beta, [&] { other = registered(alpha, car, "other"); },
      [&] { beta->localDeleteObjectInstance(other); });
   expectNothing(beta);
   alpha->timeAdvanceRequest(time(50));
   beta->timeAdvanceRequest(time(20));
   expect(beta, {"timeAdvanceGrant(20)"});
}

TEST_P(QueuedCallbacks, ComeInTheOrderOfTimeOnlyToWhoKnowsThatItIsConstrained)
{
   regulate(alpha, 1);
   auto const enable = [&] { beta->enableTimeConstrained(); };
   whileTheyWait(
      beta, [&] { update("before", 9); }, enable);
   update("after", 8);
   update("after", 7);
   expect(beta, {reflected("before", 9, "RO"), "timeConstrainedEnabled(0)"});
   beta->flushQueueRequest(time(0));
   expect(beta, {reflected("after", 7), reflected("after", 8), "timeAdvanceGrant(0)"});

   whileTheyWait(
      beta,
      [&] {
         update("b", 6);
         update("a", 5);
         beta->flushQueueRequest(time(0));
         update("c", 4);
      },
      [&] { beta->disableTimeConstrained(); });
   expect(beta,
          {reflected("a", 5, "RO"), reflected("b", 6, "RO"), "timeAdvanceGrant(0)", reflected("c", 4, "RO")});
}

TEST_P(QueuedCallbacks, TellOfOwnershipOnlyAsItIs)
{
   auto const divest = [&] { alpha->unconditionalAttributeOwnershipDivestiture(object, {position, speed}); };
   auto const acquire = [&] {
      beta->attributeOwnershipAcquisition(object, {position, speed}, bytes("mine"));
   };

   // Offered, taken and given up again before it heard of any of it.
   whileTheyWait(
      beta,
      [&] {
         divest();
         acquire();
      },
      [&] { beta->unpublishObjectClassAttributes(car, {position}); });
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
   whileTheyWait(alpha, acquire, [&] {
      beta->cancelAttributeOwnershipAcquisition(object, {position});
      alpha->unconditionalAttributeOwnershipDivestiture(object, {speed});
   });
   expectNothing(alpha);
   expect(beta, {"confirmAttributeOwnershipAcquisitionCancellation(car, {Position})",
                 "attributeOwnershipAcquisitionNotification(car, {Speed}, )"});
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position, fuel}, bytes(""));
   beta.callbacks(1);
   whileTheyWait(
      alpha,
      [&] {
         beta->attributeOwnershipAcquisition(object, {position, fuel}, bytes(""));
      },
      [&] {
         beta->cancelAttributeOwnershipAcquisition(object, {fuel});
         alpha->cancelNegotiatedAttributeOwnershipDivestiture(object, {position});
      });
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position}, )"});
   beta.callbacks();

   // Asked for values of what it owns no more; its transportation type changes no more either.
   whileTheyWait(
      alpha,
      [&] {
         beta->requestAttributeValueUpdate(object, {position, fuel}, bytes(""));
         alpha->requestAttributeTransportationTypeChange(object, {position, fuel}, BEST_EFFORT);
      },
      [&] { alpha->unconditionalAttributeOwnershipDivestiture(object, {position}); });
   expect(alpha, {"provideAttributeValueUpdate(car, {Fuel}, )",
                  "confirmAttributeTransportationTypeChange(car, {Fuel}, best-effort)"});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   beta->queryAttributeTransportationType(object, position);
   expect(beta, {"reportAttributeTransportationType(car, Position, reliable)"});
}

TEST_P(QueuedCallbacks, AreNoneAfterAResignation)
{
   whileTheyWait(
      beta,
      [&] {
         update("1", 5);
         alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
         beta->attributeOwnershipAcquisition(object, {position}, bytes(""));
         beta->enableTimeConstrained();
      },
      [&] {
         beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES);
         beta.join(federation());
      });
   expectNothing(beta);
   alpha.callbacks();
   alpha->queryAttributeOwnership(object, position);
   expect(alpha, {"attributeIsNotOwned(car, Position)"});
   EXPECT_REFUSED("TimeConstrainedIsNotEnabled", beta->disableTimeConstrained());
}

} // namespace
