#include "RoadTest.h"

#include <set>

namespace {

using namespace system_tests;

class Support : public RoadTest
{};
IN_BOTH_CALLBACK_MODELS(Support);

TEST_P(Support, KnowsClassesAndAttributesByNameAndHandle)
{
   struct
   {
      std::wstring name;
      ObjectClassHandle handle;
   } const classes[] = {{L"HLAobjectRoot", alpha->getObjectClassHandle(L"HLAobjectRoot")},
                        {L"HLAobjectRoot.Vehicle", vehicle},
                        {L"HLAobjectRoot.Vehicle.Car", car},
                        {L"HLAobjectRoot.Vehicle.Car.Taxi", taxi}};
   std::set<ObjectClassHandle> distinct;
   for (auto const& row : classes) {
      EXPECT_EQ(beta->getObjectClassHandle(row.name), row.handle);
      EXPECT_EQ(beta->getObjectClassName(row.handle), row.name);
      EXPECT_EQ(beta->decodeObjectClassHandle(row.handle.encode()), row.handle);
      distinct.insert(row.handle);
   }
   EXPECT_EQ(distinct.size(), 4u);
   EXPECT_EQ(beta->getObjectClassHandle(L"Vehicle.Car"), car); // the root goes without saying
   EXPECT_REFUSED("NameNotFound", beta->getObjectClassHandle(L"HLAobjectRoot.Car"));
   EXPECT_REFUSED("NameNotFound", beta->getObjectClassHandle(L""));
   EXPECT_REFUSED("InvalidObjectClassHandle", beta->getObjectClassName({}));

   EXPECT_EQ(beta->getAttributeHandle(taxi, L"Position"), position);
   EXPECT_EQ(beta->getAttributeName(taxi, position), L"Position");
   EXPECT_EQ(beta->getAttributeName(taxi, fare), L"Fare");
   EXPECT_EQ(beta->decodeAttributeHandle(fare.encode()), fare);
   EXPECT_REFUSED("NameNotFound", beta->getAttributeHandle(vehicle, L"Fare"));
   EXPECT_REFUSED("InvalidObjectClassHandle", beta->getAttributeHandle({}, L"Fare"));
   EXPECT_REFUSED("AttributeNotDefined", beta->getAttributeName(vehicle, fare));
   EXPECT_REFUSED("InvalidAttributeHandle", beta->getAttributeName(vehicle, {}));
   EXPECT_REFUSED("InvalidObjectClassHandle", beta->getAttributeName({}, {}));
}

TEST_P(Support, KnowsInteractionsAndParametersByNameAndHandle)
{
   EXPECT_EQ(beta->getInteractionClassHandle(L"HLAinteractionRoot.Message.Urgent"), urgent);
   EXPECT_EQ(beta->getInteractionClassHandle(L"Message.Urgent"), urgent);
   EXPECT_EQ(beta->getInteractionClassName(urgent), L"HLAinteractionRoot.Message.Urgent");
   EXPECT_EQ(beta->decodeInteractionClassHandle(urgent.encode()), urgent);
   EXPECT_REFUSED("NameNotFound", beta->getInteractionClassHandle(L"Urgent"));
   EXPECT_REFUSED("InvalidInteractionClassHandle", beta->getInteractionClassName({}));

   EXPECT_EQ(beta->getParameterHandle(urgent, L"Words"), words);
   EXPECT_EQ(beta->getParameterName(urgent, words), L"Words");
   EXPECT_EQ(beta->decodeParameterHandle(words.encode()), words);
   EXPECT_REFUSED("NameNotFound", beta->getParameterHandle(message, L"Level"));
   EXPECT_REFUSED("InvalidInteractionClassHandle", beta->getParameterHandle({}, L"Level"));
   EXPECT_REFUSED("InteractionParameterNotDefined", beta->getParameterName(message, level));
   EXPECT_REFUSED("InvalidParameterHandle", beta->getParameterName(message, {}));
   EXPECT_REFUSED("InvalidInteractionClassHandle", beta->getParameterName({}, {}));
}

TEST_P(Support, KnowsOrdersTransportationsAndUpdateRates)
{
   EXPECT_EQ(alpha->getOrderType(L"Receive"), RECEIVE);
   EXPECT_EQ(alpha->getOrderType(L"TimeStamp"), TIMESTAMP);
   EXPECT_EQ(alpha->getOrderName(RECEIVE), L"Receive");
   EXPECT_EQ(alpha->getOrderName(TIMESTAMP), L"TimeStamp");
   EXPECT_REFUSED("InvalidOrderName", alpha->getOrderType(L"Chaos"));
   EXPECT_EQ(alpha->getTransportationTypeHandle(L"HLAreliable"), RELIABLE);
   EXPECT_EQ(alpha->getTransportationTypeHandle(L"HLAbestEffort"), BEST_EFFORT);
   EXPECT_EQ(alpha->getTransportationTypeName(RELIABLE), L"HLAreliable");
   EXPECT_EQ(alpha->getTransportationTypeName(BEST_EFFORT), L"HLAbestEffort");
   EXPECT_REFUSED("InvalidTransportationName", alpha->getTransportationTypeHandle(L"Pigeon"));
   EXPECT_DOUBLE_EQ(alpha->getUpdateRateValue(L"Slow"), 0.5);
   EXPECT_DOUBLE_EQ(alpha->getUpdateRateValue(L"Fast"), 50.0);
   EXPECT_REFUSED("InvalidUpdateRateDesignator", alpha->getUpdateRateValue(L"Breakneck"));

   alpha->publishObjectClassAttributes(car, ofVehicle);
   object = registered(alpha, car, "car");
   beta->subscribeObjectClassAttributes(car, {position}, true, L"Fast");
   beta.callbacks(1);
   EXPECT_DOUBLE_EQ(beta->getUpdateRateValueForAttribute(object, position), 50.0);
   EXPECT_EQ(alpha->decodeObjectInstanceHandle(object.encode()), object);
}

TEST_P(Support, KnowsDimensions)
{
   EXPECT_EQ(beta->getDimensionHandle(L"Lane"), lane);
   EXPECT_EQ(beta->getDimensionName(lane), L"Lane");
   EXPECT_EQ(beta->getDimensionUpperBound(lane), 8u);
   EXPECT_EQ(beta->getDimensionUpperBound(distance), 1000u);
   EXPECT_EQ(beta->decodeDimensionHandle(lane.encode()), lane);
   EXPECT_REFUSED("NameNotFound", beta->getDimensionHandle(L"Depth"));
   EXPECT_REFUSED("InvalidDimensionHandle", beta->getDimensionName({}));
   EXPECT_REFUSED("InvalidDimensionHandle", beta->getDimensionUpperBound({}));

   EXPECT_EQ(beta->getAvailableDimensionsForClassAttribute(taxi, position),
             (DimensionHandleSet{lane, distance}));
   EXPECT_EQ(beta->getAvailableDimensionsForClassAttribute(taxi, speed), (DimensionHandleSet{lane}));
   EXPECT_EQ(beta->getAvailableDimensionsForClassAttribute(taxi, fuel), DimensionHandleSet());
   EXPECT_EQ(beta->getAvailableDimensionsForInteractionClass(accident), (DimensionHandleSet{lane, distance}));
   EXPECT_EQ(beta->getAvailableDimensionsForInteractionClass(message), DimensionHandleSet());
   EXPECT_REFUSED("AttributeNotDefined", beta->getAvailableDimensionsForClassAttribute(car, load));
   EXPECT_REFUSED("InvalidObjectClassHandle", beta->getAvailableDimensionsForClassAttribute({}, {}));
   EXPECT_REFUSED("InvalidInteractionClassHandle", beta->getAvailableDimensionsForInteractionClass({}));
}

TEST_P(Support, NormalizesWithinTheDimensionsOfTheManagementObjectModel)
{
   unsigned long const bound = alpha->getDimensionUpperBound(alpha->getDimensionHandle(L"HLAfederate"));
   unsigned long const one = alpha->normalizeFederateHandle(alpha.handle());
   EXPECT_LT(one, bound);
   EXPECT_EQ(beta->normalizeFederateHandle(alpha.handle()), one);
   EXPECT_NE(beta->normalizeFederateHandle(beta.handle()), one);
   EXPECT_REFUSED("InvalidFederateHandle", alpha->normalizeFederateHandle({}));
   EXPECT_EQ(alpha->decodeFederateHandle(beta.handle().encode()), beta.handle());

   unsigned long const groups = alpha->getDimensionUpperBound(alpha->getDimensionHandle(L"HLAserviceGroup"));
   std::set<unsigned long> normalized;
   for (ServiceGroup const group :
        {FEDERATION_MANAGEMENT, DECLARATION_MANAGEMENT, OBJECT_MANAGEMENT, OWNERSHIP_MANAGEMENT,
         TIME_MANAGEMENT, DATA_DISTRIBUTION_MANAGEMENT, SUPPORT_SERVICES}) {
      EXPECT_LT(alpha->normalizeServiceGroup(group), groups);
      normalized.insert(alpha->normalizeServiceGroup(group));
   }
   EXPECT_EQ(normalized.size(), 7u);
}

TEST_P(Support, HasAdvisorySwitchesThatEachFederateTurns)
{
   struct
   {
      std::string name;
      void (RTIambassador::*enable)();
      void (RTIambassador::*disable)();
   } const switches[] = {
      {"ObjectClassRelevance", &RTIambassador::enableObjectClassRelevanceAdvisorySwitch,
       &RTIambassador::disableObjectClassRelevanceAdvisorySwitch},
      {"AttributeRelevance", &RTIambassador::enableAttributeRelevanceAdvisorySwitch,
       &RTIambassador::disableAttributeRelevanceAdvisorySwitch},
      {"AttributeScope", &RTIambassador::enableAttributeScopeAdvisorySwitch,
       &RTIambassador::disableAttributeScopeAdvisorySwitch},
      {"InteractionRelevance", &RTIambassador::enableInteractionRelevanceAdvisorySwitch,
       &RTIambassador::disableInteractionRelevanceAdvisorySwitch},
   };
   for (auto const& row : switches) {
      auto const enable = [&](Federate& federate) { return refusal([&] { ((*federate).*row.enable)(); }); };
      auto const disable = [&](Federate& federate) { return refusal([&] { ((*federate).*row.disable)(); }); };
      EXPECT_EQ(disable(alpha), row.name + "AdvisorySwitchIsOff");
      EXPECT_EQ(enable(alpha), "nothing");
      EXPECT_EQ(enable(alpha), row.name + "AdvisorySwitchIsOn");
      EXPECT_EQ(disable(beta), row.name + "AdvisorySwitchIsOff");
      EXPECT_EQ(disable(alpha), "nothing");
   }
}

TEST_P(Support, KnowsTheManagementObjectModel)
{
   EXPECT_TRUE(alpha->getObjectClassHandle(L"HLAobjectRoot.HLAmanager.HLAfederate").isValid());
   EXPECT_TRUE(alpha->getObjectClassHandle(L"HLAobjectRoot.HLAmanager.HLAfederation").isValid());
   InteractionClassHandle const report = alpha->getInteractionClassHandle(
      L"HLAinteractionRoot.HLAmanager.HLAfederate.HLAreport.HLAreportException");
   EXPECT_TRUE(alpha->getParameterHandle(report, L"HLAfederate").isValid());
}

TEST_P(Support, KnowsWhatAnotherModuleBringsAlong)
{
   EXPECT_REFUSED("NameNotFound", alpha->getObjectClassHandle(L"HLAobjectRoot.Cloud"));
   connected("gamma").join(federation(), {fom("Weather.xml")});
   ObjectClassHandle const cloud = alpha->getObjectClassHandle(L"HLAobjectRoot.Cloud");
   names().add(cloud, "Cloud");
   AttributeHandle const rain = beta->getAttributeHandle(cloud, L"Rain");
   alpha->publishObjectClassAttributes(cloud, {rain});
   beta->subscribeObjectClassAttributes(cloud, {rain});
   registered(alpha, cloud, "nimbus");
   expect(beta, {"discoverObjectInstance(nimbus, Cloud, nimbus, alpha)"});
   EXPECT_EQ(alpha->getObjectClassHandle(L"HLAobjectRoot.Vehicle"), vehicle);
}

} // namespace
