// What the oracle and the random run do not cover: orders, retraction in full, saves at a time, and refusals.
#include "RoadTest.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>

#include <limits>

namespace {

using namespace system_tests;

class TimeManagement : public RoadTest
{
protected:
   TimeManagement()
   {
      shareACar();
      for (InteractionClassHandle const interaction : {accident, message}) {
         alpha->publishInteractionClass(interaction);
         beta->subscribeInteractionClass(interaction);
      }
   }

   void coordinate(int lookahead)
   {
      for (Federate* const federate : {&alpha, &beta}) {
         regulate(*federate, lookahead);
         constrain(*federate);
      }
   }

   void requestAdvances(int to)
   {
      alpha->timeAdvanceRequest(time(to));
      beta->timeAdvanceRequest(time(to));
   }

   void completeSave()
   {
      for (Federate* const federate : {&alpha, &beta}) {
         (*federate)->federateSaveBegun();
         (*federate)->federateSaveComplete();
      }
   }

   // For a federate that nobody holds back.
   void advance(Federate& federate, int to)
   {
      federate->timeAdvanceRequest(time(to));
      expect(federate, {granted(to)});
   }

   static std::string granted(int when) { return "timeAdvanceGrant(" + std::to_string(when) + ")"; }

   void say(std::string const& value)
   {
      alpha->sendInteraction(message, values({{words, value}}), bytes(""));
   }
   static std::string said(std::string const& value)
   {
      return "receiveInteraction(Message, {Words=" + value + "}, , RO, reliable, by alpha)";
   }

   static std::string now(Federate& federate) { return show(*federate->queryLogicalTime()); }
   static std::string lookahead(Federate& federate) { return show(*federate->queryLookahead()); }
};
IN_BOTH_CALLBACK_MODELS(TimeManagement);

TEST_P(TimeManagement, OrdersOnlyWhatIsSentAndReceivedInOrder)
{
   // Not regulating: without order, though with a time.
   EXPECT_FALSE(update("1", 5).isValid());
   expect(beta, {"reflectAttributeValues(car, {Position=1}, , RO, reliable, 5, RO, by alpha)"});
   regulate(alpha, 1);
   // Not constrained: without order on arrival.
   update("2", 5);
   expect(beta, {"reflectAttributeValues(car, {Position=2}, , TSO, reliable, 5, RO, retractable, by alpha)"});

   constrain(beta);
   beta->enableAsynchronousDelivery();
   auto const updateAll = [&] {
      return alpha->updateAttributeValues(object, values({{position, "1"}, {fuel, "2"}}), bytes(""), time(5));
   };
   EXPECT_TRUE(updateAll().isValid());
   expect(beta, {"reflectAttributeValues(car, {Fuel=2}, , RO, reliable, 5, RO, by alpha)"});
   alpha->changeAttributeOrderType(object, {position}, RECEIVE);
   alpha->changeAttributeOrderType(object, {fuel}, TIMESTAMP);
   alpha->changeInteractionOrderType(message, TIMESTAMP);
   alpha->changeInteractionOrderType(accident, RECEIVE);
   updateAll();
   alpha->sendInteraction(message, {}, bytes(""), time(7));
   EXPECT_FALSE(alpha->sendInteraction(accident, {}, bytes(""), time(7)).isValid());
   expect(beta, {"reflectAttributeValues(car, {Position=1}, , RO, reliable, 5, RO, by alpha)",
                 "receiveInteraction(Accident, {}, , RO, reliable, 7, RO, by alpha)"});
   advance(alpha, 10);
   beta->timeAdvanceRequest(time(10));
   expect(beta,
          {reflected("1", 5),
           "reflectAttributeValues(car, {Fuel=2}, , TSO, reliable, 5, TSO, retractable, by alpha)",
           "receiveInteraction(Message, {}, , TSO, reliable, 7, TSO, retractable, by alpha)", granted(10)});
}

TEST_P(TimeManagement, TakesNoHeedOfWhatIsUnwanted)
{
   regulate(alpha, 1);
   constrain(beta);
   alpha->sendInteraction(accident, {}, bytes(""), time(25));
   update("e", 26);
   advance(alpha, 30);
   beta->unsubscribeInteractionClass(accident);
   EXPECT_EQ(show(*beta->queryLITS().time), "26");
   beta->subscribeInteractionClass(accident); // once beta was told so it comes no more
   beta->nextMessageRequest(time(30));
   expect(beta, {reflected("e", 26), granted(26)});
}

TEST_P(TimeManagement, DeliversWithoutOrderOnlyToWhoIsAdvancing)
{
   regulate(alpha, 1);
   constrain(beta);
   say("early");
   expectNothing(beta);
   beta->timeAdvanceRequest(time(5));
   expect(beta, {said("early")});
   say("meanwhile");
   expect(beta, {said("meanwhile")});
   advance(alpha, 10);
   expect(beta, {granted(5)});
   say("late");
   expectNothing(beta);
   beta->enableAsynchronousDelivery();
   expect(beta, {said("late")});
   say("any time");
   expect(beta, {said("any time")});
   beta->disableAsynchronousDelivery();
   say("later");
   expectNothing(beta);
   beta->disableTimeConstrained();
   expect(beta, {said("later")});
}

TEST_P(TimeManagement, TakesMessagesBack)
{
   Federate& gamma = joined("gamma"); // is not constrained
   gamma->subscribeObjectClassAttributes(car, ofVehicle);
   gamma.callbacks(1);
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->retract(MessageRetractionHandle()));
   regulate(alpha, 1);
   constrain(beta);
   EXPECT_REFUSED("InvalidMessageRetractionHandle", alpha->retract(MessageRetractionHandle()));

   MessageRetractionHandle const first = update("a", 5);
   MessageRetractionHandle const second = update("b", 6);
   MessageRetractionHandle const third = update("c", 7);
   EXPECT_FALSE(first == second);
   gamma.callbacks(3);
   names().add(second.toString(), "second");
   alpha->retract(second);
   expect(gamma, {"requestRetraction(second)"});
   EXPECT_REFUSED("MessageCanNoLongerBeRetracted", alpha->retract(second));
   advance(alpha, 5);
   EXPECT_REFUSED("MessageCanNoLongerBeRetracted", alpha->retract(first));
   beta->flushQueueRequest(time(5));
   expect(beta, {reflected("a", 5), reflected("c", 7), granted(5)});
   names().add(third.toString(), "third");
   alpha->retract(third); // which beta has received
   expectEach({&beta, &gamma}, {"requestRetraction(third)"});
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", beta->retract(third));

   RegionHandle const where = region(alpha, "where", {{lane, RangeBounds(0, 1)}});
   alpha->associateRegionsForUpdates(object, {{{position}, {where}}});
   alpha->retract(alpha->deleteObjectInstance(object, bytes(""), time(20)));
   EXPECT_REFUSED("RegionInUseForUpdateOrSubscription", alpha->deleteRegion(where));
   MessageRetractionHandle const deletion = alpha->deleteObjectInstance(object, bytes(""), time(20));
   alpha->unpublishObjectClass(car);
   alpha->retract(deletion);
   EXPECT_EQ(alpha->getKnownObjectClassHandle(object), car);
   EXPECT_FALSE(alpha->isAttributeOwnedByFederate(object, position)); // which it does not publish any more
}

TEST_P(TimeManagement, SavesAtATime)
{
   coordinate(1);
   advance(alpha, 0);
   alpha->requestFederationSave(L"noon", time(10));
   update("before", 9);
   update("after", 12);
   alpha->timeAdvanceRequest(time(20)); // which beta would not allow
   beta->timeAdvanceRequest(time(15));
   expect(beta, {reflected("before", 9), "initiateFederateSave(noon, 10)"});
   expect(alpha, {"initiateFederateSave(noon, 10)"});
   completeSave();
   expect(alpha, {"federationSaved()"});
   expect(beta, {"federationSaved()", reflected("after", 12), granted(15)});
   advance(beta, 20);
   expect(alpha, {granted(20)});
   EXPECT_REFUSED("LogicalTimeAlreadyPassed", alpha->requestFederationSave(L"past", time(5)));
}

TEST_P(TimeManagement, AndObjectsComeBackWithARestore)
{
   coordinate(1);
   Federate& gamma = joined("gamma"); // is sent the same messages
   gamma->subscribeObjectClassAttributes(car, ofVehicle);
   expect(gamma, {"discoverObjectInstance(car, Car, car, alpha)"});
   constrain(gamma);
   requestAdvances(10);
   expectEach({&alpha, &beta}, {granted(10)});
   update("kept", 15);
   beta->requestFederationSave(L"noon");
   expectEach({&alpha, &beta, &gamma}, {"initiateFederateSave(noon)"});
   completeSave();
   gamma->federateSaveBegun();
   gamma->federateSaveComplete();
   expectEach({&alpha, &beta, &gamma}, {"federationSaved()"});

   alpha->deleteObjectInstance(object, bytes(""));
   requestAdvances(30);
   expect(alpha, {granted(30)});
   expect(beta, {"removeObjectInstance(car, , RO, by alpha)", granted(30)}); // and so no more of the car
   alpha->disableTimeRegulation();
   beta->requestFederationSave(L"evening", time(40));

   alpha->requestFederationRestore(L"noon");
   alpha.callbacks(3);
   beta.callbacks(2);
   gamma.callbacks(2);
   for (Federate* const federate : {&alpha, &beta, &gamma}) {
      (*federate)->federateRestoreComplete();
   }
   expectEach({&alpha, &beta, &gamma}, {"federationRestored()"});
   EXPECT_EQ(now(alpha), "10");
   EXPECT_EQ(now(beta), "10");
   EXPECT_EQ(lookahead(alpha), "1");
   EXPECT_TRUE(alpha->isAttributeOwnedByFederate(object, position));
   EXPECT_EQ(beta->getKnownObjectClassHandle(object), car);
   requestAdvances(50); // past the time of the save, which is off
   gamma->timeAdvanceRequest(time(50));
   expect(alpha, {granted(50)});
   expectEach({&beta, &gamma}, {reflected("kept", 15), granted(50)});
}

TEST_P(TimeManagement, SavesBeforeTheTimeIsGranted)
{
   regulate(alpha, 1);
   constrain(beta);
   alpha->requestFederationSave(L"noon", time(10));
   advance(alpha, 20);
   beta->timeAdvanceRequest(time(10));
   expect(beta, {"initiateFederateSave(noon, 10)"});
}

TEST_P(TimeManagement, TakesDeletionsBack)
{
   regulate(alpha, 1);
   MessageRetractionHandle const deletion = alpha->deleteObjectInstance(object, bytes(""), time(5));
   names().add(deletion.toString(), "deletion");
   EXPECT_EQ(beta.callbacks(1).size(), 1u);
   EXPECT_REFUSED("ObjectInstanceNotKnown", update("1", 6));
   alpha->retract(deletion);
   expect(beta, {"requestRetraction(deletion)", "discoverObjectInstance(car, Car, car, alpha)"});
   EXPECT_TRUE(update("1", 6).isValid());
}

TEST_P(TimeManagement, HasNothingBehindItsEnd)
{
   constrain(beta);
   if (GetParam() == HLA_IMMEDIATE) {
      beta->timeAdvanceRequest(HLAfloat64Time(std::numeric_limits<double>::infinity()));
   } else {
      beta->timeAdvanceRequest(*beta->getTimeFactory()->makeFinal());
   }
   beta.callbacks(1);
   alpha->enableTimeRegulation(interval(1));
   alpha.callbacks(1);
   EXPECT_TRUE(*alpha->queryLogicalTime() > time(0)); // is a number
}

TEST_P(TimeManagement, IsOnlyForWhoTakesPart)
{
   EXPECT_REFUSED("FederateUnableToUseTime", alpha->requestFederationSave(L"noon", time(5)));
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->queryLookahead());
   EXPECT_REFUSED("InvalidLookahead", alpha->enableTimeRegulation(interval(-1)));
   EXPECT_REFUSED("AsynchronousDeliveryAlreadyDisabled", alpha->disableAsynchronousDelivery());
   regulate(alpha, 1);
   EXPECT_REFUSED("TimeRegulationAlreadyEnabled", alpha->enableTimeRegulation(interval(-1)));
   EXPECT_REFUSED("InvalidLookahead", alpha->modifyLookahead(interval(-1)));
   alpha->enableAsynchronousDelivery();
   EXPECT_REFUSED("AsynchronousDeliveryAlreadyEnabled", alpha->enableAsynchronousDelivery());
   if (GetParam() == HLA_IMMEDIATE) {
      double const none = std::numeric_limits<double>::quiet_NaN();
      EXPECT_REFUSED("InvalidLogicalTime", alpha->timeAdvanceRequest(HLAfloat64Time(none)));
      EXPECT_REFUSED("InvalidLookahead", alpha->modifyLookahead(HLAfloat64Interval(none)));
   }
   regulate(beta, 1);
   MessageRetractionHandle const sent = update("1", 5);
   EXPECT_REFUSED("InvalidMessageRetractionHandle", beta->retract(sent));
   constrain(alpha);
   alpha->timeAdvanceRequest(time(20)); // which promises not to send for 5 any more
   EXPECT_REFUSED("MessageCanNoLongerBeRetracted", alpha->retract(sent));
}

TEST_P(TimeManagement, GoesOnWaitingAfterARestore)
{
   Federate& gamma = joined("gamma");
   RegionHandle const where = region(alpha, "where", {{lane, RangeBounds(0, 2)}});
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(1, 3)}});
   AttributeHandleSetRegionHandleSetPairVector const there{{{position}, {where}}};
   regulate(alpha, 1);
   constrain(beta);
   update("1", 5);
   alpha->sendInteractionWithRegions(accident, values({{damage, "2"}}), {where}, bytes(""), time(6));
   alpha->associateRegionsForUpdates(object, there);
   beta->timeAdvanceRequest(time(10));
   advance(gamma, 50);
   gamma->enableTimeConstrained();
   std::vector<Federate*> const all{&alpha, &beta, &gamma};
   auto const letThemGo = [&] {
      beta->unsubscribeInteractionClass(accident);
      beta->subscribeInteractionClassWithRegions(accident, {here});
      advance(alpha, 60);
      expect(beta, {reflected("1", 5),
                    "receiveInteraction(Accident, {Damage=2}, , TSO, reliable, 6, TSO, retractable, by "
                    "alpha, from {where})",
                    granted(10)});
      expect(gamma, {"timeConstrainedEnabled(50)"});
   };

   alpha->requestFederationSave(L"noon");
   expectEach(all, {"initiateFederateSave(noon)"});
   for (Federate* const federate : all) {
      (*federate)->federateSaveBegun();
      (*federate)->federateSaveComplete();
   }
   expectEach(all, {"federationSaved()"});
   letThemGo();
   alpha->unassociateRegionsForUpdates(object, there);
   alpha->deleteRegion(where);

   alpha->requestFederationRestore(L"noon");
   alpha.callbacks(3);
   beta.callbacks(2);
   gamma.callbacks(2);
   for (Federate* const federate : all) {
      (*federate)->federateRestoreComplete();
   }
   expectEach(all, {"federationRestored()"});
   letThemGo();
   EXPECT_EQ(alpha->getRangeBounds(where, lane).getUpperBound(), 2u);
   EXPECT_REFUSED("RegionInUseForUpdateOrSubscription", alpha->deleteRegion(where));
}

} // namespace
