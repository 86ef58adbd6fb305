#include "Services.h"

#include "Words.h"
#include "src/services/Services.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <set>
#include <tuple>

namespace system_tests {

namespace {

namespace services = tovu1516e::services;

template <class Handle>
void name(Stage& stage, Federate& federate, Handle const& result, std::string const& given)
{
   if constexpr (std::is_same_v<Handle, ObjectInstanceHandle>) {
      std::wstring const its = federate->getObjectInstanceName(result);
      if (its.rfind(L"HLA", 0) == 0) { // which nobody chose
         stage.names().add(its, given);
      }
   }
   stage.call(result, given);
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

// What tells enough of a service by its verb has that for a name.
std::string nameInSteps(std::string const& name)
{
   static std::set<std::string> const verbs = {"publish",  "unpublish", "subscribe", "unsubscribe",
                                               "register", "update",    "send",      "delete"};
   static std::set<std::string> const others = {"registerFederationSynchronizationPoint", "deleteRegion"};
   std::string const verb = name.substr(0, name.find_first_of("AFIOR"));
   return verbs.count(verb) != 0 && others.count(name) == 0 ? verb : name;
}

// What the service reads, in the order of the codes, and the call with it.
template <class... Codes, class Call>
ServiceRow row(char const* called, Call service)
{
   auto const read = [service](Stage& stage, Federate& federate, Words& words) {
      using Arguments = std::tuple<decltype(words.argument<Codes>())...>;
      auto const arguments = std::make_shared<Arguments>(Arguments{words.argument<Codes>()...});
      words.expectEnd();
      return [service, arguments, &stage, &federate]() -> Outcome {
         auto const apply = [&](auto const&... values) { return service(federate, passed(values)...); };
         Outcome outcome;
         if constexpr (std::is_void_v<decltype(std::apply(apply, *arguments))>) {
            std::apply(apply, *arguments);
         } else {
            auto const result = std::apply(apply, *arguments);
            outcome.result = stage.names().in(show(result));
            if constexpr (isHandle<std::decay_t<decltype(result)>>) {
               outcome.call = [result, &stage, &federate](auto const& given) {
                  name(stage, federate, result, given);
               };
            }
         }
         return outcome;
      };
   };
   return {nameInSteps(called), called, {}, read};
}

template <class... Codes, class Call>
ServiceRow row(tovu1516e::Method const& method, char const* called, Call service)
{
   ServiceRow result = row<Codes...>(called, service);
   result.method = method.name;
   for (std::size_t i = 0; i < method.exceptions.count; ++i) {
      result.exceptions.push_back(std::strrchr(method.exceptions.first[i].javaClass, '/') + 1);
   }
   return result;
}

template <class Result, class... Codes, class Call>
ServiceRow served(tovu1516e::Service<Result(Codes...)> const& service, char const* called, Call call)
{
   return row<Codes...>(service, called, call);
}

AttributeHandleSet divestIfWanted(Federate& federate, ObjectInstanceHandle object,
                                  AttributeHandleSet const& attributes)
{
   AttributeHandleSet divested = attributes; // to be replaced, whatever it is
   federate->attributeOwnershipDivestitureIfWanted(object, attributes, divested);
   return divested;
}

std::mutex refusedMutex;
std::set<std::string> refused; // as "method exception"

Outcome call(ServiceRow const& row, std::function<Outcome()> const& invocation)
{
   Outcome outcome;
   contract::Caught const caught = contract::caughtFrom([&] { outcome = invocation(); });
   if (!caught.type.empty()) {
      outcome.exception = caught.type;
      outcome.message = narrow(caught.text);
      std::lock_guard<std::mutex> const lock(refusedMutex);
      refused.insert(row.method + " " + caught.type);
   }
   outcome.method = row.method;
   return outcome;
}

} // namespace

bool ServiceRow::lists(std::string const& exception) const
{
   return std::find(exceptions.begin(), exceptions.end(), exception) != exceptions.end();
}

// Those whose arguments come in the order of the codes in their names.
// clang-format off
#define FOR_EACH_SERVED(X) \
   X(disconnect, ) X(createFederationExecution, _S_URL_S) X(createFederationExecution, _S_URLX_S) \
   X(destroyFederationExecution, _S) X(listFederationExecutions, ) X(joinFederationExecution, _S_S_S_URLX) \
   X(resignFederationExecution, _RA) X(registerFederationSynchronizationPoint, _S_BX) \
   X(registerFederationSynchronizationPoint, _S_BX_FHS) X(synchronizationPointAchieved, _S_Z) \
   X(requestFederationSave, _S) X(requestFederationSave, _S_LT) X(federateSaveBegun, ) \
   X(federateSaveComplete, ) X(federateSaveNotComplete, ) X(abortFederationSave, ) \
   X(queryFederationSaveStatus, ) X(requestFederationRestore, _S) X(federateRestoreComplete, ) \
   X(federateRestoreNotComplete, ) X(abortFederationRestore, ) X(queryFederationRestoreStatus, ) \
   X(publishObjectClassAttributes, _OCH_AHS) X(unpublishObjectClass, _OCH) \
   X(unpublishObjectClassAttributes, _OCH_AHS) X(publishInteractionClass, _ICH) \
   X(unpublishInteractionClass, _ICH) X(subscribeObjectClassAttributes, _OCH_AHS_Z_S) \
   X(unsubscribeObjectClass, _OCH) X(unsubscribeObjectClassAttributes, _OCH_AHS) \
   X(subscribeInteractionClass, _ICH_Z) X(unsubscribeInteractionClass, _ICH) \
   X(reserveObjectInstanceName, _S) X(releaseObjectInstanceName, _S) \
   X(reserveMultipleObjectInstanceName, _S) X(releaseMultipleObjectInstanceName, _S) \
   X(registerObjectInstance, _OCH) X(registerObjectInstance, _OCH_S) X(updateAttributeValues, _OIH_AHVM_BX) \
   X(updateAttributeValues, _OIH_AHVM_BX_LT) X(sendInteraction, _ICH_PHVM_BX) \
   X(sendInteraction, _ICH_PHVM_BX_LT) X(deleteObjectInstance, _OIH_BX) X(deleteObjectInstance, _OIH_BX_LT) \
   X(localDeleteObjectInstance, _OIH) X(requestAttributeValueUpdate, _OIH_AHS_BX) \
   X(requestAttributeValueUpdate, _OCH_AHS_BX) X(requestAttributeTransportationTypeChange, _OIH_AHS_TTH) \
   X(queryAttributeTransportationType, _OIH_AH) X(requestInteractionTransportationTypeChange, _ICH_TTH) \
   X(queryInteractionTransportationType, _FH_ICH) X(changeAttributeOrderType, _OIH_AHS_OT) \
   X(changeInteractionOrderType, _ICH_OT) X(unconditionalAttributeOwnershipDivestiture, _OIH_AHS) \
   X(negotiatedAttributeOwnershipDivestiture, _OIH_AHS_BX) X(confirmDivestiture, _OIH_AHS_BX) \
   X(attributeOwnershipAcquisition, _OIH_AHS_BX) X(attributeOwnershipAcquisitionIfAvailable, _OIH_AHS) \
   X(attributeOwnershipReleaseDenied, _OIH_AHS) X(cancelNegotiatedAttributeOwnershipDivestiture, _OIH_AHS) \
   X(cancelAttributeOwnershipAcquisition, _OIH_AHS) X(queryAttributeOwnership, _OIH_AH) \
   X(isAttributeOwnedByFederate, _OIH_AH) X(enableTimeRegulation, _LTI) X(disableTimeRegulation, ) \
   X(enableTimeConstrained, ) X(disableTimeConstrained, ) X(timeAdvanceRequest, _LT) \
   X(timeAdvanceRequestAvailable, _LT) X(nextMessageRequest, _LT) X(nextMessageRequestAvailable, _LT) \
   X(flushQueueRequest, _LT) X(enableAsynchronousDelivery, ) X(disableAsynchronousDelivery, ) \
   X(queryGALT, ) X(queryLogicalTime, ) X(queryLITS, ) X(modifyLookahead, _LTI) X(queryLookahead, ) \
   X(retract, _MRH) X(createRegion, _DHS) X(commitRegionModifications, _RHS) X(deleteRegion, _RH) \
   X(registerObjectInstanceWithRegions, _OCH_ASRSPL) X(registerObjectInstanceWithRegions, _OCH_ASRSPL_S) \
   X(associateRegionsForUpdates, _OIH_ASRSPL) X(unassociateRegionsForUpdates, _OIH_ASRSPL) \
   X(subscribeObjectClassAttributesWithRegions, _OCH_ASRSPL_Z_S) \
   X(unsubscribeObjectClassAttributesWithRegions, _OCH_ASRSPL) \
   X(unsubscribeInteractionClassWithRegions, _ICH_RHS) X(sendInteractionWithRegions, _ICH_PHVM_RHS_BX) \
   X(sendInteractionWithRegions, _ICH_PHVM_RHS_BX_LT) \
   X(requestAttributeValueUpdateWithRegions, _OCH_ASRSPL_BX) X(getAutomaticResignDirective, ) \
   X(setAutomaticResignDirective, _RA) X(getFederateHandle, _S) X(getFederateName, _FH) \
   X(getObjectClassHandle, _S) X(getObjectClassName, _OCH) X(getKnownObjectClassHandle, _OIH) \
   X(getObjectInstanceHandle, _S) X(getObjectInstanceName, _OIH) X(getAttributeHandle, _OCH_S) \
   X(getAttributeName, _OCH_AH) X(getUpdateRateValue, _S) X(getUpdateRateValueForAttribute, _OIH_AH) \
   X(getInteractionClassHandle, _S) X(getInteractionClassName, _ICH) X(getParameterHandle, _ICH_S) \
   X(getParameterName, _ICH_PH) X(getOrderType, _S) X(getOrderName, _OT) X(getTransportationTypeHandle, _S) \
   X(getTransportationTypeName, _TTH) X(getAvailableDimensionsForClassAttribute, _OCH_AH) \
   X(getAvailableDimensionsForInteractionClass, _ICH) X(getDimensionHandle, _S) X(getDimensionName, _DH) \
   X(getDimensionUpperBound, _DH) X(getDimensionHandleSet, _RH) X(getRangeBounds, _RH_DH) \
   X(setRangeBounds, _RH_DH_RB) X(normalizeFederateHandle, _FH) X(normalizeServiceGroup, _SG) \
   X(enableObjectClassRelevanceAdvisorySwitch, ) X(disableObjectClassRelevanceAdvisorySwitch, ) \
   X(enableAttributeRelevanceAdvisorySwitch, ) X(disableAttributeRelevanceAdvisorySwitch, ) \
   X(enableAttributeScopeAdvisorySwitch, ) X(disableAttributeScopeAdvisorySwitch, ) \
   X(enableInteractionRelevanceAdvisorySwitch, ) X(disableInteractionRelevanceAdvisorySwitch, ) \
   X(evokeCallback, _D) X(evokeMultipleCallbacks, _D_D) X(enableCallbacks, ) X(disableCallbacks, )
// clang-format on

std::vector<ServiceRow> const& serviceRows()
{
#define CALL(function) \
   [](Federate& federate, auto const&... arguments) { return federate->function(arguments...); }
#define SERVED(function, suffix) served(services::function##suffix, #function, CALL(function)),
   static std::vector<ServiceRow> const rows = {
      FOR_EACH_SERVED(SERVED) //
      row(services::connect_FA_CM_S, "connect", [](Federate& federate) { federate.connect(); }),
      row<codes::S, codes::URL, codes::URLX, codes::S>( // the MIM first, as there can be many modules
         services::createFederationExecution_S_URLX_URL_S, "createFederationExecutionWithMIM",
         [](Federate& federate, auto const& federation, auto const& mim, auto const& modules,
            auto const& time) {
            federate->createFederationExecutionWithMIM(federation, modules, mim, time);
         }),
      served(services::joinFederationExecution_S_S_URLX, "joinWithoutName", CALL(joinFederationExecution)),
      row<codes::OIH, codes::AHS>(services::attributeOwnershipDivestitureIfWanted_OIH_AHS,
                                  "attributeOwnershipDivestitureIfWanted", divestIfWanted),
      row<codes::ICH, codes::RHS, codes::Z>(services::subscribeInteractionClassWithRegions_ICH_Z_RHS,
                                            "subscribeInteractionClassWithRegions",
                                            CALL(subscribeInteractionClassWithRegions)),
      row(services::getTimeFactory, "getTimeFactory",
          [](Federate& federate) { return federate->getTimeFactory()->getName(); })};
#undef CALL
#undef SERVED
   return rows;
}

bool wasRefused(ServiceRow const& row, std::string const& exception)
{
   return refused.count(row.method + " " + exception) != 0;
}

bool isNamed(std::vector<std::string> const& words)
{
   auto const& rows = serviceRows();
   return words.size() > 2 && words[1] == "=" &&
          std::none_of(rows.begin(), rows.end(), [&](auto const& row) { return row.name == words[0]; });
}

Outcome serve(Stage& stage, Federate& federate, std::vector<std::string> words)
{
   std::string given;
   if (isNamed(words)) {
      given = words[0];
      words.erase(words.begin(), words.begin() + 2);
   }
   // Joins the federation under the federate's own name, connected first if it is not yet.
   if (words[0] == "join") {
      refusal([&] { federate.connect(); });
      words.insert(words.begin() + 1, {federate.name(), "test", "$federation"});
      words[0] = "joinFederationExecution";
      given = federate.name();
   }
   std::string why = words[0] + " is no service";
   for (auto const& row : serviceRows()) {
      if (row.name == words[0]) {
         std::function<Outcome()> invocation;
         try {
            Words arguments(stage, federate, {words.begin() + 1, words.end()});
            invocation = row.read(stage, federate, arguments);
         } catch (Unreadable const& error) {
            why = error.what();
            continue;
         }
         Outcome const outcome = call(row, invocation);
         if (!given.empty() && outcome.exception == "nothing") {
            if (!outcome.call) {
               throw Unreadable("only handles have names");
            }
            outcome.call(given);
         }
         return outcome;
      }
   }
   throw Unreadable(why);
}

Outcome serveAs(ServiceRow const& row, Stage& stage, Federate& federate,
                std::vector<std::string> const& arguments)
{
   Words words(stage, federate, arguments, arguments.empty());
   return call(row, row.read(stage, federate, words));
}

} // namespace system_tests
