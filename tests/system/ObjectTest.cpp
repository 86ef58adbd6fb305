#include "RoadTest.h"

namespace {

using namespace system_tests;

class Objects : public RoadTest
{
protected:
   // A car of alpha's that beta knows as a vehicle.
   void showACar()
   {
      alpha->publishObjectClassAttributes(car, {position, speed, fuel, passengers});
      beta->subscribeObjectClassAttributes(vehicle, ofVehicle);
      object = registered(alpha, car, "car");
      expect(beta, {"discoverObjectInstance(car, Vehicle, car, alpha)"});
   }

   // Beta knows the object until its removal has been told, and that is the one callback that comes.
   void expectKnownUntilTold(std::function<void()> const& remove)
   {
      std::vector<std::string> answers;
      auto const ask = [&] {
         answers.push_back(refusal([&] {
            beta->getKnownObjectClassHandle(object);
            beta->getObjectInstanceHandle(beta->getObjectInstanceName(object));
         }));
      };
      beta->disableCallbacks();
      remove();
      ask();
      beta.onCallback = [&](std::string const&) { ask(); };
      beta->enableCallbacks();
      EXPECT_EQ(beta.callbacks(1).size(), 1u);
      beta.onCallback = nullptr;
      ask();
      EXPECT_EQ(answers, (std::vector<std::string>{"nothing", "nothing", "ObjectInstanceNotKnown"}));
   }
};
IN_BOTH_CALLBACK_MODELS(Objects);

TEST_P(Objects, HaveNamesThatAreReservedOnce)
{
   alpha->publishObjectClassAttributes(car, ofVehicle);
   beta->publishObjectClassAttributes(car, ofVehicle);
   EXPECT_REFUSED("ObjectInstanceNameNotReserved", alpha->registerObjectInstance(car, L"herbie"));
   EXPECT_REFUSED("IllegalName", alpha->reserveObjectInstanceName(L"HLAherbie"));
   EXPECT_REFUSED("ObjectInstanceNameNotReserved", alpha->releaseObjectInstanceName(L"herbie"));

   alpha->reserveObjectInstanceName(L"herbie");
   expect(alpha, {"objectInstanceNameReservationSucceeded(herbie)"});
   beta->reserveObjectInstanceName(L"herbie");
   expect(beta, {"objectInstanceNameReservationFailed(herbie)"});
   EXPECT_REFUSED("ObjectInstanceNameNotReserved", beta->registerObjectInstance(car, L"herbie"));
   alpha->releaseObjectInstanceName(L"herbie");
   beta->reserveObjectInstanceName(L"herbie");
   expect(beta, {"objectInstanceNameReservationSucceeded(herbie)"});

   ObjectInstanceHandle const herbie = beta->registerObjectInstance(car, L"herbie");
   EXPECT_EQ(beta->getObjectInstanceName(herbie), L"herbie");
   EXPECT_EQ(beta->getObjectInstanceHandle(L"herbie"), herbie);
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->getObjectInstanceHandle(L"herbie"));
   EXPECT_REFUSED("ObjectInstanceNameInUse", beta->registerObjectInstance(car, L"herbie"));
   alpha->reserveObjectInstanceName(L"herbie");
   expect(alpha, {"objectInstanceNameReservationFailed(herbie)"});
   beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES); // nobody knows it any more
   alpha->reserveObjectInstanceName(L"herbie");
   expect(alpha, {"objectInstanceNameReservationSucceeded(herbie)"});
}

TEST_P(Objects, HaveNamesThatAreReservedTogetherOrNotAtAll)
{
   EXPECT_REFUSED("NameSetWasEmpty", alpha->reserveMultipleObjectInstanceName({}));
   EXPECT_REFUSED("IllegalName", alpha->reserveMultipleObjectInstanceName({L"a", L"HLAb"}));
   alpha->reserveMultipleObjectInstanceName({L"a", L"b"});
   expect(alpha, {"multipleObjectInstanceNameReservationSucceeded({a b})"});
   beta->reserveMultipleObjectInstanceName({L"b", L"c"});
   expect(beta, {"multipleObjectInstanceNameReservationFailed({b c})"});
   alpha->reserveObjectInstanceName(L"c");
   expect(alpha, {"objectInstanceNameReservationSucceeded(c)"});
   EXPECT_REFUSED("ObjectInstanceNameNotReserved", alpha->releaseMultipleObjectInstanceName({L"a", L"d"}));
   alpha->releaseMultipleObjectInstanceName({L"a", L"b", L"c"});
   beta->reserveMultipleObjectInstanceName({L"a", L"b", L"c"});
   expect(beta, {"multipleObjectInstanceNameReservationSucceeded({a b c})"});
   beta->resignFederationExecution(NO_ACTION);
   alpha->reserveObjectInstanceName(L"a");
   expect(alpha, {"objectInstanceNameReservationSucceeded(a)"});
}

TEST_P(Objects, AreDiscoveredAsTheMostSpecificSubscribedClass)
{
   Federate& gamma = joined("gamma");
   Federate& delta = joined("delta");
   beta->subscribeObjectClassAttributes(vehicle, {position});
   gamma->subscribeObjectClassAttributes(vehicle, {position});
   gamma->subscribeObjectClassAttributes(car, {passengers});
   delta->subscribeObjectClassAttributes(truck, {position});
   alpha->publishObjectClassAttributes(taxi, {position, passengers, fare});
   alpha->subscribeObjectClassAttributes(taxi, {position});
   ObjectInstanceHandle const cab = registered(alpha, taxi, "cab");
   expect(beta, {"discoverObjectInstance(cab, Vehicle, cab, alpha)"});
   expect(gamma, {"discoverObjectInstance(cab, Car, cab, alpha)"});
   expectNothing(delta);
   expectNothing(alpha);
   EXPECT_EQ(alpha->getKnownObjectClassHandle(cab), taxi);
   EXPECT_EQ(beta->getKnownObjectClassHandle(cab), vehicle);
   EXPECT_EQ(gamma->getKnownObjectClassHandle(cab), car);
   EXPECT_EQ(gamma->getObjectInstanceName(cab), alpha->getObjectInstanceName(cab));
   EXPECT_EQ(gamma->getObjectInstanceHandle(alpha->getObjectInstanceName(cab)), cab);
   EXPECT_REFUSED("ObjectInstanceNotKnown", delta->getKnownObjectClassHandle(cab));
   EXPECT_REFUSED("ObjectInstanceNotKnown", delta->getObjectInstanceName(cab));

   beta->subscribeObjectClassAttributes(taxi, {position}); // too late
   expectNothing(beta);
   EXPECT_EQ(beta->getKnownObjectClassHandle(cab), vehicle);
   delta->subscribeObjectClassAttributes(taxi, {fare}); // in time
   expect(delta, {"discoverObjectInstance(cab, Taxi, cab, alpha)"});
}

TEST_P(Objects, AreDiscoveredForAnAttributeThatSomebodyOwns)
{
   beta->subscribeObjectClassAttributes(car, {fuel});
   alpha->publishObjectClassAttributes(car, {position});
   object = registered(alpha, car, "car");
   expectNothing(beta);
   alpha->publishObjectClassAttributes(car, {fuel});
   alpha->attributeOwnershipAcquisitionIfAvailable(object, {fuel});
   expect(alpha, {"attributeOwnershipAcquisitionNotification(car, {Fuel}, )"});
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
}

TEST_P(Objects, AreReflectedToSubscribersByTheirAttributes)
{
   showACar();
   Federate& gamma = joined("gamma");
   gamma->subscribeObjectClassAttributes(car, {fuel, passengers}, false); // passively, which is as good
   expect(gamma, {"discoverObjectInstance(car, Car, car, alpha)"});

   alpha->updateAttributeValues(
      object, values({{position, "1"}, {speed, "2"}, {fuel, "3"}, {passengers, "4"}}), bytes("tag"));
   expectInAnyOrder(beta, {"reflectAttributeValues(car, {Fuel=3 Position=1}, tag, RO, reliable, by alpha)",
                           "reflectAttributeValues(car, {Speed=2}, tag, RO, best-effort, by alpha)"});
   expect(gamma, {"reflectAttributeValues(car, {Fuel=3 Passengers=4}, tag, RO, reliable, by alpha)"});
   expectNothing(alpha);

   beta->unsubscribeObjectClassAttributes(vehicle, {fuel});
   gamma->unsubscribeObjectClass(car);
   alpha->updateAttributeValues(object, values({{fuel, "5"}}), bytes("tag"));
   alpha->updateAttributeValues(object, values({{position, ""}}), bytes(""));
   expect(beta, {"reflectAttributeValues(car, {Position=}, , RO, reliable, by alpha)"});
   expectNothing(gamma);

   gamma->subscribeObjectClassAttributes(car, {fuel});
   alpha->updateAttributeValues(object, values({{fuel, "6"}}), bytes("tag"));
   expect(gamma, {"reflectAttributeValues(car, {Fuel=6}, tag, RO, reliable, by alpha)"});
}

TEST_P(Objects, AreDeletedByWhoHasThePrivilege)
{
   showACar();
   EXPECT_REFUSED("DeletePrivilegeNotHeld", beta->deleteObjectInstance(object, {}));
   // As the vehicle that it is to beta it has no passengers, and to gamma it is nothing.
   Federate& gamma = joined("gamma");
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->updateAttributeValues(object, values({{passengers, "1"}}), {}));
   EXPECT_REFUSED("AttributeNotDefined", beta->requestAttributeValueUpdate(object, {passengers}, {}));
   EXPECT_REFUSED("ObjectInstanceNotKnown", gamma->updateAttributeValues(object, values({{fuel, "1"}}), {}));
   EXPECT_REFUSED("ObjectInstanceNotKnown", gamma->deleteObjectInstance(object, {}));
   alpha->deleteObjectInstance(object, bytes("scrapped"));
   expect(beta, {"removeObjectInstance(car, scrapped, RO, by alpha)"});
   expectNothing(alpha);
   for (Federate* const federate : {&alpha, &beta}) {
      EXPECT_REFUSED("ObjectInstanceNotKnown", (*federate)->deleteObjectInstance(object, {}));
      EXPECT_REFUSED("ObjectInstanceNotKnown", (*federate)->getObjectInstanceName(object));
   }
   registered(alpha, car, "second");
   expect(beta, {"discoverObjectInstance(second, Vehicle, second, alpha)"});
}

TEST_P(Objects, AreKnownUntilTheirRemovalIsTold)
{
   showACar();
   beta->publishObjectClassAttributes(vehicle, ofVehicle);
   alpha->unconditionalAttributeOwnershipDivestiture(object, {speed});
   beta->attributeOwnershipAcquisitionIfAvailable(object, {speed});
   beta->enableAttributeScopeAdvisorySwitch();
   beta.callbacks(4);
   expectKnownUntilTold([this] {
      alpha->deleteObjectInstance(object, bytes(""));
      // Of this nothing is told any more: it would come after the removal.
      EXPECT_TRUE(beta->isAttributeOwnedByFederate(object, speed));
      beta->updateAttributeValues(object, values({{speed, "1"}}), bytes(""));
      beta->requestAttributeValueUpdate(object, {fuel}, bytes(""));
      beta->queryAttributeOwnership(object, speed);
      beta->attributeOwnershipAcquisition(object, {fuel}, bytes(""));
      beta->unsubscribeObjectClassAttributes(vehicle, {fuel});
      beta->subscribeObjectClassAttributes(vehicle, {fuel});
   });
   object = registered(alpha, car, "second");
   beta.callbacks(2);
   beta->disableCallbacks();
   alpha->deleteObjectInstance(object, bytes(""));
   beta->localDeleteObjectInstance(object);
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->getObjectInstanceName(object));
   beta->enableCallbacks();
   expectNothing(beta);

   beta->disableAttributeScopeAdvisorySwitch();
   for (bool const lost : {false, true}) {
      Federate& gamma = joined("gamma");
      gamma->publishObjectClassAttributes(car, {position});
      object = registered(gamma, car, "third");
      beta.callbacks(1);
      expectKnownUntilTold([&] {
         if (lost) {
            gamma->setAutomaticResignDirective(DELETE_OBJECTS);
         } else {
            gamma->resignFederationExecution(DELETE_OBJECTS);
         }
         forget("gamma");
      });
   }
}

TEST_P(Objects, AreForgottenByOneFederateAndDiscoveredAnew)
{
   showACar();
   EXPECT_REFUSED("FederateOwnsAttributes", alpha->localDeleteObjectInstance(object));
   beta->publishObjectClassAttributes(vehicle, ofVehicle);
   beta->attributeOwnershipAcquisition(object, {fuel}, {});
   EXPECT_REFUSED("OwnershipAcquisitionPending", beta->localDeleteObjectInstance(object));
   beta->cancelAttributeOwnershipAcquisition(object, {fuel});
   expect(beta, {"confirmAttributeOwnershipAcquisitionCancellation(car, {Fuel})"});

   // As long as it subscribes it discovers the object again, when there is news of it.
   beta->localDeleteObjectInstance(object);
   expectNothing(beta);
   alpha.callbacks();
   alpha->updateAttributeValues(object, values({{fuel, "1"}}), bytes("tag"));
   expect(beta, {"discoverObjectInstance(car, Vehicle, car, alpha)",
                 "reflectAttributeValues(car, {Fuel=1}, tag, RO, reliable, by alpha)"});

   beta->unsubscribeObjectClass(vehicle);
   beta->localDeleteObjectInstance(object);
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->localDeleteObjectInstance(object));
   alpha->updateAttributeValues(object, values({{fuel, "2"}}), bytes("tag"));
   expectNothing(beta);
   beta->subscribeObjectClassAttributes(car, {passengers});
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
   alpha.callbacks();
   alpha->updateAttributeValues(object, values({{passengers, "2"}}), bytes("tag"));
   expect(beta, {"reflectAttributeValues(car, {Passengers=2}, tag, RO, reliable, by alpha)"});
}

TEST_P(Objects, AreAskedForTheirValues)
{
   showACar();
   beta->publishObjectClassAttributes(truck, {position, load});
   registered(beta, truck, "lorry");
   Federate& gamma = joined("gamma");
   gamma->subscribeObjectClassAttributes(vehicle, {position});
   gamma.callbacks(2);

   beta->requestAttributeValueUpdate(object, {position, fuel}, bytes("please"));
   expect(alpha, {"provideAttributeValueUpdate(car, {Fuel Position}, please)"});
   gamma->requestAttributeValueUpdate(vehicle, {position, speed}, bytes("all"));
   expect(alpha, {"provideAttributeValueUpdate(car, {Position Speed}, all)"});
   expect(beta, {"provideAttributeValueUpdate(lorry, {Position}, all)"});
   gamma->requestAttributeValueUpdate(car, {passengers}, bytes("cars"));
   expect(alpha, {"provideAttributeValueUpdate(car, {Passengers}, cars)"});
   expectNothing(beta);
   expectNothing(gamma);
}

TEST_P(Objects, ComeIntoScopeAndGoOutOfIt)
{
   beta->enableAttributeScopeAdvisorySwitch();
   alpha->publishObjectClassAttributes(car, {position, speed});
   beta->subscribeObjectClassAttributes(car, {position, fuel});
   object = registered(alpha, car, "car");
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)", "attributesInScope(car, {Position})"});
   beta->subscribeObjectClassAttributes(car, {speed});
   expect(beta, {"attributesInScope(car, {Speed})"});
   beta->unsubscribeObjectClassAttributes(car, {position});
   expect(beta, {"attributesOutOfScope(car, {Position})"});
   alpha->unconditionalAttributeOwnershipDivestiture(object, {speed});
   expect(beta, {"attributesOutOfScope(car, {Speed})"});
   beta->disableAttributeScopeAdvisorySwitch();
   beta->subscribeObjectClassAttributes(car, {position});
   expectNothing(beta);
}

TEST_P(Objects, HaveOwnersWhoWantToKnowWhetherToUpdate)
{
   alpha->enableAttributeRelevanceAdvisorySwitch();
   alpha->publishObjectClassAttributes(car, {position, speed});
   registered(alpha, car, "car");
   expectNothing(alpha);
   beta->subscribeObjectClassAttributes(car, {position, fuel}, false); // passively
   expectNothing(alpha);
   beta->subscribeObjectClassAttributes(vehicle, {speed});
   beta->unsubscribeObjectClass(vehicle);
   beta->subscribeObjectClassAttributes(car, {position, fuel});
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position})"});
   beta->unsubscribeObjectClassAttributes(car, {position});
   expect(alpha, {"turnUpdatesOffForObjectInstance(car, {Position})"});
   beta->subscribeObjectClassAttributes(car, {speed}, true, L"Fast");
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Speed}, Fast)"});
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"turnUpdatesOffForObjectInstance(car, {Speed})"});
}

TEST_P(Objects, TravelAsTheirOwnerHasThemTravel)
{
   showACar();
   alpha->requestAttributeTransportationTypeChange(object, {position}, BEST_EFFORT);
   expect(alpha, {"confirmAttributeTransportationTypeChange(car, {Position}, best-effort)"});
   beta->queryAttributeTransportationType(object, position);
   beta->queryAttributeTransportationType(object, fuel);
   expect(beta, {"reportAttributeTransportationType(car, Position, best-effort)",
                 "reportAttributeTransportationType(car, Fuel, reliable)"});
   alpha->updateAttributeValues(object, values({{position, "1"}, {speed, "2"}, {fuel, "3"}}), bytes(""));
   expectInAnyOrder(beta, {"reflectAttributeValues(car, {Fuel=3}, , RO, reliable, by alpha)",
                           "reflectAttributeValues(car, {Position=1 Speed=2}, , RO, best-effort, by alpha)"});
}

class EagerFederation : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(EagerFederation);

TEST_P(EagerFederation, TellsOfObjectsWithoutBeingAsked)
{
   create({fom("Eager.xml")});
   Federate& owner = joined("owner");
   Federate& reader = joined("reader");
   ObjectClassHandle const buoy = owner->getObjectClassHandle(L"HLAobjectRoot.Buoy");
   AttributeHandle const drift = owner->getAttributeHandle(buoy, L"Drift");
   owner->publishObjectClassAttributes(buoy, {drift});
   ObjectInstanceHandle const first = owner->registerObjectInstance(buoy);
   names().add(buoy, "Buoy");
   names().add(drift, "Drift");
   names().add(first, "first");
   names().add(owner->getObjectInstanceName(first), "first");

   expectNothing(owner);
   reader->subscribeObjectClassAttributes(buoy, {drift});
   expectInAnyOrder(owner, {"startRegistrationForObjectClass(Buoy)",
                            "turnUpdatesOnForObjectInstance(first, {Drift})",
                            "provideAttributeValueUpdate(first, {Drift}, )"});
   expect(reader, {"discoverObjectInstance(first, Buoy, first, owner)", "attributesInScope(first, {Drift})"});
   EXPECT_EQ(owner->getAutomaticResignDirective(), DELETE_OBJECTS_THEN_DIVEST);
   forget("owner"); // which resigns as the FOM has it
   expect(reader, {"removeObjectInstance(first, , RO, by owner)"});
}

TEST_P(Objects, LeaveTheirNamesToOthers)
{
   alpha->publishObjectClassAttributes(car, {position});
   for (int round = 0; round < 2; ++round) {
      alpha->reserveObjectInstanceName(L"herbie");
      expect(alpha, {"objectInstanceNameReservationSucceeded(herbie)"});
      alpha->deleteObjectInstance(alpha->registerObjectInstance(car, L"herbie"), bytes(""));
   }
}

TEST_P(Objects, AreToldOfAsTheyAreToWhoBeginsToListen)
{
   alpha->publishObjectClassAttributes(car, {position});
   ObjectInstanceHandle const heard = registered(alpha, car, "car");
   beta->subscribeObjectClassAttributes(vehicle, {position});
   expect(beta, {"discoverObjectInstance(car, Vehicle, car, alpha)"});
   for (int round = 0; round < 2; ++round) {
      alpha->enableAttributeRelevanceAdvisorySwitch();
      expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position})"});
      alpha->disableAttributeRelevanceAdvisorySwitch();
      beta->enableAttributeScopeAdvisorySwitch();
      expect(beta, {"attributesInScope(car, {Position})"});
      beta->disableAttributeScopeAdvisorySwitch();
   }
   alpha->enableAttributeRelevanceAdvisorySwitch();
   alpha.callbacks(1);
   beta->localDeleteObjectInstance(heard);
   expectNothing(alpha); // for beta is to discover it again
   beta->unsubscribeObjectClass(vehicle);
   expect(alpha, {"turnUpdatesOffForObjectInstance(car, {Position})"});
}

TEST_P(Objects, AreUpdatedAtTheHighestRateThatIsWanted)
{
   alpha->enableAttributeRelevanceAdvisorySwitch();
   alpha->publishObjectClassAttributes(car, {position});
   registered(alpha, car, "car");
   auto const subscribe = [&](std::string const& name, std::wstring const& rate) {
      joined(name)->subscribeObjectClassAttributes(car, {position}, true, rate);
   };
   subscribe("one", L"Slow");
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position}, Slow)"});
   subscribe("two", L"Fast");
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position}, Fast)"});
   subscribe("three", L"Slow");
   expectNothing(alpha);
   subscribe("four", L"");
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position})"}); // without a limit
   subscribe("five", L"Fast");
   expectNothing(alpha);
}

class Interactions : public RoadTest
{};
IN_BOTH_CALLBACK_MODELS(Interactions);

TEST_P(Interactions, AreReceivedAsTheMostSpecificSubscribedClass)
{
   Federate& gamma = joined("gamma");
   Federate& delta = joined("delta");
   alpha->publishInteractionClass(urgent);
   alpha->subscribeInteractionClass(message);
   beta->subscribeInteractionClass(message);
   gamma->subscribeInteractionClass(message);
   gamma->subscribeInteractionClass(urgent, false); // passively, which is as good
   delta->subscribeInteractionClass(accident);
   alpha->sendInteraction(urgent, values({{words, "fire"}, {level, "9"}}), bytes("tag"));
   expect(beta, {"receiveInteraction(Message, {Words=fire}, tag, RO, best-effort, by alpha)"});
   expect(gamma, {"receiveInteraction(Urgent, {Level=9 Words=fire}, tag, RO, best-effort, by alpha)"});
   expectNothing(delta);
   expectNothing(alpha);

   gamma->unsubscribeInteractionClass(urgent);
   beta->unsubscribeInteractionClass(message);
   alpha->sendInteraction(urgent, {}, bytes(""));
   expect(gamma, {"receiveInteraction(Message, {}, , RO, best-effort, by alpha)"});
   expectNothing(beta);
}

TEST_P(Interactions, AreSentAsPublished)
{
   alpha->publishInteractionClass(message);
   EXPECT_REFUSED("InteractionParameterNotDefined",
                  alpha->sendInteraction(message, {{ParameterHandle(), {}}}, {}));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->changeInteractionOrderType(accident, RECEIVE));
   EXPECT_REFUSED("InteractionClassNotPublished",
                  alpha->requestInteractionTransportationTypeChange(accident, RELIABLE));

   beta->subscribeInteractionClass(message);
   alpha->requestInteractionTransportationTypeChange(message, BEST_EFFORT);
   expect(alpha, {"confirmInteractionTransportationTypeChange(Message, best-effort)"});
   alpha->sendInteraction(message, values({{words, "hush"}}), bytes(""));
   beta->queryInteractionTransportationType(alpha.handle(), message);
   expect(beta, {"receiveInteraction(Message, {Words=hush}, , RO, best-effort, by alpha)",
                 "reportInteractionTransportationType(alpha, Message, best-effort)"});
   beta->queryInteractionTransportationType(beta.handle(), message);
   expect(beta, {"reportInteractionTransportationType(beta, Message, reliable)"});
}

} // namespace
