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

   static std::string galt(Federate& federate) { return show(federate->queryGALT()); }
   static std::string lits(Federate& federate) { return show(federate->queryLITS()); }
   static std::string now(Federate& federate) { return show(*federate->queryLogicalTime()); }
   static std::string lookahead(Federate& federate) { return show(*federate->queryLookahead()); }
};
IN_BOTH_CALLBACK_MODELS(TimeManagement);

using Advance = void (RTIambassador::*)(LogicalTime const&);
constexpr Advance advances[] = {
   &RTIambassador::timeAdvanceRequest, &RTIambassador::timeAdvanceRequestAvailable,
   &RTIambassador::nextMessageRequest, &RTIambassador::nextMessageRequestAvailable,
   &RTIambassador::flushQueueRequest};

TEST_P(TimeManagement, IsTakenUpAndGivenUp)
{
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->disableTimeRegulation());
   EXPECT_REFUSED("TimeConstrainedIsNotEnabled", alpha->disableTimeConstrained());
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->queryLookahead());
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->modifyLookahead(interval(1)));
   EXPECT_REFUSED("InvalidLookahead", alpha->enableTimeRegulation(interval(-1)));
   EXPECT_REFUSED("AsynchronousDeliveryAlreadyDisabled", alpha->disableAsynchronousDelivery());

   regulate(alpha, 3);
   constrain(alpha);
   alpha->enableAsynchronousDelivery();
   EXPECT_EQ(lookahead(alpha), "3");
   EXPECT_REFUSED("TimeRegulationAlreadyEnabled", alpha->enableTimeRegulation(interval(-1)));
   EXPECT_REFUSED("TimeConstrainedAlreadyEnabled", alpha->enableTimeConstrained());
   EXPECT_REFUSED("InvalidLookahead", alpha->modifyLookahead(interval(-1)));
   EXPECT_REFUSED("AsynchronousDeliveryAlreadyEnabled", alpha->enableAsynchronousDelivery());

   alpha->disableTimeRegulation();
   alpha->disableTimeConstrained();
   alpha->disableAsynchronousDelivery();
   EXPECT_REFUSED("TimeRegulationIsNotEnabled", alpha->disableTimeRegulation());
   EXPECT_REFUSED("TimeConstrainedIsNotEnabled", alpha->disableTimeConstrained());
   regulate(alpha, 0);
   constrain(alpha);
}

TEST_P(TimeManagement, IsTakenUpWhenTheCallbackSaysSo)
{
   alpha->disableCallbacks();
   alpha->enableTimeRegulation(interval(1));
   EXPECT_REFUSED("RequestForTimeRegulationPending", alpha->enableTimeRegulation(interval(1)));
   for (Advance const request : advances) {
      EXPECT_REFUSED("RequestForTimeRegulationPending", ((*alpha).*request)(time(5)));
   }
   beta->disableCallbacks();
   beta->enableTimeConstrained();
   EXPECT_REFUSED("RequestForTimeConstrainedPending", beta->enableTimeConstrained());
   for (Advance const request : advances) {
      EXPECT_REFUSED("RequestForTimeConstrainedPending", ((*beta).*request)(time(5)));
   }
   alpha->enableCallbacks();
   beta->enableCallbacks();
   expect(alpha, {"timeRegulationEnabled(0)"});
   expect(beta, {"timeConstrainedEnabled(0)"});
}

TEST_P(TimeManagement, AdvancesAtWillWhereNothingHoldsBack)
{
   EXPECT_EQ(now(alpha), "0");
   int to = 0;
   for (Advance const request : advances) {
      ((*alpha).*request)(time(++to));
      expect(alpha, {granted(to)});
      EXPECT_EQ(now(alpha), std::to_string(to));
      for (Advance const backwards : advances) {
         EXPECT_REFUSED("LogicalTimeAlreadyPassed", ((*alpha).*backwards)(time(to - 1)));
      }
   }
   advance(alpha, to);
   regulate(beta, 1); // which does not hold back who is not constrained
   advance(alpha, 100);
   advance(beta, 50);
}

TEST_P(TimeManagement, HoldsConstrainedFederatesBack)
{
   regulate(alpha, 1);
   constrain(beta);
   beta->timeAdvanceRequest(time(10));
   expectNothing(beta);
   EXPECT_EQ(now(beta), "0");
   for (Advance const request : advances) {
      EXPECT_REFUSED("InTimeAdvancingState", ((*beta).*request)(time(-1)));
   }
   EXPECT_REFUSED("InTimeAdvancingState", beta->enableTimeRegulation(interval(1)));
   advance(alpha, 9); // from 10 on there may be more
   expectNothing(beta);
   advance(alpha, 10);
   expect(beta, {granted(10)});
   EXPECT_EQ(now(beta), "10");
}

TEST_P(TimeManagement, LetsGoWithTheLastRegulatingFederate)
{
   regulate(alpha, 1);
   constrain(beta);
   beta->timeAdvanceRequest(time(10));
   expectNothing(beta);
   alpha->disableTimeRegulation();
   expect(beta, {granted(10)});

   alpha->enableTimeRegulation(interval(1));
   alpha.callbacks(1);
   EXPECT_REFUSED("InvalidLogicalTime", update("1", 10)); // or beta's past would change
   beta->timeAdvanceRequest(time(20));
   expectNothing(beta);
   alpha->resignFederationExecution(DELETE_OBJECTS);
   expectInAnyOrder(beta, {granted(20), "removeObjectInstance(car, , RO, by alpha)"});
}

TEST_P(TimeManagement, TellsHowFarMessagesCanCome)
{
   EXPECT_EQ(galt(alpha), "none");
   EXPECT_EQ(lits(alpha), "none");
   regulate(alpha, 2);
   EXPECT_EQ(galt(alpha), "none"); // nobody sends to himself
   EXPECT_EQ(galt(beta), "2");
   constrain(beta);
   advance(alpha, 5);
   update("1", 9);
   update("2", 8);
   EXPECT_EQ(galt(beta), "7");
   EXPECT_EQ(lits(beta), "7");
   advance(alpha, 20);
   EXPECT_EQ(galt(beta), "22");
   EXPECT_EQ(lits(beta), "8");
   regulate(beta, 30);
   EXPECT_EQ(galt(alpha), "30");
   EXPECT_EQ(galt(beta), "22");
}

TEST_P(TimeManagement, DeliversInTheOrderOfTime)
{
   regulate(alpha, 1);
   constrain(beta);
   EXPECT_TRUE(update("c", 7).isValid());
   update("a", 5);
   alpha->sendInteraction(accident, values({{damage, "b"}}), bytes(""), time(6));
   update("d", 11);
   beta->timeAdvanceRequest(time(6));
   expectNothing(beta);
   advance(alpha, 10);
   expect(beta, {reflected("a", 5),
                 "receiveInteraction(Accident, {Damage=b}, , TSO, reliable, 6, TSO, retractable, by alpha)",
                 granted(6)});
   advance(alpha, 20);
   expectNothing(beta);
   beta->timeAdvanceRequest(time(11));
   expect(beta, {reflected("c", 7), reflected("d", 11), granted(11)});
   alpha->deleteObjectInstance(object, bytes("gone"), time(25));
   advance(alpha, 30);
   EXPECT_EQ(beta->getKnownObjectClassHandle(object), car); // as yet
   beta->timeAdvanceRequest(time(30));
   expect(beta, {"removeObjectInstance(car, gone, TSO, 25, TSO, retractable, by alpha)", granted(30)});
}

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

TEST_P(TimeManagement, KeepsSendersToTheirLookahead)
{
   auto const refusalAt = [&](int when) { return refusal([&] { update("1", when); }); };
   beta->unsubscribeObjectClass(car);
   regulate(alpha, 3);
   constrain(alpha);
   EXPECT_EQ(refusalAt(2), "InvalidLogicalTime");
   EXPECT_EQ(refusalAt(3), "nothing");
   regulate(beta, 1);
   alpha->timeAdvanceRequest(time(10));
   EXPECT_EQ(refusalAt(12), "InvalidLogicalTime"); // as if the time were there already
   EXPECT_EQ(refusalAt(13), "nothing");
   EXPECT_REFUSED("InvalidLogicalTime", alpha->sendInteraction(accident, {}, {}, time(12)));
   EXPECT_REFUSED("InvalidLogicalTime", alpha->deleteObjectInstance(object, {}, time(12)));
   beta->disableTimeRegulation();
   alpha.callbacks(1);
   EXPECT_EQ(refusalAt(12), "InvalidLogicalTime");

   alpha->modifyLookahead(interval(0));
   advance(alpha, 20);
   EXPECT_EQ(refusalAt(20), "InvalidLogicalTime"); // granted up to and with 20
   EXPECT_EQ(refusalAt(21), "nothing");
   alpha->timeAdvanceRequestAvailable(time(30));
   expect(alpha, {granted(30)});
   EXPECT_EQ(refusalAt(30), "nothing");
}

TEST_P(TimeManagement, ShortensALookaheadAsTimeGoesBy)
{
   regulate(alpha, 5);
   alpha->modifyLookahead(interval(8));
   EXPECT_EQ(lookahead(alpha), "8");
   alpha->modifyLookahead(interval(2));
   EXPECT_EQ(lookahead(alpha), "8");
   EXPECT_EQ(galt(beta), "8");
   advance(alpha, 3);
   EXPECT_EQ(lookahead(alpha), "5");
   EXPECT_EQ(galt(beta), "8");
   advance(alpha, 10);
   EXPECT_EQ(lookahead(alpha), "2");
   EXPECT_EQ(galt(beta), "12");
}

TEST_P(TimeManagement, KeepsThePromiseOfATimeThatWasExcluded)
{
   regulate(alpha, 0);
   constrain(beta);
   advance(alpha, 5); // and so sends nothing for 5 any more
   advance(beta, 5);  // and so receives nothing for 5 any more
   for (Advance const again : advances) {
      ((*alpha).*again)(time(5));
      EXPECT_REFUSED("InvalidLogicalTime", update("1", 5));
      EXPECT_TRUE(*beta->queryGALT().time > time(5));
      expect(alpha, {granted(5)});
      EXPECT_REFUSED("InvalidLogicalTime", update("1", 5));
      ((*beta).*again)(time(5));
      expect(beta, {granted(5)});
   }
   alpha->modifyLookahead(interval(0));
   EXPECT_EQ(lookahead(alpha), "0");
   alpha->disableTimeRegulation();
   Federate& gamma = joined("gamma");
   gamma->enableTimeRegulation(interval(0));
   gamma.callbacks(1);
   EXPECT_TRUE(*beta->queryGALT().time > time(5));
}

TEST_P(TimeManagement, GoesToTheNextMessage)
{
   regulate(alpha, 1);
   constrain(beta);
   update("a", 4);
   update("b", 4);
   update("c", 6);
   advance(alpha, 4);
   beta->nextMessageRequest(time(10));
   expect(beta, {reflected("a", 4), reflected("b", 4), granted(4)});
   beta->nextMessageRequest(time(5));
   expectNothing(beta); // there may be more at 5
   advance(alpha, 5);
   expect(beta, {granted(5)});
   beta->nextMessageRequest(time(10));
   expectNothing(beta);
   update("d", 9); // c is still the next
   advance(alpha, 20);
   expect(beta, {reflected("c", 6), granted(6)});
   beta->nextMessageRequest(time(10));
   expect(beta, {reflected("d", 9), granted(9)});
   beta->nextMessageRequest(time(10));
   expect(beta, {granted(10)});

   // What is unwanted is not the next; and once beta was told so it comes no more.
   alpha->sendInteraction(accident, {}, bytes(""), time(25));
   update("e", 26);
   advance(alpha, 30);
   beta->unsubscribeInteractionClass(accident);
   EXPECT_EQ(lits(beta), "26");
   beta->subscribeInteractionClass(accident);
   beta->nextMessageRequest(time(30));
   expect(beta, {reflected("e", 26), granted(26)});
}

TEST_P(TimeManagement, GoesAsFarAsMessagesAreAvailable)
{
   regulate(alpha, 1);
   constrain(beta);
   advance(alpha, 4);
   beta->timeAdvanceRequestAvailable(time(5));
   expect(beta, {granted(5)});
   update("a", 5);
   beta->timeAdvanceRequestAvailable(time(6));
   expectNothing(beta);
   advance(alpha, 5);
   expect(beta, {reflected("a", 5), granted(6)});
   update("b", 6);
   beta->nextMessageRequestAvailable(time(10));
   expect(beta, {reflected("b", 6), granted(6)});
   update("c", 6);
   beta->nextMessageRequestAvailable(time(10));
   expect(beta, {reflected("c", 6), granted(6)});
   beta->nextMessageRequest(time(10));
   expectNothing(beta);
   advance(alpha, 20);
   expect(beta, {granted(10)});
}

TEST_P(TimeManagement, FlushesTheQueue)
{
   regulate(alpha, 1);
   constrain(beta);
   advance(alpha, 5);
   update("b", 30);
   update("a", 8);
   beta->flushQueueRequest(time(10));
   expect(beta, {reflected("a", 8), reflected("b", 30), granted(6)});
   advance(alpha, 50);
   update("c", 55);
   beta->flushQueueRequest(time(20));
   expect(beta, {reflected("c", 55), granted(20)});
   update("d", 52);
   beta->flushQueueRequest(time(100));
   expect(beta, {reflected("d", 52), granted(51)});
}

TEST_P(TimeManagement, NeverWaitsForItself)
{
   coordinate(0);
   int to = 0;
   for (Advance const ofAlpha : advances) {
      for (Advance const ofBeta : advances) {
         to += 10;
         ((*alpha).*ofAlpha)(time(to));
         ((*beta).*ofBeta)(time(to));
         if (ofAlpha == ofBeta && ofAlpha != &RTIambassador::flushQueueRequest) {
            expectEach({&alpha, &beta}, {granted(to)});
         }
         // Who is granted, be it less than he asked for, goes on; so both must get on.
         for (int round = 0; round < 4; ++round) {
            for (Federate* const federate : {&alpha, &beta}) {
               federate->callbacks();
               refusal([&] { (*federate)->timeAdvanceRequest(time(to + 5)); });
            }
         }
         alpha.callbacks();
         beta.callbacks();
         EXPECT_EQ(now(alpha), std::to_string(to + 5));
         EXPECT_EQ(now(beta), std::to_string(to + 5));
      }
   }
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

TEST_P(TimeManagement, CountsWithWhatIsAnsweredToAMessage)
{
   regulate(alpha, 2);
   regulate(beta, 30);
   constrain(alpha);
   constrain(beta);
   alpha->nextMessageRequest(time(100));
   EXPECT_EQ(galt(alpha), "30");
   EXPECT_EQ(galt(beta), "32"); // beta may yet send for 30 what alpha answers

   beta->disableTimeRegulation();
   expect(alpha, {granted(100)});
   beta->nextMessageRequestAvailable(time(200));
   expectNothing(beta);
   update("a", 102);
   expect(beta, {reflected("a", 102), granted(102)}); // there is nothing left to wait for
}

TEST_P(TimeManagement, FlushesNoFurtherThanToTheFirstMessage)
{
   regulate(alpha, 1);
   constrain(beta);
   update("a", 8);
   advance(alpha, 20);
   beta->flushQueueRequest(time(10));
   expect(beta, {reflected("a", 8), granted(8)});
}

TEST_P(TimeManagement, BeginsToRegulateWhereNobodyIsAhead)
{
   constrain(beta);
   beta->timeAdvanceRequestAvailable(time(10));
   expect(beta, {granted(10)});
   advance(alpha, 5);
   alpha->enableTimeRegulation(interval(0));
   expect(alpha, {"timeRegulationEnabled(10)"});
   EXPECT_REFUSED("InvalidLogicalTime", update("1", 9));
   update("1", 10);
}

TEST_P(TimeManagement, BeginsToRegulateBehindNoMessageThatHasCome)
{
   regulate(alpha, 1);
   constrain(beta);
   update("a", 7);
   beta->timeAdvanceRequest(time(10));
   advance(alpha, 7);
   expect(beta, {reflected("a", 7)}); // though not granted yet
   Federate& gamma = joined("gamma");
   gamma->enableTimeRegulation(interval(0));
   expect(gamma, {"timeRegulationEnabled(7)"});
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

TEST_P(TimeManagement, ConstrainsWhoIsAheadWhenTheOthersHaveCaughtUp)
{
   regulate(alpha, 1);
   advance(beta, 50);
   beta->enableTimeConstrained();
   advance(alpha, 49); // which may still send for 50, which beta has passed
   expectNothing(beta);
   advance(alpha, 50);
   expect(beta, {"timeConstrainedEnabled(50)"});
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
   regulate(alpha, 1);
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
   regulate(alpha, 1);
   constrain(beta);
   update("1", 5);
   alpha->sendInteractionWithRegions(accident, values({{damage, "2"}}), {where}, bytes(""), time(6));
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
}

} // namespace
