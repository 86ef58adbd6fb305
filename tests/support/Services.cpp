#include "tests/support/Services.h"

#include "tests/support/Samples.h"
#include "tests/support/Shown.h"

#include <RTI/NullFederateAmbassador.h>

#include <fstream>
#include <sstream>
#include <type_traits>

namespace contract {
namespace {

using namespace samples;

NullFederateAmbassador nobody;

std::vector<std::string> linesOf(char const* table)
{
   std::ifstream file(table);
   std::vector<std::string> lines;
   for (std::string line; std::getline(file, line);) {
      lines.push_back(line);
   }
   return lines;
}

// A call that returns its result as a text.
template <class Call>
Service::Call calling(Call call)
{
   return [call](RTIambassador& rti) {
      if constexpr (std::is_void_v<decltype(call(rti))>) {
         call(rti);
         return std::wstring();
      } else {
         return shown(call(rti));
      }
   };
}

} // namespace

std::vector<JavaMethod> const& javaMethods()
{
   static std::vector<JavaMethod> const methods = [] {
      std::vector<JavaMethod> read;
      for (auto const& line : linesOf(TEST_TABLES "/services.txt")) {
         std::istringstream words(line);
         JavaMethod method;
         words >> method.name >> method.signature;
         for (std::string exception; words >> exception;) {
            method.exceptions.push_back(exception);
         }
         read.push_back(method);
      }
      return read;
   }();
   return methods;
}

std::vector<std::string> const& nativeNames()
{
   static std::vector<std::string> const names = linesOf(TEST_TABLES "/natives.txt");
   return names;
}

std::vector<Service> const& services()
{
   // In the order of services.txt.
#define CALL(call) calling([](RTIambassador& rti) { return rti.call; })
   static std::vector<Service::Call> const calls = {
      CALL(connect(nobody, HLA_EVOKED, name1)),
      CALL(disconnect()),
      CALL(createFederationExecution(name1, module, name2)),
      CALL(createFederationExecution(name1, modules, name2)),
      CALL(createFederationExecutionWithMIM(name1, modules, module, name2)),
      CALL(destroyFederationExecution(name1)),
      CALL(listFederationExecutions()),
      CALL(joinFederationExecution(name1, name2, name3, modules)),
      CALL(joinFederationExecution(name1, name2, modules)),
      CALL(resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST)),
      CALL(registerFederationSynchronizationPoint(name1, tag)),
      CALL(registerFederationSynchronizationPoint(name1, tag, federates)),
      CALL(synchronizationPointAchieved(name1, true)),
      CALL(requestFederationSave(name1)),
      CALL(requestFederationSave(name1, samples::time)),
      CALL(federateSaveBegun()),
      CALL(federateSaveComplete()),
      CALL(federateSaveNotComplete()),
      CALL(abortFederationSave()),
      CALL(queryFederationSaveStatus()),
      CALL(requestFederationRestore(name1)),
      CALL(federateRestoreComplete()),
      CALL(federateRestoreNotComplete()),
      CALL(abortFederationRestore()),
      CALL(queryFederationRestoreStatus()),
      CALL(getAutomaticResignDirective()),
      CALL(setAutomaticResignDirective(CANCEL_THEN_DELETE_THEN_DIVEST)),
      CALL(getFederateHandle(name1)),
      CALL(getFederateName(federate)),
      CALL(getObjectClassHandle(name1)),
      CALL(getObjectClassName(objectClass)),
      CALL(getKnownObjectClassHandle(object)),
      CALL(getObjectInstanceHandle(name1)),
      CALL(getObjectInstanceName(object)),
      CALL(getAttributeHandle(objectClass, name1)),
      CALL(getAttributeName(objectClass, attribute)),
      CALL(getUpdateRateValue(name1)),
      CALL(getUpdateRateValueForAttribute(object, attribute)),
      CALL(getInteractionClassHandle(name1)),
      CALL(getInteractionClassName(interactionClass)),
      CALL(getParameterHandle(interactionClass, name1)),
      CALL(getParameterName(interactionClass, parameter)),
      CALL(getOrderType(name1)),
      CALL(getOrderName(TIMESTAMP)),
      CALL(getTransportationTypeHandle(name1)),
      CALL(getTransportationTypeName(BEST_EFFORT)),
      CALL(getAvailableDimensionsForClassAttribute(objectClass, attribute)),
      CALL(getAvailableDimensionsForInteractionClass(interactionClass)),
      CALL(getDimensionHandle(name1)),
      CALL(getDimensionName(dimension)),
      CALL(getDimensionUpperBound(dimension)),
      CALL(normalizeFederateHandle(federate)),
      CALL(normalizeServiceGroup(OBJECT_MANAGEMENT)),
      CALL(enableObjectClassRelevanceAdvisorySwitch()),
      CALL(disableObjectClassRelevanceAdvisorySwitch()),
      CALL(enableAttributeRelevanceAdvisorySwitch()),
      CALL(disableAttributeRelevanceAdvisorySwitch()),
      CALL(enableAttributeScopeAdvisorySwitch()),
      CALL(disableAttributeScopeAdvisorySwitch()),
      CALL(enableInteractionRelevanceAdvisorySwitch()),
      CALL(disableInteractionRelevanceAdvisorySwitch()),
      CALL(evokeCallback(1.0)),
      CALL(evokeMultipleCallbacks(1.0, -2.5)),
      CALL(enableCallbacks()),
      CALL(disableCallbacks()),
      CALL(publishObjectClassAttributes(objectClass, attributes)),
      CALL(unpublishObjectClass(objectClass)),
      CALL(unpublishObjectClassAttributes(objectClass, attributes)),
      CALL(publishInteractionClass(interactionClass)),
      CALL(unpublishInteractionClass(interactionClass)),
      CALL(subscribeObjectClassAttributes(objectClass, attributes, true, name1)),
      CALL(unsubscribeObjectClass(objectClass)),
      CALL(unsubscribeObjectClassAttributes(objectClass, attributes)),
      CALL(subscribeInteractionClass(interactionClass, true)),
      CALL(unsubscribeInteractionClass(interactionClass)),
      CALL(reserveObjectInstanceName(name1)),
      CALL(releaseObjectInstanceName(name1)),
      CALL(reserveMultipleObjectInstanceName(nameSet)),
      CALL(releaseMultipleObjectInstanceName(nameSet)),
      CALL(registerObjectInstance(objectClass)),
      CALL(registerObjectInstance(objectClass, name1)),
      CALL(updateAttributeValues(object, attributeValues, tag)),
      CALL(updateAttributeValues(object, attributeValues, tag, samples::time)),
      CALL(sendInteraction(interactionClass, parameterValues, tag)),
      CALL(sendInteraction(interactionClass, parameterValues, tag, samples::time)),
      CALL(deleteObjectInstance(object, tag)),
      CALL(deleteObjectInstance(object, tag, samples::time)),
      CALL(localDeleteObjectInstance(object)),
      CALL(requestAttributeValueUpdate(object, attributes, tag)),
      CALL(requestAttributeValueUpdate(objectClass, attributes, tag)),
      CALL(requestAttributeTransportationTypeChange(object, attributes, BEST_EFFORT)),
      CALL(queryAttributeTransportationType(object, attribute)),
      CALL(requestInteractionTransportationTypeChange(interactionClass, BEST_EFFORT)),
      CALL(queryInteractionTransportationType(federate, interactionClass)),
      CALL(changeAttributeOrderType(object, attributes, TIMESTAMP)),
      CALL(changeInteractionOrderType(interactionClass, TIMESTAMP)),
      CALL(unconditionalAttributeOwnershipDivestiture(object, attributes)),
      CALL(negotiatedAttributeOwnershipDivestiture(object, attributes, tag)),
      CALL(confirmDivestiture(object, attributes, tag)),
      CALL(attributeOwnershipAcquisition(object, attributes, tag)),
      CALL(attributeOwnershipAcquisitionIfAvailable(object, attributes)),
      CALL(attributeOwnershipReleaseDenied(object, attributes)),
      calling([](RTIambassador& rti) {
         AttributeHandleSet divested = attributes;
         rti.attributeOwnershipDivestitureIfWanted(object, attributes, divested);
         return divested;
      }),
      CALL(cancelNegotiatedAttributeOwnershipDivestiture(object, attributes)),
      CALL(cancelAttributeOwnershipAcquisition(object, attributes)),
      CALL(queryAttributeOwnership(object, attribute)),
      CALL(isAttributeOwnedByFederate(object, attribute)),
      CALL(enableTimeRegulation(interval)),
      CALL(disableTimeRegulation()),
      CALL(enableTimeConstrained()),
      CALL(disableTimeConstrained()),
      CALL(timeAdvanceRequest(samples::time)),
      CALL(timeAdvanceRequestAvailable(samples::time)),
      CALL(nextMessageRequest(samples::time)),
      CALL(nextMessageRequestAvailable(samples::time)),
      CALL(flushQueueRequest(samples::time)),
      CALL(enableAsynchronousDelivery()),
      CALL(disableAsynchronousDelivery()),
      CALL(queryGALT()),
      CALL(queryLogicalTime()),
      CALL(queryLITS()),
      CALL(modifyLookahead(interval)),
      CALL(queryLookahead()),
      CALL(retract(retraction)),
      CALL(createRegion(dimensions)),
      CALL(commitRegionModifications(regions)),
      CALL(deleteRegion(region)),
      CALL(registerObjectInstanceWithRegions(objectClass, pairs)),
      CALL(registerObjectInstanceWithRegions(objectClass, pairs, name1)),
      CALL(associateRegionsForUpdates(object, pairs)),
      CALL(unassociateRegionsForUpdates(object, pairs)),
      CALL(subscribeObjectClassAttributesWithRegions(objectClass, pairs, true, name1)),
      CALL(unsubscribeObjectClassAttributesWithRegions(objectClass, pairs)),
      CALL(subscribeInteractionClassWithRegions(interactionClass, regions, true)),
      CALL(unsubscribeInteractionClassWithRegions(interactionClass, regions)),
      CALL(sendInteractionWithRegions(interactionClass, parameterValues, regions, tag)),
      CALL(sendInteractionWithRegions(interactionClass, parameterValues, regions, tag, samples::time)),
      CALL(requestAttributeValueUpdateWithRegions(objectClass, pairs, tag)),
      CALL(getDimensionHandleSet(region)),
      CALL(getRangeBounds(region, dimension)),
      CALL(setRangeBounds(region, dimension, bounds)),
      CALL(getTimeFactory()),
   };
#undef CALL
   static std::vector<Service> const all = [] {
      std::vector<Service> services;
      for (std::size_t i = 0; i < calls.size(); ++i) {
         services.push_back({javaMethods().at(i), calls[i]});
      }
      return services;
   }();
   return all;
}

} // namespace contract
