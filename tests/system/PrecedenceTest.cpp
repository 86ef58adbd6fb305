#include "RoadTest.h"

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
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->publishObjectClassAttributes(noClass, {noAttribute}));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->unpublishObjectClassAttributes(noClass, {noAttribute}));
   EXPECT_REFUSED("InvalidUpdateRateDesignator",
                  alpha->subscribeObjectClassAttributes(noClass, {noAttribute}, true, L"Breakneck"));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->subscribeObjectClassAttributes(noClass, {noAttribute}));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->unsubscribeObjectClassAttributes(noClass, {noAttribute}));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->registerObjectInstance(noClass, L"free"));
   EXPECT_REFUSED("ObjectClassNotPublished", alpha->registerObjectInstance(truck, L"free"));
   EXPECT_REFUSED("NameSetWasEmpty", alpha->reserveMultipleObjectInstanceName({}));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->requestAttributeValueUpdate(noClass, {noAttribute}, {}));
   EXPECT_REFUSED("InvalidObjectClassHandle", alpha->getAttributeName(noClass, noAttribute));
   EXPECT_REFUSED("InvalidAttributeHandle", alpha->getAttributeName(car, noAttribute));
   EXPECT_REFUSED("InvalidObjectClassHandle",
                  alpha->getAvailableDimensionsForClassAttribute(noClass, noAttribute));
   EXPECT_REFUSED("InvalidInteractionClassHandle", alpha->getParameterName(noInteraction, {}));
   EXPECT_REFUSED("InvalidInteractionClassHandle", alpha->getParameterHandle(noInteraction, L"Nothing"));
}

TEST_P(Precedence, IsFromTheObjectToTheAttributeToItsOwner)
{
   beta->attributeOwnershipAcquisition(object, {fuel}, bytes(""));
   AttributeHandleSet divested;
   AttributeHandleSet const badAndForeign{noAttribute, speed};
   AttributeHandleValueMap const bad = values({{noAttribute, ""}, {speed, ""}});
   AttributeHandleValueMap const others = values({{speed, ""}});
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->updateAttributeValues(nothing, bad, {}));
   EXPECT_REFUSED("AttributeNotDefined", beta->updateAttributeValues(object, bad, {}));
   EXPECT_REFUSED("AttributeNotOwned", beta->updateAttributeValues(object, others, {}));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->requestAttributeValueUpdate(nothing, {noAttribute}, {}));
   EXPECT_REFUSED("ObjectInstanceNotKnown",
                  beta->requestAttributeTransportationTypeChange(nothing, badAndForeign, RELIABLE));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->requestAttributeTransportationTypeChange(object, badAndForeign, RELIABLE));
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->changeAttributeOrderType(nothing, badAndForeign, RECEIVE));
   EXPECT_REFUSED("AttributeNotDefined", beta->changeAttributeOrderType(object, badAndForeign, RECEIVE));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->queryAttributeTransportationType(nothing, noAttribute));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->unconditionalAttributeOwnershipDivestiture(object, badAndForeign));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->negotiatedAttributeOwnershipDivestiture(object, badAndForeign, {}));
   EXPECT_REFUSED("AttributeNotDefined", beta->confirmDivestiture(object, badAndForeign, {}));
   EXPECT_REFUSED("AttributeNotOwned", beta->confirmDivestiture(object, {speed}, {}));
   EXPECT_REFUSED("AttributeDivestitureWasNotRequested", alpha->confirmDivestiture(object, {speed}, {}));
   EXPECT_REFUSED("AttributeNotDefined", beta->attributeOwnershipReleaseDenied(object, badAndForeign));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->attributeOwnershipDivestitureIfWanted(object, badAndForeign, divested));
   EXPECT_REFUSED("AttributeNotOwned", beta->cancelNegotiatedAttributeOwnershipDivestiture(object, {speed}));
   EXPECT_REFUSED("AttributeNotDefined",
                  alpha->attributeOwnershipAcquisition(object, {noAttribute, speed}, {}));
   EXPECT_REFUSED("FederateOwnsAttributes",
                  alpha->attributeOwnershipAcquisition(object, {passengers, speed}, {}));
   EXPECT_REFUSED("AttributeNotPublished",
                  beta->attributeOwnershipAcquisitionIfAvailable(object, {passengers, fuel}));
   EXPECT_REFUSED("AttributeNotDefined", alpha->cancelAttributeOwnershipAcquisition(object, badAndForeign));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->queryAttributeOwnership(nothing, noAttribute));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->isAttributeOwnedByFederate(nothing, noAttribute));
   EXPECT_REFUSED("OwnershipAcquisitionPending", beta->resignFederationExecution(NO_ACTION));
   EXPECT_REFUSED("FederateOwnsAttributes", alpha->localDeleteObjectInstance(object));
   // Owns one thing, and wants another.
   ObjectInstanceHandle const own = registered(beta, car, "own");
   EXPECT_REFUSED("FederateOwnsAttributes", beta->resignFederationExecution(NO_ACTION));
   EXPECT_REFUSED("OwnershipAcquisitionPending",
                  beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES));
   EXPECT_REFUSED("FederateOwnsAttributes", beta->localDeleteObjectInstance(own));
}

TEST_P(Precedence, IsFromTheAttributeToTheRegion)
{
   RegionHandle const noRegion;
   auto const both = with(position, {foreign, noRegion});
   AttributeHandleSetRegionHandleSetPairVector const apart{{{position}, {foreign}}, {{position}, {noRegion}}};
   EXPECT_REFUSED("ObjectClassNotDefined",
                  alpha->registerObjectInstanceWithRegions(noClass, with(noAttribute, {noRegion})));
   EXPECT_REFUSED("AttributeNotDefined",
                  alpha->registerObjectInstanceWithRegions(truck, with(noAttribute, {noRegion})));
   EXPECT_REFUSED("ObjectClassNotPublished",
                  alpha->registerObjectInstanceWithRegions(truck, with(position, {noRegion})));
   EXPECT_REFUSED("AttributeNotPublished",
                  alpha->registerObjectInstanceWithRegions(car, with(passengers, {noRegion})));
   EXPECT_REFUSED("InvalidRegion", alpha->registerObjectInstanceWithRegions(car, both, L"free"));
   EXPECT_REFUSED("InvalidRegion", alpha->registerObjectInstanceWithRegions(car, apart, L"free"));
   EXPECT_REFUSED("InvalidRegionContext",
                  alpha->registerObjectInstanceWithRegions(car, with(fuel, {stretch}), L"free"));
   EXPECT_REFUSED("ObjectInstanceNameNotReserved",
                  alpha->registerObjectInstanceWithRegions(car, with(position, {stretch}), L"free"));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->associateRegionsForUpdates(nothing, both));
   EXPECT_REFUSED("AttributeNotDefined", alpha->associateRegionsForUpdates(object, with(load, {noRegion})));
   EXPECT_REFUSED("InvalidRegion", alpha->associateRegionsForUpdates(object, apart));
   EXPECT_REFUSED("ObjectInstanceNotKnown", alpha->unassociateRegionsForUpdates(nothing, both));
   EXPECT_REFUSED("InvalidRegion", alpha->unassociateRegionsForUpdates(object, apart));
   EXPECT_REFUSED("InvalidUpdateRateDesignator",
                  alpha->subscribeObjectClassAttributesWithRegions(noClass, both, true, L"Breakneck"));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->subscribeObjectClassAttributesWithRegions(noClass, both));
   EXPECT_REFUSED("InvalidRegion", alpha->subscribeObjectClassAttributesWithRegions(car, apart));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->unsubscribeObjectClassAttributesWithRegions(noClass, both));
   EXPECT_REFUSED("InvalidRegion", alpha->unsubscribeObjectClassAttributesWithRegions(car, apart));
   EXPECT_REFUSED("InteractionClassNotDefined",
                  alpha->subscribeInteractionClassWithRegions(noInteraction, {noRegion}));
   EXPECT_REFUSED("InvalidRegion",
                  alpha->subscribeInteractionClassWithRegions(accident, {foreign, noRegion}));
   EXPECT_REFUSED("InteractionClassNotDefined",
                  alpha->unsubscribeInteractionClassWithRegions(noInteraction, {noRegion}));
   EXPECT_REFUSED("InvalidRegion",
                  alpha->unsubscribeInteractionClassWithRegions(accident, {foreign, noRegion}));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->requestAttributeValueUpdateWithRegions(noClass, both, {}));
   EXPECT_REFUSED("InvalidRegion", alpha->requestAttributeValueUpdateWithRegions(car, apart, {}));
   EXPECT_REFUSED("InvalidRegion", alpha->commitRegionModifications({foreign, noRegion}));
   EXPECT_REFUSED("InvalidRegion", alpha->setRangeBounds(noRegion, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("RegionNotCreatedByThisFederate", alpha->setRangeBounds(foreign, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("RegionDoesNotContainSpecifiedDimension",
                  alpha->setRangeBounds(stretch, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("InvalidRegion", alpha->getRangeBounds(noRegion, {}));
}

TEST_P(Precedence, IsOfTheTimeLast)
{
   ParameterHandleValueMap const wrong = values({{level, ""}});
   auto const past = time(0);
   alpha->enableTimeRegulation(interval(5));
   expect(alpha, {"timeRegulationEnabled(0)"});
   beta->enableTimeRegulation(interval(5));
   beta.callbacks(1);
   EXPECT_REFUSED("ObjectInstanceNotKnown",
                  beta->updateAttributeValues(nothing, values({{noAttribute, ""}}), {}, past));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->updateAttributeValues(object, values({{noAttribute, ""}}), {}, past));
   EXPECT_REFUSED("AttributeNotOwned", beta->updateAttributeValues(object, values({{speed, ""}}), {}, past));
   EXPECT_REFUSED("InvalidLogicalTime",
                  alpha->updateAttributeValues(object, values({{speed, ""}}), {}, past));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->sendInteraction(noInteraction, wrong, {}, past));
   EXPECT_REFUSED("InteractionParameterNotDefined", alpha->sendInteraction(accident, wrong, {}, past));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->sendInteraction(accident, {}, {}, past));
   EXPECT_REFUSED("InteractionClassNotPublished",
                  alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past));
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->deleteObjectInstance(nothing, {}, past));
   EXPECT_REFUSED("DeletePrivilegeNotHeld", beta->deleteObjectInstance(object, {}, past));
   EXPECT_REFUSED("InvalidLogicalTime", alpha->deleteObjectInstance(object, {}, past));
   alpha->publishInteractionClass(accident);
   EXPECT_REFUSED("RegionNotCreatedByThisFederate",
                  alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past));
   EXPECT_REFUSED("InvalidLogicalTime", alpha->sendInteraction(accident, {}, {}, past));
   EXPECT_REFUSED("TimeRegulationAlreadyEnabled", alpha->enableTimeRegulation(interval(-1)));
   alpha->timeAdvanceRequest(time(10));
   beta->enableTimeConstrained();
   beta.callbacks();
   beta->timeAdvanceRequest(time(100));
   EXPECT_REFUSED("InTimeAdvancingState", beta->timeAdvanceRequest(time(-1)));
   EXPECT_REFUSED("InTimeAdvancingState", beta->modifyLookahead(interval(-1)));
   EXPECT_REFUSED("TimeConstrainedAlreadyEnabled", beta->enableTimeConstrained());
   EXPECT_REFUSED("TimeRegulationAlreadyEnabled", beta->enableTimeRegulation(interval(-1)));
}

} // namespace
