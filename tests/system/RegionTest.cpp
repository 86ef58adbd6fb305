#include "RoadTest.h"

namespace {

using namespace system_tests;

class Regions : public RoadTest
{
protected:
   Regions()
   {
      alpha->publishObjectClassAttributes(car, ofVehicle);
      alpha->publishInteractionClass(accident);
   }

   // A car of alpha's whose position is in the region.
   ObjectInstanceHandle carIn(RegionHandle const& region, std::string const& alias)
   {
      object = alpha->registerObjectInstanceWithRegions(car, {{{position}, {region}}});
      call(alpha, object, alias);
      return object;
   }

   void move(Federate& federate, RegionHandle const& region, RangeBounds const& bounds)
   {
      federate->setRangeBounds(region, lane, bounds);
      federate->commitRegionModifications({region});
   }
};
IN_BOTH_CALLBACK_MODELS(Regions);

TEST_P(Regions, HaveRangesInTheirDimensions)
{
   RegionHandle const slow = region(alpha, "slow", {{lane, RangeBounds(0, 2)}});
   EXPECT_EQ(alpha->getDimensionHandleSet(slow), (DimensionHandleSet{lane}));
   EXPECT_EQ(alpha->getRangeBounds(slow, lane).getLowerBound(), 0u);
   EXPECT_EQ(alpha->getRangeBounds(slow, lane).getUpperBound(), 2u);
   EXPECT_EQ(alpha->decodeRegionHandle(slow.encode()), slow);

   EXPECT_REFUSED("InvalidDimensionHandle", alpha->createRegion({lane, DimensionHandle()}));
   EXPECT_REFUSED("InvalidRangeBound", alpha->setRangeBounds(slow, lane, RangeBounds(0, 9)));
   EXPECT_REFUSED("InvalidRangeBound", alpha->setRangeBounds(slow, lane, RangeBounds(5, 4)));
   alpha->setRangeBounds(slow, lane, RangeBounds(0, 8));
   EXPECT_REFUSED("RegionDoesNotContainSpecifiedDimension", alpha->getRangeBounds(slow, distance));
   EXPECT_REFUSED("InvalidRegion", alpha->getDimensionHandleSet({}));
   EXPECT_REFUSED("RegionNotCreatedByThisFederate", beta->commitRegionModifications({slow}));
   EXPECT_REFUSED("RegionNotCreatedByThisFederate", beta->deleteRegion(slow));
   alpha->deleteRegion(slow);
   EXPECT_REFUSED("InvalidRegion", alpha->deleteRegion(slow));
   EXPECT_REFUSED("InvalidRegion", alpha->getRangeBounds(slow, lane));
}

TEST_P(Regions, SelectWhatIsDiscoveredAndReflected)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 4)}});
   beta->subscribeObjectClassAttributesWithRegions(vehicle, {{{position}, {here}}});
   RegionHandle const inside = region(alpha, "inside", {{lane, RangeBounds(3, 5)}});
   RegionHandle const beside = region(alpha, "beside", {{lane, RangeBounds(4, 6)}});
   ObjectInstanceHandle const near = carIn(inside, "near");
   ObjectInstanceHandle const far = carIn(beside, "far");
   expect(beta, {"discoverObjectInstance(near, Vehicle, near, alpha)"});
   for (ObjectInstanceHandle const each : {near, far}) {
      alpha->updateAttributeValues(each, values({{position, "1"}, {fuel, "2"}}), bytes(""));
   }
   expect(beta, {"reflectAttributeValues(near, {Position=1}, , RO, reliable, by alpha, from {inside})"});

   move(alpha, beside, RangeBounds(0, 1)); // drives up
   expect(beta, {"discoverObjectInstance(far, Vehicle, far, alpha)"});
   move(alpha, inside, RangeBounds(6, 7)); // drives on
   for (ObjectInstanceHandle const each : {near, far}) {
      alpha->updateAttributeValues(each, values({{position, "2"}}), bytes(""));
   }
   expect(beta, {"reflectAttributeValues(far, {Position=2}, , RO, reliable, by alpha, from {beside})"});
   move(beta, here, RangeBounds(6, 8)); // looks elsewhere
   for (ObjectInstanceHandle const each : {near, far}) {
      alpha->updateAttributeValues(each, values({{position, "3"}}), bytes(""));
   }
   expect(beta, {"reflectAttributeValues(near, {Position=3}, , RO, reliable, by alpha, from {inside})"});
}

TEST_P(Regions, CountOnlyWhenCommitted)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 4)}});
   beta->subscribeObjectClassAttributesWithRegions(vehicle, {{{position}, {here}}});
   RegionHandle const there = region(alpha, "there", {{lane, RangeBounds(4, 8)}});
   carIn(there, "car");
   alpha->setRangeBounds(there, lane, RangeBounds(0, 1));
   expectNothing(beta);
   alpha->commitRegionModifications({there});
   expect(beta, {"discoverObjectInstance(car, Vehicle, car, alpha)"});
}

TEST_P(Regions, ThatAreNotGivenAreEverywhere)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 1)}, {distance, RangeBounds(5, 9)}});
   beta->subscribeObjectClassAttributesWithRegions(vehicle, {{{position}, {here}}});
   Federate& gamma = joined("gamma");
   gamma->subscribeObjectClassAttributes(vehicle, {position});
   registered(alpha, car, "somewhere");
   expectEach({&beta, &gamma}, {"discoverObjectInstance(somewhere, Vehicle, somewhere, alpha)"});
   carIn(region(alpha, "first lane", {{lane, RangeBounds(0, 1)}}), "anywhere-on-it");
   expectEach({&beta, &gamma}, {"discoverObjectInstance(anywhere-on-it, Vehicle, anywhere-on-it, alpha)"});
   carIn(region(alpha, "far", {{lane, RangeBounds(0, 1)}, {distance, RangeBounds(9, 10)}}), "far");
   expectNothing(beta);
   expect(gamma, {"discoverObjectInstance(far, Vehicle, far, alpha)"});
}

TEST_P(Regions, AreAddedToAndTakenFromUpdates)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 1)}});
   beta->subscribeObjectClassAttributesWithRegions(vehicle, {{{position, speed}, {here}}});
   RegionHandle const there = region(alpha, "there", {{lane, RangeBounds(5, 6)}});
   RegionHandle const close = region(alpha, "close", {{lane, RangeBounds(0, 2)}});
   object = alpha->registerObjectInstanceWithRegions(car, {{{position}, {there}}, {{speed}, {there}}});
   call(alpha, object, "car");
   expectNothing(beta);
   alpha->associateRegionsForUpdates(object, {{{position}, {close}}});
   expect(beta, {"discoverObjectInstance(car, Vehicle, car, alpha)"});
   auto const update = [&] {
      alpha->updateAttributeValues(object, values({{position, "1"}, {speed, "2"}}), bytes(""));
   };
   update();
   expect(beta, {"reflectAttributeValues(car, {Position=1}, , RO, reliable, by alpha, from {close there})"});
   alpha->unassociateRegionsForUpdates(object, {{{position}, {close}}});
   update();
   expectNothing(beta);
   alpha->unassociateRegionsForUpdates(object, {{{position, speed}, {there}}}); // none left: everywhere
   update();
   expectInAnyOrder(beta, {"reflectAttributeValues(car, {Position=1}, , RO, reliable, by alpha)",
                           "reflectAttributeValues(car, {Speed=2}, , RO, best-effort, by alpha)"});
}

TEST_P(Regions, AddUpInSubscriptions)
{
   RegionHandle const first = region(beta, "first", {{lane, RangeBounds(0, 1)}});
   RegionHandle const third = region(beta, "third", {{lane, RangeBounds(2, 3)}});
   beta->subscribeObjectClassAttributesWithRegions(car, {{{position}, {first}}});
   beta->subscribeObjectClassAttributesWithRegions(car, {{{position, speed}, {third}}});
   RegionHandle const where = region(alpha, "where", {{lane, RangeBounds(2, 3)}});
   carIn(where, "car");
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
   std::string const reflected =
      "reflectAttributeValues(car, {Position=1}, , RO, reliable, by alpha, from {where})";
   auto const update = [&] { alpha->updateAttributeValues(object, values({{position, "1"}}), bytes("")); };
   update();
   expect(beta, {reflected});
   move(alpha, where, RangeBounds(0, 1));
   update();
   expect(beta, {reflected});
   EXPECT_REFUSED("RegionInUseForUpdateOrSubscription", beta->deleteRegion(first));
   EXPECT_REFUSED("RegionInUseForUpdateOrSubscription", alpha->deleteRegion(where));
   beta->unsubscribeObjectClassAttributesWithRegions(car, {{{position}, {first}}});
   beta->deleteRegion(first);
   update();
   expectNothing(beta);
   move(alpha, where, RangeBounds(0, 8));
   update();
   expect(beta, {reflected});
   beta->unsubscribeObjectClass(car);
   update();
   expectNothing(beta);
}

TEST_P(Regions, MeetWhereTheirRangesOverlap)
{
   beta->subscribeInteractionClassWithRegions(accident, {region(beta, "here", {{lane, RangeBounds(2, 4)}})});
   RegionHandle const there = region(alpha, "there", {{lane, RangeBounds(0, 8)}});
   struct
   {
      RangeBounds range;
      bool meets;
   } const rows[] = {{{0, 2}, false}, {{0, 3}, true}, {{3, 4}, true}, {{4, 8}, false}, {{0, 8}, true}};
   for (auto const& row : rows) {
      SCOPED_TRACE(row.range.getLowerBound());
      move(alpha, there, row.range);
      alpha->sendInteractionWithRegions(accident, {}, {there}, bytes(""));
      EXPECT_EQ(beta.callbacks(row.meets ? 1 : 0).size(), row.meets ? 1u : 0u);
   }
   RegionHandle const across = region(alpha, "across", {{distance, RangeBounds(0, 1000)}});
   alpha->sendInteractionWithRegions(accident, {}, {across}, bytes(""));
   expectNothing(beta); // they have no dimension in common
}

TEST_P(Regions, GoWithNamedObjectsToo)
{
   RegionHandle const here = region(alpha, "here", {{lane, RangeBounds(0, 1)}});
   alpha->reserveObjectInstanceName(L"herbie");
   expect(alpha, {"objectInstanceNameReservationSucceeded(herbie)"});
   alpha->registerObjectInstanceWithRegions(car, {{{position}, {here}}}, L"herbie");
   EXPECT_TRUE(alpha->getObjectInstanceHandle(L"herbie").isValid());
   EXPECT_REFUSED("RegionInUseForUpdateOrSubscription", alpha->deleteRegion(here));
}

TEST_P(Regions, AreOfOneOwnersUpdates)
{
   RegionHandle const here = region(alpha, "here", {{lane, RangeBounds(0, 1)}});
   ObjectInstanceHandle const mine = carIn(here, "car");
   alpha->unconditionalAttributeOwnershipDivestiture(mine, {position});
   alpha->deleteRegion(here);
   alpha->attributeOwnershipAcquisition(mine, {position}, bytes(""));
   alpha.callbacks(1);
   RegionHandle const there = region(beta, "there", {{lane, RangeBounds(7, 8)}});
   beta->requestAttributeValueUpdateWithRegions(car, {{{position}, {there}}}, bytes("please"));
   expect(alpha, {"provideAttributeValueUpdate(car, {Position}, please)"}); // it is everywhere now
}

TEST_P(Regions, AreSubscribedToOnTermsOfTheirOwn)
{
   RegionHandle const near = region(beta, "near", {{lane, RangeBounds(0, 1)}});
   RegionHandle const far = region(beta, "far", {{lane, RangeBounds(2, 3)}});
   beta->subscribeObjectClassAttributesWithRegions(car, {{{position}, {near}}}, true, L"Fast");
   beta->subscribeObjectClassAttributesWithRegions(car, {{{position}, {far}}}, false);
   RegionHandle const where = region(alpha, "where", {{lane, RangeBounds(0, 1)}});
   alpha->enableAttributeRelevanceAdvisorySwitch();
   ObjectInstanceHandle const moving = carIn(where, "car");
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
   expect(alpha, {"turnUpdatesOnForObjectInstance(car, {Position}, Fast)"});
   EXPECT_EQ(beta->getUpdateRateValueForAttribute(moving, position), 50);
   move(alpha, where, RangeBounds(2, 3)); // where beta takes whatever comes, but asks for nothing
   expect(alpha, {"turnUpdatesOffForObjectInstance(car, {Position})"});
   EXPECT_EQ(beta->getUpdateRateValueForAttribute(moving, position), 0);
}

TEST_P(Regions, BringAttributesIntoScope)
{
   beta->enableAttributeScopeAdvisorySwitch();
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 1)}});
   beta->subscribeObjectClassAttributesWithRegions(car, {{{position}, {here}}});
   RegionHandle const where = region(alpha, "where", {{lane, RangeBounds(0, 1)}});
   carIn(where, "car");
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)", "attributesInScope(car, {Position})"});
   move(alpha, where, RangeBounds(1, 2));
   expect(beta, {"attributesOutOfScope(car, {Position})"});
   move(beta, here, RangeBounds(1, 2));
   expect(beta, {"attributesInScope(car, {Position})"});
}

TEST_P(Regions, SelectInteractions)
{
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 4)}});
   beta->subscribeInteractionClassWithRegions(accident, {here});
   Federate& gamma = joined("gamma");
   gamma->subscribeInteractionClass(accident);
   RegionHandle const inside = region(alpha, "inside", {{lane, RangeBounds(0, 1)}});
   RegionHandle const outside = region(alpha, "outside", {{lane, RangeBounds(5, 6)}});
   auto const send = [&](RegionHandleSet const& regions) {
      alpha->sendInteractionWithRegions(accident, values({{damage, "1"}}), regions, bytes(""));
   };
   std::string const received = "receiveInteraction(Accident, {Damage=1}, , RO, reliable, by alpha";
   send({inside});
   expectEach({&beta, &gamma}, {received + ", from {inside})"});
   send({outside});
   expectNothing(beta);
   expect(gamma, {received + ", from {outside})"});
   send({inside, outside});
   expectEach({&beta, &gamma}, {received + ", from {inside outside})"});
   alpha->sendInteraction(accident, values({{damage, "1"}}), bytes(""));
   expectEach({&beta, &gamma}, {received + ")"});
   beta->unsubscribeInteractionClassWithRegions(accident, {here});
   beta->deleteRegion(here);
   send({inside});
   expectNothing(beta);
   alpha->deleteRegion(inside);
   EXPECT_REFUSED("InvalidRegion", send({inside}));
}

TEST_P(Regions, SelectWhoIsAskedForValues)
{
   ObjectInstanceHandle const near = carIn(region(alpha, "first", {{lane, RangeBounds(0, 1)}}), "near");
   ObjectInstanceHandle const far = carIn(region(alpha, "last", {{lane, RangeBounds(7, 8)}}), "far");
   EXPECT_NE(near, far);
   RegionHandle const here = region(beta, "here", {{lane, RangeBounds(0, 4)}});
   beta->requestAttributeValueUpdateWithRegions(car, {{{position}, {here}}}, bytes("please"));
   expect(alpha, {"provideAttributeValueUpdate(near, {Position}, please)"});
}

TEST_P(Regions, AreSeenByOthersAsCommitted)
{
   RegionHandle const slow = region(alpha, "slow", {{lane, RangeBounds(0, 2)}});
   EXPECT_REFUSED("InvalidRangeBound", alpha->setRangeBounds(slow, lane, RangeBounds(3, 3)));
   alpha->setRangeBounds(slow, lane, RangeBounds(0, 3));
   EXPECT_EQ(alpha->getRangeBounds(slow, lane).getUpperBound(), 3u);
   EXPECT_EQ(beta->getRangeBounds(slow, lane).getUpperBound(), 2u);
   alpha->commitRegionModifications({slow});
   EXPECT_EQ(beta->getRangeBounds(slow, lane).getUpperBound(), 3u);
}

} // namespace
