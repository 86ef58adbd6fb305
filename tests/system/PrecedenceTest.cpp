#include "RoadTest.h"

#include <functional>

namespace {

using namespace rti1516e;
using namespace system_tests;

// Which exception answers a call that several preconditions forbid.
class Precedence : public RoadTest
{
protected:
   Precedence()
      : stretch(region(alpha, "stretch", {{lane, RangeBounds(0, 1)}, {distance, RangeBounds(0, 10)}})),
        foreign(region(beta, "foreign", {{lane, RangeBounds(0, 1)}}))
   {
      alpha->publishObjectClassAttributes(car, {position, speed, fuel});
      beta->publishObjectClassAttributes(car, ofVehicle);
      beta->subscribeObjectClassAttributes(car, ofVehicle);
      object = registered(alpha, car, "car");
      expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
   }

   using Calls = std::vector<std::pair<std::string, std::function<void()>>>;
   static void expectRefusals(Calls const& calls)
   {
      for (std::size_t i = 0; i < calls.size(); ++i) {
         EXPECT_EQ(refusal(calls[i].second), calls[i].first) << "call " << i;
      }
   }

   AttributeHandleSetRegionHandleSetPairVector with(AttributeHandle attribute, RegionHandleSet const& regions)
   {
      return {{{attribute}, regions}};
   }

   RegionHandle const stretch, foreign;
   ObjectInstanceHandle object;
   ObjectInstanceHandle const nothing;
   ObjectClassHandle const noClass;
   AttributeHandle const noAttribute;
   InteractionClassHandle const noInteraction;
};
IN_BOTH_CALLBACK_MODELS(Precedence);

TEST_P(Precedence, IsFromTheClassToTheAttributeToItsState)
{
   expectRefusals({
      {"ObjectClassNotDefined", [&] { alpha->publishObjectClassAttributes(noClass, {noAttribute}); }},
      {"ObjectClassNotDefined", [&] { alpha->unpublishObjectClassAttributes(noClass, {noAttribute}); }},
      {"InvalidUpdateRateDesignator",
       [&] { alpha->subscribeObjectClassAttributes(noClass, {noAttribute}, true, L"Breakneck"); }},
      {"ObjectClassNotDefined", [&] { alpha->subscribeObjectClassAttributes(noClass, {noAttribute}); }},
      {"ObjectClassNotDefined", [&] { alpha->unsubscribeObjectClassAttributes(noClass, {noAttribute}); }},
      {"ObjectClassNotDefined", [&] { alpha->registerObjectInstance(noClass, L"free"); }},
      {"ObjectClassNotPublished", [&] { alpha->registerObjectInstance(truck, L"free"); }},
      {"NameSetWasEmpty", [&] { alpha->reserveMultipleObjectInstanceName({}); }},
      {"ObjectClassNotDefined", [&] { alpha->requestAttributeValueUpdate(noClass, {noAttribute}, {}); }},
      {"InvalidObjectClassHandle", [&] { alpha->getAttributeName(noClass, noAttribute); }},
      {"InvalidAttributeHandle", [&] { alpha->getAttributeName(car, noAttribute); }},
      {"InvalidObjectClassHandle",
       [&] { alpha->getAvailableDimensionsForClassAttribute(noClass, noAttribute); }},
      {"InvalidInteractionClassHandle", [&] { alpha->getParameterName(noInteraction, {}); }},
      {"InvalidInteractionClassHandle", [&] { alpha->getParameterHandle(noInteraction, L"Nothing"); }},
   });
}

TEST_P(Precedence, IsFromTheObjectToTheAttributeToItsOwner)
{
   beta->attributeOwnershipAcquisition(object, {fuel}, bytes(""));
   AttributeHandleSet divested;
   AttributeHandleSet const badAndForeign{noAttribute, speed};
   AttributeHandleValueMap const bad = values({{noAttribute, ""}, {speed, ""}});
   AttributeHandleValueMap const others = values({{speed, ""}});
   expectRefusals({
      {"ObjectInstanceNotKnown", [&] { beta->updateAttributeValues(nothing, bad, {}); }},
      {"AttributeNotDefined", [&] { beta->updateAttributeValues(object, bad, {}); }},
      {"AttributeNotOwned", [&] { beta->updateAttributeValues(object, others, {}); }},
      {"ObjectInstanceNotKnown", [&] { alpha->requestAttributeValueUpdate(nothing, {noAttribute}, {}); }},
      {"ObjectInstanceNotKnown",
       [&] { beta->requestAttributeTransportationTypeChange(nothing, badAndForeign, RELIABLE); }},
      {"AttributeNotDefined",
       [&] { beta->requestAttributeTransportationTypeChange(object, badAndForeign, RELIABLE); }},
      {"ObjectInstanceNotKnown", [&] { beta->changeAttributeOrderType(nothing, badAndForeign, RECEIVE); }},
      {"AttributeNotDefined", [&] { beta->changeAttributeOrderType(object, badAndForeign, RECEIVE); }},
      {"ObjectInstanceNotKnown", [&] { alpha->queryAttributeTransportationType(nothing, noAttribute); }},
      {"AttributeNotDefined",
       [&] { beta->unconditionalAttributeOwnershipDivestiture(object, badAndForeign); }},
      {"AttributeNotDefined",
       [&] { beta->negotiatedAttributeOwnershipDivestiture(object, badAndForeign, {}); }},
      {"AttributeNotDefined", [&] { beta->confirmDivestiture(object, badAndForeign, {}); }},
      {"AttributeNotOwned", [&] { beta->confirmDivestiture(object, {speed}, {}); }},
      {"AttributeDivestitureWasNotRequested", [&] { alpha->confirmDivestiture(object, {speed}, {}); }},
      {"AttributeNotDefined", [&] { beta->attributeOwnershipReleaseDenied(object, badAndForeign); }},
      {"AttributeNotDefined",
       [&] { beta->attributeOwnershipDivestitureIfWanted(object, badAndForeign, divested); }},
      {"AttributeNotOwned", [&] { beta->cancelNegotiatedAttributeOwnershipDivestiture(object, {speed}); }},
      {"AttributeNotDefined",
       [&] {
          alpha->attributeOwnershipAcquisition(object, {noAttribute, speed}, {});
       }},
      {"FederateOwnsAttributes",
       [&] {
          alpha->attributeOwnershipAcquisition(object, {passengers, speed}, {});
       }},
      {"AttributeNotPublished",
       [&] {
          beta->attributeOwnershipAcquisitionIfAvailable(object, {passengers, fuel});
       }},
      {"AttributeNotDefined", [&] { alpha->cancelAttributeOwnershipAcquisition(object, badAndForeign); }},
      {"ObjectInstanceNotKnown", [&] { alpha->queryAttributeOwnership(nothing, noAttribute); }},
      {"ObjectInstanceNotKnown", [&] { alpha->isAttributeOwnedByFederate(nothing, noAttribute); }},
      {"OwnershipAcquisitionPending", [&] { beta->resignFederationExecution(NO_ACTION); }},
      {"FederateOwnsAttributes", [&] { alpha->localDeleteObjectInstance(object); }},
   });
   // Owns one thing, and wants another.
   ObjectInstanceHandle const own = registered(beta, car, "own");
   expectRefusals({
      {"FederateOwnsAttributes", [&] { beta->resignFederationExecution(NO_ACTION); }},
      {"OwnershipAcquisitionPending",
       [&] { beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES); }},
      {"FederateOwnsAttributes", [&] { beta->localDeleteObjectInstance(own); }},
   });
}

TEST_P(Precedence, IsFromTheAttributeToTheRegion)
{
   RegionHandle const noRegion;
   auto const both = with(position, {foreign, noRegion});
   AttributeHandleSetRegionHandleSetPairVector const apart{{{position}, {foreign}}, {{position}, {noRegion}}};
   expectRefusals({
      {"ObjectClassNotDefined",
       [&] { alpha->registerObjectInstanceWithRegions(noClass, with(noAttribute, {noRegion})); }},
      {"AttributeNotDefined",
       [&] { alpha->registerObjectInstanceWithRegions(truck, with(noAttribute, {noRegion})); }},
      {"ObjectClassNotPublished",
       [&] { alpha->registerObjectInstanceWithRegions(truck, with(position, {noRegion})); }},
      {"AttributeNotPublished",
       [&] { alpha->registerObjectInstanceWithRegions(car, with(passengers, {noRegion})); }},
      {"InvalidRegion", [&] { alpha->registerObjectInstanceWithRegions(car, both, L"free"); }},
      {"InvalidRegion", [&] { alpha->registerObjectInstanceWithRegions(car, apart, L"free"); }},
      {"InvalidRegionContext",
       [&] { alpha->registerObjectInstanceWithRegions(car, with(fuel, {stretch}), L"free"); }},
      {"ObjectInstanceNameNotReserved",
       [&] { alpha->registerObjectInstanceWithRegions(car, with(position, {stretch}), L"free"); }},
      {"ObjectInstanceNotKnown", [&] { alpha->associateRegionsForUpdates(nothing, both); }},
      {"AttributeNotDefined", [&] { alpha->associateRegionsForUpdates(object, with(load, {noRegion})); }},
      {"InvalidRegion", [&] { alpha->associateRegionsForUpdates(object, apart); }},
      {"ObjectInstanceNotKnown", [&] { alpha->unassociateRegionsForUpdates(nothing, both); }},
      {"InvalidRegion", [&] { alpha->unassociateRegionsForUpdates(object, apart); }},
      {"InvalidUpdateRateDesignator",
       [&] { alpha->subscribeObjectClassAttributesWithRegions(noClass, both, true, L"Breakneck"); }},
      {"ObjectClassNotDefined", [&] { alpha->subscribeObjectClassAttributesWithRegions(noClass, both); }},
      {"InvalidRegion", [&] { alpha->subscribeObjectClassAttributesWithRegions(car, apart); }},
      {"ObjectClassNotDefined", [&] { alpha->unsubscribeObjectClassAttributesWithRegions(noClass, both); }},
      {"InvalidRegion", [&] { alpha->unsubscribeObjectClassAttributesWithRegions(car, apart); }},
      {"InteractionClassNotDefined",
       [&] { alpha->subscribeInteractionClassWithRegions(noInteraction, {noRegion}); }},
      {"InvalidRegion",
       [&] {
          alpha->subscribeInteractionClassWithRegions(accident, {foreign, noRegion});
       }},
      {"InteractionClassNotDefined",
       [&] { alpha->unsubscribeInteractionClassWithRegions(noInteraction, {noRegion}); }},
      {"InvalidRegion",
       [&] {
          alpha->unsubscribeInteractionClassWithRegions(accident, {foreign, noRegion});
       }},
      {"ObjectClassNotDefined", [&] { alpha->requestAttributeValueUpdateWithRegions(noClass, both, {}); }},
      {"InvalidRegion", [&] { alpha->requestAttributeValueUpdateWithRegions(car, apart, {}); }},
      {"InvalidRegion",
       [&] {
          alpha->commitRegionModifications({foreign, noRegion});
       }},
      {"InvalidRegion", [&] { alpha->setRangeBounds(noRegion, {}, RangeBounds(9, 1)); }},
      {"RegionNotCreatedByThisFederate", [&] { alpha->setRangeBounds(foreign, {}, RangeBounds(9, 1)); }},
      {"RegionDoesNotContainSpecifiedDimension",
       [&] { alpha->setRangeBounds(stretch, {}, RangeBounds(9, 1)); }},
      {"InvalidRegion", [&] { alpha->getRangeBounds(noRegion, {}); }},
   });
}

TEST_P(Precedence, IsOfTheTimeLast)
{
   ParameterHandleValueMap const wrong = values({{level, ""}});
   auto const past = time(0);
   alpha->enableTimeRegulation(interval(5));
   expect(alpha, {"timeRegulationEnabled(0)"});
   beta->enableTimeRegulation(interval(5));
   beta.callbacks(1);
   expectRefusals({
      {"ObjectInstanceNotKnown",
       [&] {
          beta->updateAttributeValues(nothing, values({{noAttribute, ""}}), {}, past);
       }},
      {"AttributeNotDefined",
       [&] {
          beta->updateAttributeValues(object, values({{noAttribute, ""}}), {}, past);
       }},
      {"AttributeNotOwned",
       [&] {
          beta->updateAttributeValues(object, values({{speed, ""}}), {}, past);
       }},
      {"InvalidLogicalTime",
       [&] {
          alpha->updateAttributeValues(object, values({{speed, ""}}), {}, past);
       }},
      {"InteractionClassNotDefined", [&] { alpha->sendInteraction(noInteraction, wrong, {}, past); }},
      {"InteractionParameterNotDefined", [&] { alpha->sendInteraction(accident, wrong, {}, past); }},
      {"InteractionClassNotPublished", [&] { alpha->sendInteraction(accident, {}, {}, past); }},
      {"InteractionClassNotPublished",
       [&] { alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past); }},
      {"ObjectInstanceNotKnown", [&] { beta->deleteObjectInstance(nothing, {}, past); }},
      {"DeletePrivilegeNotHeld", [&] { beta->deleteObjectInstance(object, {}, past); }},
      {"InvalidLogicalTime", [&] { alpha->deleteObjectInstance(object, {}, past); }},
   });
   alpha->publishInteractionClass(accident);
   expectRefusals({
      {"RegionNotCreatedByThisFederate",
       [&] { alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past); }},
      {"InvalidLogicalTime", [&] { alpha->sendInteraction(accident, {}, {}, past); }},
      {"TimeRegulationAlreadyEnabled", [&] { alpha->enableTimeRegulation(interval(-1)); }},
   });
   alpha->timeAdvanceRequest(time(10));
   beta->enableTimeConstrained();
   beta.callbacks();
   beta->timeAdvanceRequest(time(100));
   expectRefusals({
      {"InTimeAdvancingState", [&] { beta->timeAdvanceRequest(time(-1)); }},
      {"InTimeAdvancingState", [&] { beta->modifyLookahead(interval(-1)); }},
      {"TimeConstrainedAlreadyEnabled", [&] { beta->enableTimeConstrained(); }},
      {"TimeRegulationAlreadyEnabled", [&] { beta->enableTimeRegulation(interval(-1)); }},
   });
}

} // namespace
