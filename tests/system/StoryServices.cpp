#include "StoryServices.h"

#include "Refusal.h"
#include "src/services/Services.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>
#include <type_traits>

namespace system_tests {

namespace {

namespace services = tovu1516e::services;

template <class Value>
constexpr bool isHandle = std::is_same_v<Value, MessageRetractionHandle>;
#define SYSTEM_TESTS_IS_HANDLE(Handle) \
   template <>                         \
   constexpr bool isHandle<Handle> = true;
RTI_FOR_EACH_HANDLE(SYSTEM_TESTS_IS_HANDLE)
#undef SYSTEM_TESTS_IS_HANDLE

template <class Result>
void call(Stage& stage, Federate& federate, Result const& result, std::string const& name)
{
   if constexpr (std::is_same_v<Result, ObjectInstanceHandle>) {
      std::wstring const its = federate->getObjectInstanceName(result);
      if (its.rfind(L"HLA", 0) == 0) { // which nobody chose
         stage.names().add(its, name);
      }
   }
   if constexpr (isHandle<Result>) {
      stage.call(result, name);
   } else {
      throw Unreadable("only handles have names");
   }
}

// Times and intervals are abstract, and so held by pointers.
template <class Value>
Value const& passed(Value const& value)
{
   return value;
}
template <class Value>
Value const& passed(std::unique_ptr<Value> const& value)
{
   return *value;
}

using Form = std::function<Invocation(StoryWords&)>;

// What a service reads, and the call with it.
template <class... Codes, class Call>
Form form(Call service)
{
   return [service](StoryWords& words) -> Invocation {
      using Arguments = std::tuple<decltype(words.argument<Codes>())...>;
      auto const arguments = std::make_shared<Arguments>(Arguments{words.argument<Codes>()...});
      words.expectEnd();
      return [service, arguments, &stage = words.stage(), &federate = words.federate()]() -> Outcome {
         auto const apply = [&](auto const&... values) { return service(federate, passed(values)...); };
         using Result = decltype(std::apply(apply, *arguments));
         if constexpr (std::is_void_v<Result>) {
            std::apply(apply, *arguments);
            return {"", {}};
         } else {
            auto const result = std::make_shared<Result>(std::apply(apply, *arguments));
            return {show(*result), [=, &stage, &federate](std::string const& name) {
                       call(stage, federate, *result, name);
                    }};
         }
      };
   };
}

ServiceRow row(tovu1516e::Method const& method, char const* name, Form const& read)
{
   static std::pair<std::string, char const*> const shortForms[] = {
      {"publishObjectClassAttributes", "publish"},
      {"publishInteractionClass", "publish"},
      {"unpublishObjectClass", "unpublish"},
      {"unpublishObjectClassAttributes", "unpublish"},
      {"unpublishInteractionClass", "unpublish"},
      {"subscribeObjectClassAttributes", "subscribe"},
      {"subscribeInteractionClass", "subscribe"},
      {"subscribeObjectClassAttributesWithRegions", "subscribe"},
      {"subscribeInteractionClassWithRegions", "subscribe"},
      {"unsubscribeObjectClass", "unsubscribe"},
      {"unsubscribeObjectClassAttributes", "unsubscribe"},
      {"unsubscribeInteractionClass", "unsubscribe"},
      {"unsubscribeObjectClassAttributesWithRegions", "unsubscribe"},
      {"unsubscribeInteractionClassWithRegions", "unsubscribe"},
      {"registerObjectInstance", "register"},
      {"registerObjectInstanceWithRegions", "register"},
      {"updateAttributeValues", "update"},
      {"sendInteraction", "send"},
      {"sendInteractionWithRegions", "send"},
      {"deleteObjectInstance", "delete"},
   };
   auto const shortForm = std::find_if(std::begin(shortForms), std::end(shortForms),
                                       [&](auto const& entry) { return entry.first == name; });
   ServiceRow result{shortForm == std::end(shortForms) ? name : shortForm->second, method.name, {}, read};
   for (std::size_t i = 0; i < method.exceptions.count; ++i) {
      result.exceptions.push_back(std::strrchr(method.exceptions.first[i].javaClass, '/') + 1);
   }
   return result;
}

template <class Result, class... Codes, class Call>
ServiceRow served(tovu1516e::Service<Result(Codes...)> const& service, char const* name, Call call)
{
   return row(service, name, form<Codes...>(call));
}

// Connects who is not connected, and joins the story's federation under the federate's own name.
FederateHandle join(Federate& federate, std::wstring const& federation,
                    std::vector<std::wstring> const& modules)
{
   refusal([&] { federate.connect(); });
   federate.join(narrow(federation), modules);
   return federate.handle();
}

// The MIM before the FOM modules, of which there can be many.
void createWithMIM(Federate& federate, std::wstring const& federation, std::wstring const& mim,
                   std::vector<std::wstring> const& modules, std::wstring const& time)
{
   federate->createFederationExecutionWithMIM(federation, modules, mim, time);
}

AttributeHandleSet divestIfWanted(Federate& federate, ObjectInstanceHandle object,
                                  AttributeHandleSet const& attributes)
{
   AttributeHandleSet divested = attributes; // to be replaced, whatever it is
   federate->attributeOwnershipDivestitureIfWanted(object, attributes, divested);
   return divested;
}

} // namespace

bool ServiceRow::lists(std::string const& exception) const
{
   return std::find(exceptions.begin(), exceptions.end(), exception) != exceptions.end();
}

std::vector<ServiceRow> const& serviceRows()
{
#define CALL(function) \
   [](Federate& federate, auto const&... arguments) { return federate->function(arguments...); }
#define SERVED(function, suffix) served(services::function##suffix, #function, CALL(function))
#define DECODED(code, Handle)                                                                    \
   ServiceRow                                                                                    \
   {                                                                                             \
      "decode" #Handle, "", {}, form<codes::code>([](Federate& federate, Handle const& handle) { \
         return federate->decode##Handle(handle.encode());                                       \
      })                                                                                         \
   }
   static std::vector<ServiceRow> const rows = {
      row(services::connect_FA_CM_S, "connect", form<>([](Federate& federate) { federate.connect(); })),
      SERVED(disconnect, ),
      SERVED(createFederationExecution, _S_URL_S),
      SERVED(createFederationExecution, _S_URLX_S),
      row(services::createFederationExecution_S_URLX_URL_S, "createFederationExecutionWithMIM",
          form<codes::S, codes::URL, codes::URLX, codes::S>(createWithMIM)),
      SERVED(destroyFederationExecution, _S),
      SERVED(listFederationExecutions, ),
      SERVED(joinFederationExecution, _S_S_S_URLX),
      ServiceRow{"join", services::joinFederationExecution_S_S_S_URLX.name, {}, form<OwnFederation, codes::URLX>(join)},
      served(services::joinFederationExecution_S_S_URLX, "joinWithoutName", CALL(joinFederationExecution)),
      SERVED(resignFederationExecution, _RA),
      SERVED(registerFederationSynchronizationPoint, _S_BX),
      SERVED(registerFederationSynchronizationPoint, _S_BX_FHS),
      SERVED(synchronizationPointAchieved, _S_Z),
      SERVED(requestFederationSave, _S),
      SERVED(requestFederationSave, _S_LT),
      SERVED(federateSaveBegun, ),
      SERVED(federateSaveComplete, ),
      SERVED(federateSaveNotComplete, ),
      SERVED(abortFederationSave, ),
      SERVED(queryFederationSaveStatus, ),
      SERVED(requestFederationRestore, _S),
      SERVED(federateRestoreComplete, ),
      SERVED(federateRestoreNotComplete, ),
      SERVED(abortFederationRestore, ),
      SERVED(queryFederationRestoreStatus, ),
      SERVED(publishObjectClassAttributes, _OCH_AHS),
      SERVED(unpublishObjectClass, _OCH),
      SERVED(unpublishObjectClassAttributes, _OCH_AHS),
      SERVED(publishInteractionClass, _ICH),
      SERVED(unpublishInteractionClass, _ICH),
      SERVED(subscribeObjectClassAttributes, _OCH_AHS_Z_S),
      SERVED(unsubscribeObjectClass, _OCH),
      SERVED(unsubscribeObjectClassAttributes, _OCH_AHS),
      SERVED(subscribeInteractionClass, _ICH_Z),
      SERVED(unsubscribeInteractionClass, _ICH),
      SERVED(reserveObjectInstanceName, _S),
      SERVED(releaseObjectInstanceName, _S),
      SERVED(reserveMultipleObjectInstanceName, _S),
      SERVED(releaseMultipleObjectInstanceName, _S),
      SERVED(registerObjectInstance, _OCH),
      SERVED(registerObjectInstance, _OCH_S),
      SERVED(updateAttributeValues, _OIH_AHVM_BX),
      SERVED(updateAttributeValues, _OIH_AHVM_BX_LT),
      SERVED(sendInteraction, _ICH_PHVM_BX),
      SERVED(sendInteraction, _ICH_PHVM_BX_LT),
      SERVED(deleteObjectInstance, _OIH_BX),
      SERVED(deleteObjectInstance, _OIH_BX_LT),
      SERVED(localDeleteObjectInstance, _OIH),
      SERVED(requestAttributeValueUpdate, _OIH_AHS_BX),
      SERVED(requestAttributeValueUpdate, _OCH_AHS_BX),
      SERVED(requestAttributeTransportationTypeChange, _OIH_AHS_TTH),
      SERVED(queryAttributeTransportationType, _OIH_AH),
      SERVED(requestInteractionTransportationTypeChange, _ICH_TTH),
      SERVED(queryInteractionTransportationType, _FH_ICH),
      SERVED(changeAttributeOrderType, _OIH_AHS_OT),
      SERVED(changeInteractionOrderType, _ICH_OT),
      SERVED(unconditionalAttributeOwnershipDivestiture, _OIH_AHS),
      SERVED(negotiatedAttributeOwnershipDivestiture, _OIH_AHS_BX),
      SERVED(confirmDivestiture, _OIH_AHS_BX),
      SERVED(attributeOwnershipAcquisition, _OIH_AHS_BX),
      SERVED(attributeOwnershipAcquisitionIfAvailable, _OIH_AHS),
      SERVED(attributeOwnershipReleaseDenied, _OIH_AHS),
      row(services::attributeOwnershipDivestitureIfWanted_OIH_AHS, "attributeOwnershipDivestitureIfWanted",
          form<codes::OIH, codes::AHS>(divestIfWanted)),
      SERVED(cancelNegotiatedAttributeOwnershipDivestiture, _OIH_AHS),
      SERVED(cancelAttributeOwnershipAcquisition, _OIH_AHS),
      SERVED(queryAttributeOwnership, _OIH_AH),
      SERVED(isAttributeOwnedByFederate, _OIH_AH),
      SERVED(enableTimeRegulation, _LTI),
      SERVED(disableTimeRegulation, ),
      SERVED(enableTimeConstrained, ),
      SERVED(disableTimeConstrained, ),
      SERVED(timeAdvanceRequest, _LT),
      SERVED(timeAdvanceRequestAvailable, _LT),
      SERVED(nextMessageRequest, _LT),
      SERVED(nextMessageRequestAvailable, _LT),
      SERVED(flushQueueRequest, _LT),
      SERVED(enableAsynchronousDelivery, ),
      SERVED(disableAsynchronousDelivery, ),
      SERVED(queryGALT, ),
      SERVED(queryLogicalTime, ),
      SERVED(queryLITS, ),
      SERVED(modifyLookahead, _LTI),
      SERVED(queryLookahead, ),
      SERVED(retract, _MRH),
      SERVED(createRegion, _DHS),
      SERVED(commitRegionModifications, _RHS),
      SERVED(deleteRegion, _RH),
      SERVED(registerObjectInstanceWithRegions, _OCH_ASRSPL),
      SERVED(registerObjectInstanceWithRegions, _OCH_ASRSPL_S),
      SERVED(associateRegionsForUpdates, _OIH_ASRSPL),
      SERVED(unassociateRegionsForUpdates, _OIH_ASRSPL),
      SERVED(subscribeObjectClassAttributesWithRegions, _OCH_ASRSPL_Z_S),
      SERVED(unsubscribeObjectClassAttributesWithRegions, _OCH_ASRSPL),
      row(services::subscribeInteractionClassWithRegions_ICH_Z_RHS, "subscribeInteractionClassWithRegions",
          form<codes::ICH, codes::RHS, codes::Z>(CALL(subscribeInteractionClassWithRegions))),
      SERVED(unsubscribeInteractionClassWithRegions, _ICH_RHS),
      SERVED(sendInteractionWithRegions, _ICH_PHVM_RHS_BX),
      SERVED(sendInteractionWithRegions, _ICH_PHVM_RHS_BX_LT),
      SERVED(requestAttributeValueUpdateWithRegions, _OCH_ASRSPL_BX),
      SERVED(getAutomaticResignDirective, ),
      SERVED(setAutomaticResignDirective, _RA),
      SERVED(getFederateHandle, _S),
      SERVED(getFederateName, _FH),
      SERVED(getObjectClassHandle, _S),
      SERVED(getObjectClassName, _OCH),
      SERVED(getKnownObjectClassHandle, _OIH),
      SERVED(getObjectInstanceHandle, _S),
      SERVED(getObjectInstanceName, _OIH),
      SERVED(getAttributeHandle, _OCH_S),
      SERVED(getAttributeName, _OCH_AH),
      SERVED(getUpdateRateValue, _S),
      SERVED(getUpdateRateValueForAttribute, _OIH_AH),
      SERVED(getInteractionClassHandle, _S),
      SERVED(getInteractionClassName, _ICH),
      SERVED(getParameterHandle, _ICH_S),
      SERVED(getParameterName, _ICH_PH),
      SERVED(getOrderType, _S),
      SERVED(getOrderName, _OT),
      SERVED(getTransportationTypeHandle, _S),
      SERVED(getTransportationTypeName, _TTH),
      SERVED(getAvailableDimensionsForClassAttribute, _OCH_AH),
      SERVED(getAvailableDimensionsForInteractionClass, _ICH),
      SERVED(getDimensionHandle, _S),
      SERVED(getDimensionName, _DH),
      SERVED(getDimensionUpperBound, _DH),
      SERVED(getDimensionHandleSet, _RH),
      SERVED(getRangeBounds, _RH_DH),
      SERVED(setRangeBounds, _RH_DH_RB),
      SERVED(normalizeFederateHandle, _FH),
      SERVED(normalizeServiceGroup, _SG),
      SERVED(enableObjectClassRelevanceAdvisorySwitch, ),
      SERVED(disableObjectClassRelevanceAdvisorySwitch, ),
      SERVED(enableAttributeRelevanceAdvisorySwitch, ),
      SERVED(disableAttributeRelevanceAdvisorySwitch, ),
      SERVED(enableAttributeScopeAdvisorySwitch, ),
      SERVED(disableAttributeScopeAdvisorySwitch, ),
      SERVED(enableInteractionRelevanceAdvisorySwitch, ),
      SERVED(disableInteractionRelevanceAdvisorySwitch, ),
      SERVED(evokeCallback, _D),
      SERVED(evokeMultipleCallbacks, _D_D),
      SERVED(enableCallbacks, ),
      SERVED(disableCallbacks, ),
      row(services::getTimeFactory, "getTimeFactory",
          form<>([](Federate& federate) { return federate->getTimeFactory()->getName(); })),
      DECODED(FH, FederateHandle),
      DECODED(OCH, ObjectClassHandle),
      DECODED(ICH, InteractionClassHandle),
      DECODED(OIH, ObjectInstanceHandle),
      DECODED(AH, AttributeHandle),
      DECODED(PH, ParameterHandle),
      DECODED(DH, DimensionHandle),
      DECODED(RH, RegionHandle),
      DECODED(MRH, MessageRetractionHandle),
   };
#undef CALL
#undef SERVED
#undef DECODED
   return rows;
}

bool isService(std::string const& name)
{
   auto const& rows = serviceRows();
   return std::any_of(rows.begin(), rows.end(), [&](auto const& row) { return row.name == name; });
}

} // namespace system_tests
