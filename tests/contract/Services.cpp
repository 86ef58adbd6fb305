#include "Services.h"

#include "Samples.h"

#include <RTI/NullFederateAmbassador.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

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

} // namespace

std::vector<JavaMethod> const& javaMethods()
{
   static std::vector<JavaMethod> const methods = [] {
      std::vector<JavaMethod> read;
      for (auto const& line : linesOf(CONTRACT_TABLES "/services.txt")) {
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

std::vector<std::string> const& exceptionClasses()
{
   static std::vector<std::string> const names = linesOf(CONTRACT_EXCEPTIONS);
   return names;
}

std::vector<std::string> const& nativeNames()
{
   static std::vector<std::string> const names = linesOf(CONTRACT_TABLES "/natives.txt");
   return names;
}

JavaMethod const& Service::javaMethod() const
{
   auto const& methods = javaMethods();
   auto const found = std::find_if(methods.begin(), methods.end(),
                                   [this](JavaMethod const& method) { return method.name == _javaName; });
   if (found == methods.end()) {
      throw std::logic_error(_javaName + " is not in the table");
   }
   return *found;
}

std::vector<Service> const& services()
{
#define SERVICE(javaName, call) Service(#javaName, [](RTIambassador& rti) { return rti.call; })
   static std::vector<Service> const all = {
      SERVICE(connect_FA_CM_S, connect(nobody, HLA_EVOKED, name1)),
      SERVICE(disconnect, disconnect()),
      SERVICE(createFederationExecution_S_URL_S, createFederationExecution(name1, module, name2)),
      SERVICE(createFederationExecution_S_URLX_S, createFederationExecution(name1, modules, name2)),
      SERVICE(createFederationExecution_S_URLX_URL_S,
              createFederationExecutionWithMIM(name1, modules, module, name2)),
      SERVICE(destroyFederationExecution_S, destroyFederationExecution(name1)),
      SERVICE(listFederationExecutions, listFederationExecutions()),
      SERVICE(joinFederationExecution_S_S_S_URLX, joinFederationExecution(name1, name2, name3, modules)),
      SERVICE(joinFederationExecution_S_S_URLX, joinFederationExecution(name1, name2, modules)),
      SERVICE(resignFederationExecution_RA, resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST)),
      SERVICE(registerFederationSynchronizationPoint_S_BX,
              registerFederationSynchronizationPoint(name1, tag)),
      SERVICE(registerFederationSynchronizationPoint_S_BX_FHS,
              registerFederationSynchronizationPoint(name1, tag, federates)),
      SERVICE(synchronizationPointAchieved_S_Z, synchronizationPointAchieved(name1, true)),
      SERVICE(requestFederationSave_S, requestFederationSave(name1)),
      SERVICE(requestFederationSave_S_LT, requestFederationSave(name1, samples::time)),
      SERVICE(federateSaveBegun, federateSaveBegun()),
      SERVICE(federateSaveComplete, federateSaveComplete()),
      SERVICE(federateSaveNotComplete, federateSaveNotComplete()),
      SERVICE(abortFederationSave, abortFederationSave()),
      SERVICE(queryFederationSaveStatus, queryFederationSaveStatus()),
      SERVICE(requestFederationRestore_S, requestFederationRestore(name1)),
      SERVICE(federateRestoreComplete, federateRestoreComplete()),
      SERVICE(federateRestoreNotComplete, federateRestoreNotComplete()),
      SERVICE(abortFederationRestore, abortFederationRestore()),
      SERVICE(queryFederationRestoreStatus, queryFederationRestoreStatus()),
      SERVICE(getAutomaticResignDirective, getAutomaticResignDirective()),
      SERVICE(setAutomaticResignDirective_RA, setAutomaticResignDirective(CANCEL_THEN_DELETE_THEN_DIVEST)),
      SERVICE(getFederateHandle_S, getFederateHandle(name1)),
      SERVICE(getFederateName_FH, getFederateName(federate)),
      SERVICE(getObjectClassHandle_S, getObjectClassHandle(name1)),
      SERVICE(getObjectClassName_OCH, getObjectClassName(objectClass)),
      SERVICE(getKnownObjectClassHandle_OIH, getKnownObjectClassHandle(object)),
      SERVICE(getObjectInstanceHandle_S, getObjectInstanceHandle(name1)),
      SERVICE(getObjectInstanceName_OIH, getObjectInstanceName(object)),
      SERVICE(getAttributeHandle_OCH_S, getAttributeHandle(objectClass, name1)),
      SERVICE(getAttributeName_OCH_AH, getAttributeName(objectClass, attribute)),
      SERVICE(getUpdateRateValue_S, getUpdateRateValue(name1)),
      SERVICE(getUpdateRateValueForAttribute_OIH_AH, getUpdateRateValueForAttribute(object, attribute)),
      SERVICE(getInteractionClassHandle_S, getInteractionClassHandle(name1)),
      SERVICE(getInteractionClassName_ICH, getInteractionClassName(interactionClass)),
      SERVICE(getParameterHandle_ICH_S, getParameterHandle(interactionClass, name1)),
      SERVICE(getParameterName_ICH_PH, getParameterName(interactionClass, parameter)),
      SERVICE(getOrderType_S, getOrderType(name1)),
      SERVICE(getOrderName_OT, getOrderName(TIMESTAMP)),
      SERVICE(getTransportationTypeHandle_S, getTransportationTypeHandle(name1)),
      SERVICE(getTransportationTypeName_TTH, getTransportationTypeName(BEST_EFFORT)),
      SERVICE(getAvailableDimensionsForClassAttribute_OCH_AH,
              getAvailableDimensionsForClassAttribute(objectClass, attribute)),
      SERVICE(getAvailableDimensionsForInteractionClass_ICH,
              getAvailableDimensionsForInteractionClass(interactionClass)),
      SERVICE(getDimensionHandle_S, getDimensionHandle(name1)),
      SERVICE(getDimensionName_DH, getDimensionName(dimension)),
      SERVICE(getDimensionUpperBound_DH, getDimensionUpperBound(dimension)),
      SERVICE(normalizeFederateHandle_FH, normalizeFederateHandle(federate)),
      SERVICE(normalizeServiceGroup_SG, normalizeServiceGroup(OBJECT_MANAGEMENT)),
      SERVICE(enableObjectClassRelevanceAdvisorySwitch, enableObjectClassRelevanceAdvisorySwitch()),
      SERVICE(disableObjectClassRelevanceAdvisorySwitch, disableObjectClassRelevanceAdvisorySwitch()),
      SERVICE(enableAttributeRelevanceAdvisorySwitch, enableAttributeRelevanceAdvisorySwitch()),
      SERVICE(disableAttributeRelevanceAdvisorySwitch, disableAttributeRelevanceAdvisorySwitch()),
      SERVICE(enableAttributeScopeAdvisorySwitch, enableAttributeScopeAdvisorySwitch()),
      SERVICE(disableAttributeScopeAdvisorySwitch, disableAttributeScopeAdvisorySwitch()),
      SERVICE(enableInteractionRelevanceAdvisorySwitch, enableInteractionRelevanceAdvisorySwitch()),
      SERVICE(disableInteractionRelevanceAdvisorySwitch, disableInteractionRelevanceAdvisorySwitch()),
      SERVICE(evokeCallback_D, evokeCallback(1.0)),
      SERVICE(evokeMultipleCallbacks_D_D, evokeMultipleCallbacks(1.0, -2.5)),
      SERVICE(enableCallbacks, enableCallbacks()),
      SERVICE(disableCallbacks, disableCallbacks()),
      SERVICE(publishObjectClassAttributes_OCH_AHS, publishObjectClassAttributes(objectClass, attributes)),
      SERVICE(unpublishObjectClass_OCH, unpublishObjectClass(objectClass)),
      SERVICE(unpublishObjectClassAttributes_OCH_AHS,
              unpublishObjectClassAttributes(objectClass, attributes)),
      SERVICE(publishInteractionClass_ICH, publishInteractionClass(interactionClass)),
      SERVICE(unpublishInteractionClass_ICH, unpublishInteractionClass(interactionClass)),
      SERVICE(subscribeObjectClassAttributes_OCH_AHS_Z_S,
              subscribeObjectClassAttributes(objectClass, attributes, true, name1)),
      SERVICE(unsubscribeObjectClass_OCH, unsubscribeObjectClass(objectClass)),
      SERVICE(unsubscribeObjectClassAttributes_OCH_AHS,
              unsubscribeObjectClassAttributes(objectClass, attributes)),
      SERVICE(subscribeInteractionClass_ICH_Z, subscribeInteractionClass(interactionClass, true)),
      SERVICE(unsubscribeInteractionClass_ICH, unsubscribeInteractionClass(interactionClass)),
      SERVICE(reserveObjectInstanceName_S, reserveObjectInstanceName(name1)),
      SERVICE(releaseObjectInstanceName_S, releaseObjectInstanceName(name1)),
      SERVICE(reserveMultipleObjectInstanceName_S, reserveMultipleObjectInstanceName(nameSet)),
      SERVICE(releaseMultipleObjectInstanceName_S, releaseMultipleObjectInstanceName(nameSet)),
      SERVICE(registerObjectInstance_OCH, registerObjectInstance(objectClass)),
      SERVICE(registerObjectInstance_OCH_S, registerObjectInstance(objectClass, name1)),
      SERVICE(updateAttributeValues_OIH_AHVM_BX, updateAttributeValues(object, attributeValues, tag)),
      SERVICE(updateAttributeValues_OIH_AHVM_BX_LT,
              updateAttributeValues(object, attributeValues, tag, samples::time)),
      SERVICE(sendInteraction_ICH_PHVM_BX, sendInteraction(interactionClass, parameterValues, tag)),
      SERVICE(sendInteraction_ICH_PHVM_BX_LT,
              sendInteraction(interactionClass, parameterValues, tag, samples::time)),
      SERVICE(deleteObjectInstance_OIH_BX, deleteObjectInstance(object, tag)),
      SERVICE(deleteObjectInstance_OIH_BX_LT, deleteObjectInstance(object, tag, samples::time)),
      SERVICE(localDeleteObjectInstance_OIH, localDeleteObjectInstance(object)),
      SERVICE(requestAttributeValueUpdate_OIH_AHS_BX, requestAttributeValueUpdate(object, attributes, tag)),
      SERVICE(requestAttributeValueUpdate_OCH_AHS_BX,
              requestAttributeValueUpdate(objectClass, attributes, tag)),
      SERVICE(requestAttributeTransportationTypeChange_OIH_AHS_TTH,
              requestAttributeTransportationTypeChange(object, attributes, BEST_EFFORT)),
      SERVICE(queryAttributeTransportationType_OIH_AH, queryAttributeTransportationType(object, attribute)),
      SERVICE(requestInteractionTransportationTypeChange_ICH_TTH,
              requestInteractionTransportationTypeChange(interactionClass, BEST_EFFORT)),
      SERVICE(queryInteractionTransportationType_FH_ICH,
              queryInteractionTransportationType(federate, interactionClass)),
      SERVICE(changeAttributeOrderType_OIH_AHS_OT, changeAttributeOrderType(object, attributes, TIMESTAMP)),
      SERVICE(changeInteractionOrderType_ICH_OT, changeInteractionOrderType(interactionClass, TIMESTAMP)),
      SERVICE(unconditionalAttributeOwnershipDivestiture_OIH_AHS,
              unconditionalAttributeOwnershipDivestiture(object, attributes)),
      SERVICE(negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX,
              negotiatedAttributeOwnershipDivestiture(object, attributes, tag)),
      SERVICE(confirmDivestiture_OIH_AHS_BX, confirmDivestiture(object, attributes, tag)),
      SERVICE(attributeOwnershipAcquisition_OIH_AHS_BX,
              attributeOwnershipAcquisition(object, attributes, tag)),
      SERVICE(attributeOwnershipAcquisitionIfAvailable_OIH_AHS,
              attributeOwnershipAcquisitionIfAvailable(object, attributes)),
      SERVICE(attributeOwnershipReleaseDenied_OIH_AHS, attributeOwnershipReleaseDenied(object, attributes)),
      Service("attributeOwnershipDivestitureIfWanted_OIH_AHS",
              [](RTIambassador& rti) {
                 AttributeHandleSet divested = attributes;
                 rti.attributeOwnershipDivestitureIfWanted(object, attributes, divested);
                 return divested;
              }),
      SERVICE(cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS,
              cancelNegotiatedAttributeOwnershipDivestiture(object, attributes)),
      SERVICE(cancelAttributeOwnershipAcquisition_OIH_AHS,
              cancelAttributeOwnershipAcquisition(object, attributes)),
      SERVICE(queryAttributeOwnership_OIH_AH, queryAttributeOwnership(object, attribute)),
      SERVICE(isAttributeOwnedByFederate_OIH_AH, isAttributeOwnedByFederate(object, attribute)),
      SERVICE(enableTimeRegulation_LTI, enableTimeRegulation(interval)),
      SERVICE(disableTimeRegulation, disableTimeRegulation()),
      SERVICE(enableTimeConstrained, enableTimeConstrained()),
      SERVICE(disableTimeConstrained, disableTimeConstrained()),
      SERVICE(timeAdvanceRequest_LT, timeAdvanceRequest(samples::time)),
      SERVICE(timeAdvanceRequestAvailable_LT, timeAdvanceRequestAvailable(samples::time)),
      SERVICE(nextMessageRequest_LT, nextMessageRequest(samples::time)),
      SERVICE(nextMessageRequestAvailable_LT, nextMessageRequestAvailable(samples::time)),
      SERVICE(flushQueueRequest_LT, flushQueueRequest(samples::time)),
      SERVICE(enableAsynchronousDelivery, enableAsynchronousDelivery()),
      SERVICE(disableAsynchronousDelivery, disableAsynchronousDelivery()),
      SERVICE(queryGALT, queryGALT()),
      SERVICE(queryLogicalTime, queryLogicalTime()),
      SERVICE(queryLITS, queryLITS()),
      SERVICE(modifyLookahead_LTI, modifyLookahead(interval)),
      SERVICE(queryLookahead, queryLookahead()),
      SERVICE(retract_MRH, retract(retraction)),
      SERVICE(createRegion_DHS, createRegion(dimensions)),
      SERVICE(commitRegionModifications_RHS, commitRegionModifications(regions)),
      SERVICE(deleteRegion_RH, deleteRegion(region)),
      SERVICE(registerObjectInstanceWithRegions_OCH_ASRSPL,
              registerObjectInstanceWithRegions(objectClass, pairs)),
      SERVICE(registerObjectInstanceWithRegions_OCH_ASRSPL_S,
              registerObjectInstanceWithRegions(objectClass, pairs, name1)),
      SERVICE(associateRegionsForUpdates_OIH_ASRSPL, associateRegionsForUpdates(object, pairs)),
      SERVICE(unassociateRegionsForUpdates_OIH_ASRSPL, unassociateRegionsForUpdates(object, pairs)),
      SERVICE(subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S,
              subscribeObjectClassAttributesWithRegions(objectClass, pairs, true, name1)),
      SERVICE(unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL,
              unsubscribeObjectClassAttributesWithRegions(objectClass, pairs)),
      SERVICE(subscribeInteractionClassWithRegions_ICH_Z_RHS,
              subscribeInteractionClassWithRegions(interactionClass, regions, true)),
      SERVICE(unsubscribeInteractionClassWithRegions_ICH_RHS,
              unsubscribeInteractionClassWithRegions(interactionClass, regions)),
      SERVICE(sendInteractionWithRegions_ICH_PHVM_RHS_BX,
              sendInteractionWithRegions(interactionClass, parameterValues, regions, tag)),
      SERVICE(sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT,
              sendInteractionWithRegions(interactionClass, parameterValues, regions, tag, samples::time)),
      SERVICE(requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX,
              requestAttributeValueUpdateWithRegions(objectClass, pairs, tag)),
      SERVICE(getDimensionHandleSet_RH, getDimensionHandleSet(region)),
      SERVICE(getRangeBounds_RH_DH, getRangeBounds(region, dimension)),
      SERVICE(setRangeBounds_RH_DH_RB, setRangeBounds(region, dimension, bounds)),
      SERVICE(getTimeFactory, getTimeFactory()),
   };
#undef SERVICE
   return all;
}

} // namespace contract
