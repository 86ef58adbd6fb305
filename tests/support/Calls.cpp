#include "tests/support/Calls.h"

#include "src/messages/TypeCodes.h"
#include "src/services/Results.h"
#include "tests/support/RandomValue.h"

#include <RTI/NullFederateAmbassador.h>

#include <memory>
#include <tuple>
#include <type_traits>

namespace contract {
namespace {

// Of the library only the names of the codes are taken: the type that one stands for.
template <class Code>
struct TypeOf
{
   using Type = std::decay_t<typename Code::Argument>;
};
template <>
struct TypeOf<tovu1516e::LT>
{
   using Type = TestTime;
};
template <>
struct TypeOf<tovu1516e::LTI>
{
   using Type = TestInterval;
};

// What connect is called with; its token stands before the message.
struct Nobody
{
   operator FederateAmbassador&() const
   {
      static NullFederateAmbassador nobody;
      return nobody;
   }
   static VariableLengthData encode() { return {}; }
};

template <class Code>
auto randomArgument(Octets& octets)
{
   if constexpr (std::is_same_v<Code, tovu1516e::FA>) {
      return Nobody();
   } else {
      return randomValue<typename TypeOf<Code>::Type>(octets);
   }
}

template <class Signature>
struct Arguments;
template <class Result, class... Codes>
struct Arguments<Result(Codes...)>
{
   static auto make(Octets& octets)
   {
      return std::tuple<decltype(randomArgument<Codes>(octets))...>{randomArgument<Codes>(octets)...};
   }
   static Bytes makeEncoded(Octets& octets)
   {
      return std::apply([](auto const&... each) { return encoded(each...); }, make(octets));
   }
};

template <class Signature, class Call>
ServiceCall makeCall(Call call, Octets& octets)
{
   auto const arguments =
      std::make_shared<decltype(Arguments<Signature>::make(octets))>(Arguments<Signature>::make(octets));
   auto const message = std::apply([](auto const&... each) { return encoded(each...); }, *arguments);
   return {message, [call, arguments](RTIambassador& rti) {
              auto const calling = [&](auto const&... each) { return call(rti, each...); };
              if constexpr (std::is_void_v<decltype(std::apply(calling, *arguments))>) {
                 std::apply(calling, *arguments);
                 return Bytes();
              } else {
                 return encoded(std::apply(calling, *arguments));
              }
           }};
}

auto const divestIfWanted = [](RTIambassador& rti, ObjectInstanceHandle object,
                               AttributeHandleSet const& attributes) {
   AttributeHandleSet divested = attributes;
   rti.attributeOwnershipDivestitureIfWanted(object, attributes, divested);
   return divested;
};
auto const subscribeWithRegions = [](RTIambassador& rti, InteractionClassHandle type, bool active,
                                     RegionHandleSet const& regions) {
   rti.subscribeInteractionClassWithRegions(type, regions, active);
};

// In the order of the services.
#define CALL(member) [](RTIambassador& rti, auto const&... arguments) { return rti.member(arguments...); }
auto const calls = std::make_tuple(
   CALL(connect), CALL(disconnect), CALL(createFederationExecution), CALL(createFederationExecution),
   CALL(createFederationExecutionWithMIM), CALL(destroyFederationExecution), CALL(listFederationExecutions),
   CALL(joinFederationExecution), CALL(joinFederationExecution), CALL(resignFederationExecution),
   CALL(registerFederationSynchronizationPoint), CALL(registerFederationSynchronizationPoint),
   CALL(synchronizationPointAchieved), CALL(requestFederationSave), CALL(requestFederationSave),
   CALL(federateSaveBegun), CALL(federateSaveComplete), CALL(federateSaveNotComplete),
   CALL(abortFederationSave), CALL(queryFederationSaveStatus), CALL(requestFederationRestore),
   CALL(federateRestoreComplete), CALL(federateRestoreNotComplete), CALL(abortFederationRestore),
   CALL(queryFederationRestoreStatus), CALL(publishObjectClassAttributes), CALL(unpublishObjectClass),
   CALL(unpublishObjectClassAttributes), CALL(publishInteractionClass), CALL(unpublishInteractionClass),
   CALL(subscribeObjectClassAttributes), CALL(unsubscribeObjectClass), CALL(unsubscribeObjectClassAttributes),
   CALL(subscribeInteractionClass), CALL(unsubscribeInteractionClass), CALL(reserveObjectInstanceName),
   CALL(releaseObjectInstanceName), CALL(reserveMultipleObjectInstanceName),
   CALL(releaseMultipleObjectInstanceName), CALL(registerObjectInstance), CALL(registerObjectInstance),
   CALL(updateAttributeValues), CALL(updateAttributeValues), CALL(sendInteraction), CALL(sendInteraction),
   CALL(deleteObjectInstance), CALL(deleteObjectInstance), CALL(localDeleteObjectInstance),
   CALL(requestAttributeValueUpdate), CALL(requestAttributeValueUpdate),
   CALL(requestAttributeTransportationTypeChange), CALL(queryAttributeTransportationType),
   CALL(requestInteractionTransportationTypeChange), CALL(queryInteractionTransportationType),
   CALL(changeAttributeOrderType), CALL(changeInteractionOrderType),
   CALL(unconditionalAttributeOwnershipDivestiture), CALL(negotiatedAttributeOwnershipDivestiture),
   CALL(confirmDivestiture), CALL(attributeOwnershipAcquisition),
   CALL(attributeOwnershipAcquisitionIfAvailable), CALL(attributeOwnershipReleaseDenied), divestIfWanted,
   CALL(cancelNegotiatedAttributeOwnershipDivestiture), CALL(cancelAttributeOwnershipAcquisition),
   CALL(queryAttributeOwnership), CALL(isAttributeOwnedByFederate), CALL(enableTimeRegulation),
   CALL(disableTimeRegulation), CALL(enableTimeConstrained), CALL(disableTimeConstrained),
   CALL(timeAdvanceRequest), CALL(timeAdvanceRequestAvailable), CALL(nextMessageRequest),
   CALL(nextMessageRequestAvailable), CALL(flushQueueRequest), CALL(enableAsynchronousDelivery),
   CALL(disableAsynchronousDelivery), CALL(queryGALT), CALL(queryLogicalTime), CALL(queryLITS),
   CALL(modifyLookahead), CALL(queryLookahead), CALL(retract), CALL(createRegion),
   CALL(commitRegionModifications), CALL(deleteRegion), CALL(registerObjectInstanceWithRegions),
   CALL(registerObjectInstanceWithRegions), CALL(associateRegionsForUpdates),
   CALL(unassociateRegionsForUpdates), CALL(subscribeObjectClassAttributesWithRegions),
   CALL(unsubscribeObjectClassAttributesWithRegions), subscribeWithRegions,
   CALL(unsubscribeInteractionClassWithRegions), CALL(sendInteractionWithRegions),
   CALL(sendInteractionWithRegions), CALL(requestAttributeValueUpdateWithRegions),
   CALL(getAutomaticResignDirective), CALL(setAutomaticResignDirective), CALL(getFederateHandle),
   CALL(getFederateName), CALL(getObjectClassHandle), CALL(getObjectClassName),
   CALL(getKnownObjectClassHandle), CALL(getObjectInstanceHandle), CALL(getObjectInstanceName),
   CALL(getAttributeHandle), CALL(getAttributeName), CALL(getUpdateRateValue),
   CALL(getUpdateRateValueForAttribute), CALL(getInteractionClassHandle), CALL(getInteractionClassName),
   CALL(getParameterHandle), CALL(getParameterName), CALL(getOrderType), CALL(getOrderName),
   CALL(getTransportationTypeHandle), CALL(getTransportationTypeName),
   CALL(getAvailableDimensionsForClassAttribute), CALL(getAvailableDimensionsForInteractionClass),
   CALL(getDimensionHandle), CALL(getDimensionName), CALL(getDimensionUpperBound),
   CALL(getDimensionHandleSet), CALL(getRangeBounds), CALL(setRangeBounds), CALL(normalizeFederateHandle),
   CALL(normalizeServiceGroup), CALL(enableObjectClassRelevanceAdvisorySwitch),
   CALL(disableObjectClassRelevanceAdvisorySwitch), CALL(enableAttributeRelevanceAdvisorySwitch),
   CALL(disableAttributeRelevanceAdvisorySwitch), CALL(enableAttributeScopeAdvisorySwitch),
   CALL(disableAttributeScopeAdvisorySwitch), CALL(enableInteractionRelevanceAdvisorySwitch),
   CALL(disableInteractionRelevanceAdvisorySwitch), CALL(evokeCallback), CALL(evokeMultipleCallbacks),
   CALL(enableCallbacks), CALL(disableCallbacks), CALL(getTimeFactory));
#undef CALL

enum Index : std::size_t
{
#define SERVICE(method, ...) method,
#include "src/services/Services.def"
};

} // namespace

std::vector<Service> const& services()
{
   using namespace tovu1516e;
   static std::vector<Service> const all = {
#define SERVICE(method, signature, ...) \
   {#method, [](Octets& octets) { return makeCall<signature>(std::get<Index::method>(calls), octets); }},
#include "src/services/Services.def"
   };
   return all;
}

std::vector<Callback> const& callbacks()
{
   using namespace tovu1516e;
   static std::vector<Callback> const all = {
#define CALLBACK(native, member, signature) {#native "_Native", #member, &Arguments<signature>::makeEncoded},
#include "src/callbacks/Callbacks.def"
   };
   return all;
}

} // namespace contract
