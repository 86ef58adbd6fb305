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

// What waits is looked at by the subscriptions of the moment it is delivered, in either order.
TEST_P(QueuedCallbacks, ComeAsWhatIsSubscribedWhenTheyAreDelivered)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 2)}});
   RegionHandle const beside = region(beta, "beside", {{lane, RangeBounds(1, 3)}});
   RegionHandle const there = region(alpha, "there", {{lane, RangeBounds(1, 2)}});
   auto const move = [&](Federate& federate, RegionHandle const& region, RangeBounds const& bounds) {
      federate->setRangeBounds(region, lane, bounds);
      federate->commitRegionModifications({region});
   };
   auto const subscribeTo = [&](InteractionClassHandle each) { beta->subscribeInteractionClass(each); };
   auto const leave = [&](InteractionClassHandle each) { beta->unsubscribeInteractionClass(each); };
   auto const subscribeIn = [&](RegionHandle const& each) {
      beta->subscribeInteractionClassWithRegions(accident, {each});
   };
   auto const leaveRegion = [&](RegionHandle const& each) {
      beta->unsubscribeInteractionClassWithRegions(accident, {each});
   };
   auto const see = [&](ObjectClassHandle at, AttributeHandleSet const& what) {
      beta->subscribeObjectClassAttributes(at, what);
   };
   enum Sent
   {
      urgently,
      withRegion,
      updated
   };
   std::string const asMessage = "receiveInteraction(Message, {Words=fire}";
   std::string const asUrgent = "receiveInteraction(Urgent, {Level=9 Words=fire}";
   std::string const asAccident = "receiveInteraction(Accident, {}";
   std::string const reflection = "reflectAttributeValues(car, {";
   struct
   {
      Sent sent;
      std::function<void()> before, after;
      std::string expected;
   } const rows[] = {
      {urgently, [&] { subscribeTo(message); }, [&] { subscribeTo(urgent), leave(message); }, asUrgent},
      {urgently, [&] { subscribeTo(urgent); }, [&] { subscribeTo(message), leave(urgent); }, asMessage},
      {urgently, [&] { subscribeTo(message); }, [&] { subscribeTo(urgent); }, asUrgent},
      {urgently, [&] { subscribeTo(message); }, [&] { leave(message), subscribeTo(message); }, asMessage},
      {urgently, [&] { subscribeTo(urgent); }, [&] { leave(urgent); }, ""},
      {withRegion, [&] { subscribeIn(here); }, [&] { subscribeIn(beside), leaveRegion(here); }, asAccident},
      {withRegion, [&] { subscribeIn(here); }, [&] { subscribeTo(accident), leaveRegion(here); }, asAccident},
      {withRegion, [&] { subscribeIn(here); }, [&] { move(alpha, there, RangeBounds(6, 7)); }, asAccident},
      {withRegion, [&] { subscribeIn(here); }, [&] { move(beta, here, RangeBounds(4, 5)); }, ""},
      {updated, [&] { see(car, {position}); }, [&] { see(car, {fuel}); }, reflection + "Fuel=2 Position=1}"},
      {updated,
       [&] {
          see(car, {position, fuel});
       },
       [&] { beta->unsubscribeObjectClassAttributes(car, {fuel}); }, reflection + "Position=1}"},
      {updated, [&] { see(car, {position}), see(vehicle, {position}); },
       [&] { beta->unsubscribeObjectClass(vehicle); }, reflection + "Position=1}"},
      {updated, [&] { see(car, {position}); }, [&] { beta->unsubscribeObjectClass(car), see(car, {fuel}); },
       reflection + "Fuel=2}"},
      {updated, [&] { see(car, {position}); }, [&] { beta->unsubscribeObjectClass(car); }, ""},
   };
   alpha->publishInteractionClass(urgent);
   alpha->publishInteractionClass(accident);
   alpha->changeInteractionOrderType(urgent, TIMESTAMP);
   alpha->changeAttributeOrderType(object, {fuel}, TIMESTAMP);
   regulate(alpha, 1);
   beta->unsubscribeObjectClass(car);
   int when = 0;
   for (bool const timestamped : {false, true}) {
      if (timestamped) {
         constrain(beta);
      }
      for (auto const& row : rows) {
         SCOPED_TRACE(row.expected + " " + std::to_string(&row - rows) + (timestamped ? " TSO" : " RO"));
         when += 10;
         move(alpha, there, RangeBounds(1, 2));
         move(beta, here, RangeBounds(0, 2));
         row.before();
         timestamped ? void() : beta->disableCallbacks();
         switch (row.sent) {
         case urgently:
            alpha->sendInteraction(urgent, values({{words, "fire"}, {level, "9"}}), bytes(""), time(when));
            break;
         case withRegion:
            alpha->sendInteractionWithRegions(accident, {}, {there}, bytes(""), time(when));
            break;
         case updated:
            alpha->updateAttributeValues(object, values({{position, "1"}, {fuel, "2"}}), bytes(""),
                                         time(when));
            break;
         }
         row.after();
         alpha->timeAdvanceRequest(time(when));
         alpha.callbacks(1);
         timestamped ? beta->timeAdvanceRequest(time(when - 1)) : beta->enableCallbacks();
         if (timestamped) {
            EXPECT_EQ(beta.callbacks(1).size(), 1u);
            EXPECT_EQ(show(beta->queryLITS()), std::to_string(row.expected.empty() ? when + 1 : when));
            beta->nextMessageRequest(time(when));
         }
         std::size_t const count = row.expected.empty() ? 0 : 1;
         Callbacks const come = beta.callbacks(count + timestamped);
         ASSERT_EQ(come.size(), count + timestamped);
         EXPECT_EQ(count == 0 ? "" : come[0].substr(0, row.expected.size()), row.expected);
         for (InteractionClassHandle const& each : {message, urgent, accident}) {
            leave(each);
         }
         beta->unsubscribeObjectClass(car);
      }
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

   // Asked for the release twice, where only the second time is meant.
   alpha->disableCallbacks();
   beta->attributeOwnershipAcquisition(object, {position}, bytes(""));
   beta->cancelAttributeOwnershipAcquisition(object, {position});
   beta->attributeOwnershipAcquisition(object, {position}, bytes(""));
   alpha->enableCallbacks();
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position}, )"});
   beta->cancelAttributeOwnershipAcquisition(object, {position});
   beta.callbacks(2);

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
