#include "RoadTest.h"

#include <functional>

namespace {

using namespace system_tests;

// Which exception answers a call that several preconditions forbid.
class Precedence : public RoadTest
{
protected:
   Precedence()
      : stretch(region(alpha, "stretch", {{lane, RangeBounds(0, 1)}, {distance, RangeBounds(0, 10)}})),
        foreign(region(beta, "foreign", {{lane, RangeBounds(0, 1)}}))
   {
      shareACar();
   }

   RegionHandle const stretch, foreign;
   ObjectInstanceHandle const nothing;
   ObjectClassHandle const noClass;
   AttributeHandle const noAttribute;
   InteractionClassHandle const noInteraction;
   RegionHandle const noRegion;
};
IN_BOTH_CALLBACK_MODELS(Precedence);

template <class... Arguments>
struct NamedCall
{
   char const* name;
   std::function<void(Arguments...)> call;
};

TEST_P(Precedence, IsFromTheClassToTheAttributeToItsState)
{
   NamedCall<ObjectClassHandle, AttributeHandleSet> const services[] = {
      {"publish", [&](auto c, auto a) { alpha->publishObjectClassAttributes(c, a); }},
      {"unpublish", [&](auto c, auto a) { alpha->unpublishObjectClassAttributes(c, a); }},
      {"subscribe", [&](auto c, auto a) { alpha->subscribeObjectClassAttributes(c, a); }},
      {"unsubscribe", [&](auto c, auto a) { alpha->unsubscribeObjectClassAttributes(c, a); }},
      {"request", [&](auto c, auto a) { alpha->requestAttributeValueUpdate(c, a, {}); }}};
   for (auto const& service : services) {
      SCOPED_TRACE(service.name);
      EXPECT_REFUSED("ObjectClassNotDefined", service.call(noClass, {noAttribute}));
      EXPECT_REFUSED("AttributeNotDefined", service.call(car, {noAttribute}));
      EXPECT_REFUSED("AttributeNotDefined", service.call(car, {position, load})); // a car has no load
   }
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->unpublishObjectClass(noClass));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->unsubscribeObjectClass(noClass));
   EXPECT_REFUSED("InvalidUpdateRateDesignator",
                  alpha->subscribeObjectClassAttributes(noClass, {noAttribute}, true, L"Breakneck"));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->publishInteractionClass(noInteraction));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->unpublishInteractionClass(noInteraction));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->subscribeInteractionClass(noInteraction));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->unsubscribeInteractionClass(noInteraction));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->registerObjectInstance(noClass));
   EXPECT_REFUSED("ObjectClassNotDefined", alpha->registerObjectInstance(noClass, L"free"));
   EXPECT_REFUSED("ObjectClassNotPublished", alpha->registerObjectInstance(truck, L"free"));
}

TEST_P(Precedence, IsFromTheObjectToTheAttribute)
{
   NamedCall<ObjectInstanceHandle, AttributeHandle> const services[] = {
      {"request values", [&](auto o, auto a) { alpha->requestAttributeValueUpdate(o, {a}, {}); }},
      {"query transportation", [&](auto o, auto a) { alpha->queryAttributeTransportationType(o, a); }},
      {"update rate", [&](auto o, auto a) { alpha->getUpdateRateValueForAttribute(o, a); }},
      {"acquire", [&](auto o, auto a) { alpha->attributeOwnershipAcquisition(o, {a}, {}); }},
      {"acquire if available",
       [&](auto o, auto a) { alpha->attributeOwnershipAcquisitionIfAvailable(o, {a}); }},
      {"cancel the acquisition", [&](auto o, auto a) { alpha->cancelAttributeOwnershipAcquisition(o, {a}); }},
      {"query the owner", [&](auto o, auto a) { alpha->queryAttributeOwnership(o, a); }},
      {"is owned", [&](auto o, auto a) { alpha->isAttributeOwnedByFederate(o, a); }}};
   for (auto const& service : services) {
      SCOPED_TRACE(service.name);
      EXPECT_REFUSED("ObjectInstanceNotKnown", service.call(nothing, noAttribute));
      EXPECT_REFUSED("AttributeNotDefined", service.call(object, noAttribute));
      EXPECT_REFUSED("AttributeNotDefined", service.call(object, load));
   }
   EXPECT_REFUSED("ObjectInstanceNotKnown", joined("gamma")->requestAttributeValueUpdate(object, {load}, {}));
   EXPECT_REFUSED("AttributeNotDefined", alpha->attributeOwnershipAcquisition(object, {speed, load}, {}));
   EXPECT_REFUSED("AttributeNotDefined", alpha->cancelAttributeOwnershipAcquisition(object, {speed, load}));
   EXPECT_REFUSED("FederateOwnsAttributes",
                  alpha->attributeOwnershipAcquisition(object, {passengers, speed}, {}));
   beta->attributeOwnershipAcquisition(object, {fuel}, {});
   EXPECT_REFUSED("AttributeNotPublished",
                  beta->attributeOwnershipAcquisitionIfAvailable(object, {passengers, fuel}));
   // Owns one thing, and wants another.
   registered(beta, car, "own");
   EXPECT_REFUSED("FederateOwnsAttributes", beta->resignFederationExecution(NO_ACTION));
   EXPECT_REFUSED("OwnershipAcquisitionPending",
                  beta->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES));
}

TEST_P(Precedence, IsFromTheObjectToTheAttributeToItsOwner)
{
   NamedCall<ObjectInstanceHandle, AttributeHandleSet> const services[] = {
      {"update",
       [&](auto o, auto a) {
          AttributeHandleValueMap values;
          for (AttributeHandle const attribute : a) {
             values[attribute] = bytes("1");
          }
          beta->updateAttributeValues(o, values, {});
       }},
      {"transportation",
       [&](auto o, auto a) { beta->requestAttributeTransportationTypeChange(o, a, RELIABLE); }},
      {"order", [&](auto o, auto a) { beta->changeAttributeOrderType(o, a, RECEIVE); }},
      {"divest", [&](auto o, auto a) { beta->unconditionalAttributeOwnershipDivestiture(o, a); }},
      {"negotiate", [&](auto o, auto a) { beta->negotiatedAttributeOwnershipDivestiture(o, a, {}); }},
      {"confirm", [&](auto o, auto a) { beta->confirmDivestiture(o, a, {}); }},
      {"deny", [&](auto o, auto a) { beta->attributeOwnershipReleaseDenied(o, a); }},
      {"divest if wanted", [&](auto o, auto a) { beta->attributeOwnershipDivestitureIfWanted(o, a, a); }},
      {"cancel", [&](auto o, auto a) { beta->cancelNegotiatedAttributeOwnershipDivestiture(o, a); }}};
   for (auto const& service : services) {
      SCOPED_TRACE(service.name);
      EXPECT_REFUSED("ObjectInstanceNotKnown", service.call(nothing, {noAttribute}));
      EXPECT_REFUSED("AttributeNotDefined", service.call(object, {noAttribute, speed}));
      EXPECT_REFUSED("AttributeNotDefined", service.call(object, {speed, load}));
      EXPECT_REFUSED("AttributeNotOwned", service.call(object, {speed}));
   }
}

TEST_P(Precedence, IsFromTheAttributeToTheRegion)
{
   using Pairs = AttributeHandleSetRegionHandleSetPairVector;
   struct Target
   {
      ObjectInstanceHandle object;
      ObjectClassHandle objectClass;
   };
   struct
   {
      char const* name;
      std::string ofNoTarget;
      std::string ofAnotherContext;
      std::function<void(Target, Pairs)> call;
   } const services[] = {
      {"register", "ObjectClassNotDefined", "InvalidRegionContext",
       [&](Target t, auto p) { alpha->registerObjectInstanceWithRegions(t.objectClass, p); }},
      {"associate", "ObjectInstanceNotKnown", "InvalidRegionContext",
       [&](Target t, auto p) { alpha->associateRegionsForUpdates(t.object, p); }},
      {"unassociate", "ObjectInstanceNotKnown", "nothing",
       [&](Target t, auto p) { alpha->unassociateRegionsForUpdates(t.object, p); }},
      {"subscribe", "ObjectClassNotDefined", "InvalidRegionContext",
       [&](Target t, auto p) { alpha->subscribeObjectClassAttributesWithRegions(t.objectClass, p); }},
      {"unsubscribe", "ObjectClassNotDefined", "nothing",
       [&](Target t, auto p) { alpha->unsubscribeObjectClassAttributesWithRegions(t.objectClass, p); }},
      {"request", "ObjectClassNotDefined", "InvalidRegionContext",
       [&](Target t, auto p) { alpha->requestAttributeValueUpdateWithRegions(t.objectClass, p, {}); }},
   };
   auto const with = [](AttributeHandle attribute, RegionHandleSet const& regions) {
      return Pairs{{{attribute}, regions}};
   };
   Pairs const apart{{{position}, {foreign}}, {{position}, {noRegion}}};
   for (auto const& service : services) {
      SCOPED_TRACE(service.name);
      EXPECT_REFUSED(service.ofNoTarget, service.call({nothing, noClass}, with(noAttribute, {noRegion})));
      EXPECT_REFUSED("AttributeNotDefined", service.call({object, car}, with(load, {noRegion})));
      EXPECT_REFUSED("InvalidRegion", service.call({object, car}, with(position, {foreign, noRegion})));
      EXPECT_REFUSED("InvalidRegion", service.call({object, car}, apart));
      EXPECT_REFUSED("RegionNotCreatedByThisFederate", service.call({object, car}, with(fuel, {foreign})));
      EXPECT_REFUSED(service.ofAnotherContext, service.call({object, car}, with(fuel, {stretch})));
      EXPECT_REFUSED(service.ofAnotherContext, service.call({object, car}, with(speed, {stretch})));
      service.call({object, car}, with(position, {stretch}));
   }
   EXPECT_REFUSED("InvalidUpdateRateDesignator",
                  alpha->subscribeObjectClassAttributesWithRegions(noClass, apart, true, L"Breakneck"));
   EXPECT_REFUSED("AttributeNotDefined",
                  alpha->registerObjectInstanceWithRegions(truck, with(noAttribute, {noRegion})));
   EXPECT_REFUSED("ObjectClassNotPublished",
                  alpha->registerObjectInstanceWithRegions(truck, with(position, {noRegion})));
   EXPECT_REFUSED("AttributeNotPublished",
                  alpha->registerObjectInstanceWithRegions(car, with(passengers, {noRegion})));
   EXPECT_REFUSED("InvalidRegion", alpha->registerObjectInstanceWithRegions(car, apart, L"free"));
   EXPECT_REFUSED("InvalidRegionContext",
                  alpha->registerObjectInstanceWithRegions(car, with(fuel, {stretch}), L"free"));
   EXPECT_REFUSED("ObjectInstanceNameNotReserved",
                  alpha->registerObjectInstanceWithRegions(car, with(position, {stretch}), L"free"));
   EXPECT_REFUSED("InvalidRegion", alpha->commitRegionModifications({foreign, noRegion}));
   EXPECT_REFUSED("InvalidRegion", alpha->setRangeBounds(noRegion, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("RegionNotCreatedByThisFederate", alpha->setRangeBounds(foreign, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("RegionDoesNotContainSpecifiedDimension",
                  alpha->setRangeBounds(stretch, {}, RangeBounds(9, 1)));
   EXPECT_REFUSED("InvalidRegion", alpha->getRangeBounds(noRegion, {}));
}

TEST_P(Precedence, IsFromTheInteractionToTheRegion)
{
   NamedCall<InteractionClassHandle, RegionHandleSet> const services[] = {
      {"subscribe", [&](auto c, auto r) { alpha->subscribeInteractionClassWithRegions(c, r); }},
      {"unsubscribe", [&](auto c, auto r) { alpha->unsubscribeInteractionClassWithRegions(c, r); }},
      {"send", [&](auto c, auto r) { alpha->sendInteractionWithRegions(c, {}, r, {}); }}};
   EXPECT_REFUSED("InteractionClassNotPublished",
                  alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}));
   alpha->publishInteractionClass(message);
   alpha->publishInteractionClass(accident);
   for (auto const& service : services) {
      SCOPED_TRACE(service.name);
      EXPECT_REFUSED("InteractionClassNotDefined", service.call(noInteraction, {noRegion}));
      EXPECT_REFUSED("InvalidRegion", service.call(accident, {foreign, noRegion}));
      EXPECT_REFUSED("RegionNotCreatedByThisFederate", service.call(message, {foreign}));
   }
   EXPECT_REFUSED("InvalidRegionContext", alpha->subscribeInteractionClassWithRegions(message, {stretch}));
   EXPECT_REFUSED("InvalidRegionContext", alpha->sendInteractionWithRegions(message, {}, {stretch}, {}));
}

TEST_P(Precedence, IsOfTheTimeLast)
{
   ParameterHandleValueMap const wrong = values({{level, ""}});
   auto const past = time(0);
   regulate(alpha, 5);
   regulate(beta, 5);
   EXPECT_REFUSED("ObjectInstanceNotKnown",
                  beta->updateAttributeValues(nothing, values({{noAttribute, ""}}), {}, past));
   EXPECT_REFUSED("AttributeNotDefined",
                  beta->updateAttributeValues(object, values({{noAttribute, ""}}), {}, past));
   EXPECT_REFUSED("AttributeNotOwned", beta->updateAttributeValues(object, values({{speed, ""}}), {}, past));
   EXPECT_REFUSED("InteractionClassNotDefined", alpha->sendInteraction(noInteraction, wrong, {}, past));
   EXPECT_REFUSED("InteractionParameterNotDefined", alpha->sendInteraction(accident, wrong, {}, past));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->sendInteraction(accident, {}, {}, past));
   EXPECT_REFUSED("InteractionClassNotPublished",
                  alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past));
   EXPECT_REFUSED("ObjectInstanceNotKnown", beta->deleteObjectInstance(nothing, {}, past));
   EXPECT_REFUSED("DeletePrivilegeNotHeld", beta->deleteObjectInstance(object, {}, past));
   alpha->publishInteractionClass(accident);
   EXPECT_REFUSED("RegionNotCreatedByThisFederate",
                  alpha->sendInteractionWithRegions(accident, {}, {foreign}, {}, past));
   alpha->timeAdvanceRequest(time(10));
   constrain(beta);
   beta->timeAdvanceRequest(time(100));
   EXPECT_REFUSED("InTimeAdvancingState", beta->modifyLookahead(interval(-1)));
   EXPECT_REFUSED("TimeConstrainedAlreadyEnabled", beta->enableTimeConstrained());
   EXPECT_REFUSED("TimeRegulationAlreadyEnabled", beta->enableTimeRegulation(interval(-1)));
}

} // namespace
