#include "src/services/RTIambassadorAdapter.h"

#include "src/jvm/UncancellableScope.h"
#include "src/services/RTIambassadorC.h"

namespace tovu1516e {
namespace {

using namespace rti1516e;

// The interface's ambassador: each operation names its row, and the bridge object does the rest.
class RTIambassadorAdapter final : public RTIambassador
{
public:
   // Federation management
   void connect(FederateAmbassador& federateAmbassador, CallbackModel theCallbackModel,
                std::wstring const& localSettingsDesignator) override
   {
      bridge.connect(federateAmbassador, theCallbackModel, localSettingsDesignator);
   }
   void disconnect() override { bridge.invoke(services::disconnect); }
   void createFederationExecution(std::wstring const& federationExecutionName, std::wstring const& fomModule,
                                  std::wstring const& logicalTimeImplementationName) override
   {
      bridge.invoke(services::createFederationExecution_S_URL_S, federationExecutionName, fomModule,
                    logicalTimeImplementationName);
   }
   void createFederationExecution(std::wstring const& federationExecutionName,
                                  std::vector<std::wstring> const& fomModules,
                                  std::wstring const& logicalTimeImplementationName) override
   {
      bridge.invoke(services::createFederationExecution_S_URLX_S, federationExecutionName, fomModules,
                    logicalTimeImplementationName);
   }
   void createFederationExecutionWithMIM(std::wstring const& federationExecutionName,
                                         std::vector<std::wstring> const& fomModules,
                                         std::wstring const& mimModule,
                                         std::wstring const& logicalTimeImplementationName) override
   {
      bridge.invoke(services::createFederationExecution_S_URLX_URL_S, federationExecutionName, fomModules,
                    mimModule, logicalTimeImplementationName);
   }
   void destroyFederationExecution(std::wstring const& federationExecutionName) override
   {
      bridge.invoke(services::destroyFederationExecution_S, federationExecutionName);
   }
   void listFederationExecutions() override { bridge.invoke(services::listFederationExecutions); }
   FederateHandle joinFederationExecution(std::wstring const& federateName, std::wstring const& federateType,
                                          std::wstring const& federationExecutionName,
                                          std::vector<std::wstring> const& additionalFomModules) override
   {
      return bridge.join(services::joinFederationExecution_S_S_S_URLX, federateName, federateType,
                         federationExecutionName, additionalFomModules);
   }
   FederateHandle joinFederationExecution(std::wstring const& federateType,
                                          std::wstring const& federationExecutionName,
                                          std::vector<std::wstring> const& additionalFomModules) override
   {
      return bridge.join(services::joinFederationExecution_S_S_URLX, federateType, federationExecutionName,
                         additionalFomModules);
   }
   void resignFederationExecution(ResignAction resignAction) override
   {
      bridge.invoke(services::resignFederationExecution_RA, resignAction);
   }
   void registerFederationSynchronizationPoint(std::wstring const& label,
                                               VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::registerFederationSynchronizationPoint_S_BX, label, theUserSuppliedTag);
   }
   void registerFederationSynchronizationPoint(std::wstring const& label,
                                               VariableLengthData const& theUserSuppliedTag,
                                               FederateHandleSet const& synchronizationSet) override
   {
      bridge.invoke(services::registerFederationSynchronizationPoint_S_BX_FHS, label, theUserSuppliedTag,
                    synchronizationSet);
   }
   void synchronizationPointAchieved(std::wstring const& label, bool successfully) override
   {
      bridge.invoke(services::synchronizationPointAchieved_S_Z, label, successfully);
   }
   void requestFederationSave(std::wstring const& label) override
   {
      bridge.invoke(services::requestFederationSave_S, label);
   }
   void requestFederationSave(std::wstring const& label, LogicalTime const& theTime) override
   {
      bridge.invoke(services::requestFederationSave_S_LT, label, theTime);
   }
   void federateSaveBegun() override { bridge.invoke(services::federateSaveBegun); }
   void federateSaveComplete() override { bridge.invoke(services::federateSaveComplete); }
   void federateSaveNotComplete() override { bridge.invoke(services::federateSaveNotComplete); }
   void abortFederationSave() override { bridge.invoke(services::abortFederationSave); }
   void queryFederationSaveStatus() override { bridge.invoke(services::queryFederationSaveStatus); }
   void requestFederationRestore(std::wstring const& label) override
   {
      bridge.invoke(services::requestFederationRestore_S, label);
   }
   void federateRestoreComplete() override { bridge.invoke(services::federateRestoreComplete); }
   void federateRestoreNotComplete() override { bridge.invoke(services::federateRestoreNotComplete); }
   void abortFederationRestore() override { bridge.invoke(services::abortFederationRestore); }
   void queryFederationRestoreStatus() override { bridge.invoke(services::queryFederationRestoreStatus); }

   // Declaration management
   void publishObjectClassAttributes(ObjectClassHandle theClass,
                                     AttributeHandleSet const& attributeList) override
   {
      bridge.invoke(services::publishObjectClassAttributes_OCH_AHS, theClass, attributeList);
   }
   void unpublishObjectClass(ObjectClassHandle theClass) override
   {
      bridge.invoke(services::unpublishObjectClass_OCH, theClass);
   }
   void unpublishObjectClassAttributes(ObjectClassHandle theClass,
                                       AttributeHandleSet const& attributeList) override
   {
      bridge.invoke(services::unpublishObjectClassAttributes_OCH_AHS, theClass, attributeList);
   }
   void publishInteractionClass(InteractionClassHandle theInteraction) override
   {
      bridge.invoke(services::publishInteractionClass_ICH, theInteraction);
   }
   void unpublishInteractionClass(InteractionClassHandle theInteraction) override
   {
      bridge.invoke(services::unpublishInteractionClass_ICH, theInteraction);
   }
   void subscribeObjectClassAttributes(ObjectClassHandle theClass, AttributeHandleSet const& attributeList,
                                       bool active, std::wstring const& updateRateDesignator) override
   {
      bridge.invoke(services::subscribeObjectClassAttributes_OCH_AHS_Z_S, theClass, attributeList, active,
                    updateRateDesignator);
   }
   void unsubscribeObjectClass(ObjectClassHandle theClass) override
   {
      bridge.invoke(services::unsubscribeObjectClass_OCH, theClass);
   }
   void unsubscribeObjectClassAttributes(ObjectClassHandle theClass,
                                         AttributeHandleSet const& attributeList) override
   {
      bridge.invoke(services::unsubscribeObjectClassAttributes_OCH_AHS, theClass, attributeList);
   }
   void subscribeInteractionClass(InteractionClassHandle theClass, bool active) override
   {
      bridge.invoke(services::subscribeInteractionClass_ICH_Z, theClass, active);
   }
   void unsubscribeInteractionClass(InteractionClassHandle theClass) override
   {
      bridge.invoke(services::unsubscribeInteractionClass_ICH, theClass);
   }

   // Object management
   void reserveObjectInstanceName(std::wstring const& theObjectInstanceName) override
   {
      bridge.invoke(services::reserveObjectInstanceName_S, theObjectInstanceName);
   }
   void releaseObjectInstanceName(std::wstring const& theObjectInstanceName) override
   {
      bridge.invoke(services::releaseObjectInstanceName_S, theObjectInstanceName);
   }
   void reserveMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) override
   {
      bridge.invoke(services::reserveMultipleObjectInstanceName_S, theObjectInstanceNames);
   }
   void releaseMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) override
   {
      bridge.invoke(services::releaseMultipleObjectInstanceName_S, theObjectInstanceNames);
   }
   ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass) override
   {
      return bridge.invoke(services::registerObjectInstance_OCH, theClass);
   }
   ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass,
                                               std::wstring const& theObjectInstanceName) override
   {
      return bridge.invoke(services::registerObjectInstance_OCH_S, theClass, theObjectInstanceName);
   }
   void updateAttributeValues(ObjectInstanceHandle theObject,
                              AttributeHandleValueMap const& theAttributeValues,
                              VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::updateAttributeValues_OIH_AHVM_BX, theObject, theAttributeValues,
                    theUserSuppliedTag);
   }
   MessageRetractionHandle updateAttributeValues(ObjectInstanceHandle theObject,
                                                 AttributeHandleValueMap const& theAttributeValues,
                                                 VariableLengthData const& theUserSuppliedTag,
                                                 LogicalTime const& theTime) override
   {
      return bridge.invoke(services::updateAttributeValues_OIH_AHVM_BX_LT, theObject, theAttributeValues,
                           theUserSuppliedTag, theTime);
   }
   void sendInteraction(InteractionClassHandle theInteraction,
                        ParameterHandleValueMap const& theParameterValues,
                        VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::sendInteraction_ICH_PHVM_BX, theInteraction, theParameterValues,
                    theUserSuppliedTag);
   }
   MessageRetractionHandle sendInteraction(InteractionClassHandle theInteraction,
                                           ParameterHandleValueMap const& theParameterValues,
                                           VariableLengthData const& theUserSuppliedTag,
                                           LogicalTime const& theTime) override
   {
      return bridge.invoke(services::sendInteraction_ICH_PHVM_BX_LT, theInteraction, theParameterValues,
                           theUserSuppliedTag, theTime);
   }
   void deleteObjectInstance(ObjectInstanceHandle theObject,
                             VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::deleteObjectInstance_OIH_BX, theObject, theUserSuppliedTag);
   }
   MessageRetractionHandle deleteObjectInstance(ObjectInstanceHandle theObject,
                                                VariableLengthData const& theUserSuppliedTag,
                                                LogicalTime const& theTime) override
   {
      return bridge.invoke(services::deleteObjectInstance_OIH_BX_LT, theObject, theUserSuppliedTag, theTime);
   }
   void localDeleteObjectInstance(ObjectInstanceHandle theObject) override
   {
      bridge.invoke(services::localDeleteObjectInstance_OIH, theObject);
   }
   void requestAttributeValueUpdate(ObjectInstanceHandle theObject, AttributeHandleSet const& theAttributes,
                                    VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::requestAttributeValueUpdate_OIH_AHS_BX, theObject, theAttributes,
                    theUserSuppliedTag);
   }
   void requestAttributeValueUpdate(ObjectClassHandle theClass, AttributeHandleSet const& theAttributes,
                                    VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::requestAttributeValueUpdate_OCH_AHS_BX, theClass, theAttributes,
                    theUserSuppliedTag);
   }
   void requestAttributeTransportationTypeChange(ObjectInstanceHandle theObject,
                                                 AttributeHandleSet const& theAttributes,
                                                 TransportationType theType) override
   {
      bridge.invoke(services::requestAttributeTransportationTypeChange_OIH_AHS_TTH, theObject, theAttributes,
                    theType);
   }
   void queryAttributeTransportationType(ObjectInstanceHandle theObject,
                                         AttributeHandle theAttribute) override
   {
      bridge.invoke(services::queryAttributeTransportationType_OIH_AH, theObject, theAttribute);
   }
   void requestInteractionTransportationTypeChange(InteractionClassHandle theClass,
                                                   TransportationType theType) override
   {
      bridge.invoke(services::requestInteractionTransportationTypeChange_ICH_TTH, theClass, theType);
   }
   void queryInteractionTransportationType(FederateHandle theFederate,
                                           InteractionClassHandle theInteraction) override
   {
      bridge.invoke(services::queryInteractionTransportationType_FH_ICH, theFederate, theInteraction);
   }
   void changeAttributeOrderType(ObjectInstanceHandle theObject, AttributeHandleSet const& theAttributes,
                                 OrderType theType) override
   {
      bridge.invoke(services::changeAttributeOrderType_OIH_AHS_OT, theObject, theAttributes, theType);
   }
   void changeInteractionOrderType(InteractionClassHandle theClass, OrderType theType) override
   {
      bridge.invoke(services::changeInteractionOrderType_ICH_OT, theClass, theType);
   }

   // Ownership management
   void unconditionalAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                   AttributeHandleSet const& theAttributes) override
   {
      bridge.invoke(services::unconditionalAttributeOwnershipDivestiture_OIH_AHS, theObject, theAttributes);
   }
   void negotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                AttributeHandleSet const& theAttributes,
                                                VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::negotiatedAttributeOwnershipDivestiture_OIH_AHS_BX, theObject, theAttributes,
                    theUserSuppliedTag);
   }
   void confirmDivestiture(ObjectInstanceHandle theObject, AttributeHandleSet const& confirmedAttributes,
                           VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::confirmDivestiture_OIH_AHS_BX, theObject, confirmedAttributes,
                    theUserSuppliedTag);
   }
   void attributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                      AttributeHandleSet const& desiredAttributes,
                                      VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::attributeOwnershipAcquisition_OIH_AHS_BX, theObject, desiredAttributes,
                    theUserSuppliedTag);
   }
   void attributeOwnershipAcquisitionIfAvailable(ObjectInstanceHandle theObject,
                                                 AttributeHandleSet const& desiredAttributes) override
   {
      bridge.invoke(services::attributeOwnershipAcquisitionIfAvailable_OIH_AHS, theObject, desiredAttributes);
   }
   void attributeOwnershipReleaseDenied(ObjectInstanceHandle theObject,
                                        AttributeHandleSet const& theAttributes) override
   {
      bridge.invoke(services::attributeOwnershipReleaseDenied_OIH_AHS, theObject, theAttributes);
   }
   void attributeOwnershipDivestitureIfWanted(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& theAttributes,
                                              AttributeHandleSet& theDivestedAttributes) override
   {
      theDivestedAttributes =
         bridge.invoke(services::attributeOwnershipDivestitureIfWanted_OIH_AHS, theObject, theAttributes);
   }
   void cancelNegotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                      AttributeHandleSet const& theAttributes) override
   {
      bridge.invoke(services::cancelNegotiatedAttributeOwnershipDivestiture_OIH_AHS, theObject,
                    theAttributes);
   }
   void cancelAttributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                            AttributeHandleSet const& theAttributes) override
   {
      bridge.invoke(services::cancelAttributeOwnershipAcquisition_OIH_AHS, theObject, theAttributes);
   }
   void queryAttributeOwnership(ObjectInstanceHandle theObject, AttributeHandle theAttribute) override
   {
      bridge.invoke(services::queryAttributeOwnership_OIH_AH, theObject, theAttribute);
   }
   bool isAttributeOwnedByFederate(ObjectInstanceHandle theObject, AttributeHandle theAttribute) override
   {
      return bridge.invoke(services::isAttributeOwnedByFederate_OIH_AH, theObject, theAttribute);
   }

   // Time management
   void enableTimeRegulation(LogicalTimeInterval const& theLookahead) override
   {
      bridge.invoke(services::enableTimeRegulation_LTI, theLookahead);
   }
   void disableTimeRegulation() override { bridge.invoke(services::disableTimeRegulation); }
   void enableTimeConstrained() override { bridge.invoke(services::enableTimeConstrained); }
   void disableTimeConstrained() override { bridge.invoke(services::disableTimeConstrained); }
   void timeAdvanceRequest(LogicalTime const& theTime) override
   {
      bridge.invoke(services::timeAdvanceRequest_LT, theTime);
   }
   void timeAdvanceRequestAvailable(LogicalTime const& theTime) override
   {
      bridge.invoke(services::timeAdvanceRequestAvailable_LT, theTime);
   }
   void nextMessageRequest(LogicalTime const& theTime) override
   {
      bridge.invoke(services::nextMessageRequest_LT, theTime);
   }
   void nextMessageRequestAvailable(LogicalTime const& theTime) override
   {
      bridge.invoke(services::nextMessageRequestAvailable_LT, theTime);
   }
   void flushQueueRequest(LogicalTime const& theTime) override
   {
      bridge.invoke(services::flushQueueRequest_LT, theTime);
   }
   void enableAsynchronousDelivery() override { bridge.invoke(services::enableAsynchronousDelivery); }
   void disableAsynchronousDelivery() override { bridge.invoke(services::disableAsynchronousDelivery); }
   TimeQueryReturn queryGALT() override { return bridge.invoke(services::queryGALT); }
   std::auto_ptr<LogicalTime> queryLogicalTime() override
   {
      return bridge.invoke(services::queryLogicalTime);
   }
   TimeQueryReturn queryLITS() override { return bridge.invoke(services::queryLITS); }
   void modifyLookahead(LogicalTimeInterval const& theLookahead) override
   {
      bridge.invoke(services::modifyLookahead_LTI, theLookahead);
   }
   std::auto_ptr<LogicalTimeInterval> queryLookahead() override
   {
      return bridge.invoke(services::queryLookahead);
   }
   void retract(MessageRetractionHandle theHandle) override
   {
      bridge.invoke(services::retract_MRH, theHandle);
   }

   // Data distribution management
   RegionHandle createRegion(DimensionHandleSet const& theDimensions) override
   {
      return bridge.invoke(services::createRegion_DHS, theDimensions);
   }
   void commitRegionModifications(RegionHandleSet const& theRegionHandleSet) override
   {
      bridge.invoke(services::commitRegionModifications_RHS, theRegionHandleSet);
   }
   void deleteRegion(RegionHandle const& theRegion) override
   {
      bridge.invoke(services::deleteRegion_RH, theRegion);
   }
   ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector)
      override
   {
      return bridge.invoke(services::registerObjectInstanceWithRegions_OCH_ASRSPL, theClass,
                           theAttributeHandleSetRegionHandleSetPairVector);
   }
   ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      std::wstring const& theObjectInstanceName) override
   {
      return bridge.invoke(services::registerObjectInstanceWithRegions_OCH_ASRSPL_S, theClass,
                           theAttributeHandleSetRegionHandleSetPairVector, theObjectInstanceName);
   }
   void associateRegionsForUpdates(ObjectInstanceHandle theObject,
                                   AttributeHandleSetRegionHandleSetPairVector const&
                                      theAttributeHandleSetRegionHandleSetPairVector) override
   {
      bridge.invoke(services::associateRegionsForUpdates_OIH_ASRSPL, theObject,
                    theAttributeHandleSetRegionHandleSetPairVector);
   }
   void unassociateRegionsForUpdates(ObjectInstanceHandle theObject,
                                     AttributeHandleSetRegionHandleSetPairVector const&
                                        theAttributeHandleSetRegionHandleSetPairVector) override
   {
      bridge.invoke(services::unassociateRegionsForUpdates_OIH_ASRSPL, theObject,
                    theAttributeHandleSetRegionHandleSetPairVector);
   }
   void subscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      bool active, std::wstring const& updateRateDesignator) override
   {
      bridge.invoke(services::subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S, theClass,
                    theAttributeHandleSetRegionHandleSetPairVector, active, updateRateDesignator);
   }
   void unsubscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector)
      override
   {
      bridge.invoke(services::unsubscribeObjectClassAttributesWithRegions_OCH_ASRSPL, theClass,
                    theAttributeHandleSetRegionHandleSetPairVector);
   }
   void subscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                             RegionHandleSet const& theRegionHandleSet, bool active) override
   {
      bridge.invoke(services::subscribeInteractionClassWithRegions_ICH_Z_RHS, theClass, active,
                    theRegionHandleSet);
   }
   void unsubscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                               RegionHandleSet const& theRegionHandleSet) override
   {
      bridge.invoke(services::unsubscribeInteractionClassWithRegions_ICH_RHS, theClass, theRegionHandleSet);
   }
   void sendInteractionWithRegions(InteractionClassHandle theInteraction,
                                   ParameterHandleValueMap const& theParameterValues,
                                   RegionHandleSet const& theRegionHandleSet,
                                   VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::sendInteractionWithRegions_ICH_PHVM_RHS_BX, theInteraction, theParameterValues,
                    theRegionHandleSet, theUserSuppliedTag);
   }
   MessageRetractionHandle sendInteractionWithRegions(InteractionClassHandle theInteraction,
                                                      ParameterHandleValueMap const& theParameterValues,
                                                      RegionHandleSet const& theRegionHandleSet,
                                                      VariableLengthData const& theUserSuppliedTag,
                                                      LogicalTime const& theTime) override
   {
      return bridge.invoke(services::sendInteractionWithRegions_ICH_PHVM_RHS_BX_LT, theInteraction,
                           theParameterValues, theRegionHandleSet, theUserSuppliedTag, theTime);
   }
   void requestAttributeValueUpdateWithRegions(ObjectClassHandle theClass,
                                               AttributeHandleSetRegionHandleSetPairVector const& theSet,
                                               VariableLengthData const& theUserSuppliedTag) override
   {
      bridge.invoke(services::requestAttributeValueUpdateWithRegions_OCH_ASRSPL_BX, theClass, theSet,
                    theUserSuppliedTag);
   }

   // Support services
   ResignAction getAutomaticResignDirective() override
   {
      return bridge.invoke(services::getAutomaticResignDirective);
   }
   void setAutomaticResignDirective(ResignAction resignAction) override
   {
      bridge.invoke(services::setAutomaticResignDirective_RA, resignAction);
   }
   FederateHandle getFederateHandle(std::wstring const& theName) override
   {
      return bridge.invoke(services::getFederateHandle_S, theName);
   }
   std::wstring getFederateName(FederateHandle theHandle) override
   {
      return bridge.invoke(services::getFederateName_FH, theHandle);
   }
   ObjectClassHandle getObjectClassHandle(std::wstring const& theName) override
   {
      return bridge.invoke(services::getObjectClassHandle_S, theName);
   }
   std::wstring getObjectClassName(ObjectClassHandle theHandle) override
   {
      return bridge.invoke(services::getObjectClassName_OCH, theHandle);
   }
   ObjectClassHandle getKnownObjectClassHandle(ObjectInstanceHandle theObject) override
   {
      return bridge.invoke(services::getKnownObjectClassHandle_OIH, theObject);
   }
   ObjectInstanceHandle getObjectInstanceHandle(std::wstring const& theName) override
   {
      return bridge.invoke(services::getObjectInstanceHandle_S, theName);
   }
   std::wstring getObjectInstanceName(ObjectInstanceHandle theHandle) override
   {
      return bridge.invoke(services::getObjectInstanceName_OIH, theHandle);
   }
   AttributeHandle getAttributeHandle(ObjectClassHandle whichClass,
                                      std::wstring const& theAttributeName) override
   {
      return bridge.invoke(services::getAttributeHandle_OCH_S, whichClass, theAttributeName);
   }
   std::wstring getAttributeName(ObjectClassHandle whichClass, AttributeHandle theHandle) override
   {
      return bridge.invoke(services::getAttributeName_OCH_AH, whichClass, theHandle);
   }
   double getUpdateRateValue(std::wstring const& updateRateDesignator) override
   {
      return bridge.invoke(services::getUpdateRateValue_S, updateRateDesignator);
   }
   double getUpdateRateValueForAttribute(ObjectInstanceHandle theObject,
                                         AttributeHandle theAttribute) override
   {
      return bridge.invoke(services::getUpdateRateValueForAttribute_OIH_AH, theObject, theAttribute);
   }
   InteractionClassHandle getInteractionClassHandle(std::wstring const& theName) override
   {
      return bridge.invoke(services::getInteractionClassHandle_S, theName);
   }
   std::wstring getInteractionClassName(InteractionClassHandle theHandle) override
   {
      return bridge.invoke(services::getInteractionClassName_ICH, theHandle);
   }
   ParameterHandle getParameterHandle(InteractionClassHandle whichClass, std::wstring const& theName) override
   {
      return bridge.invoke(services::getParameterHandle_ICH_S, whichClass, theName);
   }
   std::wstring getParameterName(InteractionClassHandle whichClass, ParameterHandle theHandle) override
   {
      return bridge.invoke(services::getParameterName_ICH_PH, whichClass, theHandle);
   }
   OrderType getOrderType(std::wstring const& orderName) override
   {
      return bridge.invoke(services::getOrderType_S, orderName);
   }
   std::wstring getOrderName(OrderType orderType) override
   {
      return bridge.invoke(services::getOrderName_OT, orderType);
   }
   TransportationType getTransportationTypeHandle(std::wstring const& transportationTypeName) override
   {
      return bridge.invoke(services::getTransportationTypeHandle_S, transportationTypeName);
   }
   std::wstring getTransportationTypeName(TransportationType transportationType) override
   {
      return bridge.invoke(services::getTransportationTypeName_TTH, transportationType);
   }
   DimensionHandleSet getAvailableDimensionsForClassAttribute(ObjectClassHandle theClass,
                                                              AttributeHandle theHandle) override
   {
      return bridge.invoke(services::getAvailableDimensionsForClassAttribute_OCH_AH, theClass, theHandle);
   }
   DimensionHandleSet getAvailableDimensionsForInteractionClass(InteractionClassHandle theClass) override
   {
      return bridge.invoke(services::getAvailableDimensionsForInteractionClass_ICH, theClass);
   }
   DimensionHandle getDimensionHandle(std::wstring const& theName) override
   {
      return bridge.invoke(services::getDimensionHandle_S, theName);
   }
   std::wstring getDimensionName(DimensionHandle theHandle) override
   {
      return bridge.invoke(services::getDimensionName_DH, theHandle);
   }
   unsigned long getDimensionUpperBound(DimensionHandle theHandle) override
   {
      return bridge.invoke(services::getDimensionUpperBound_DH, theHandle);
   }
   DimensionHandleSet getDimensionHandleSet(RegionHandle theRegionHandle) override
   {
      return bridge.invoke(services::getDimensionHandleSet_RH, theRegionHandle);
   }
   RangeBounds getRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle) override
   {
      return bridge.invoke(services::getRangeBounds_RH_DH, theRegionHandle, theDimensionHandle);
   }
   void setRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle,
                       RangeBounds const& theRangeBounds) override
   {
      bridge.invoke(services::setRangeBounds_RH_DH_RB, theRegionHandle, theDimensionHandle, theRangeBounds);
   }
   unsigned long normalizeFederateHandle(FederateHandle theFederateHandle) override
   {
      return bridge.invoke(services::normalizeFederateHandle_FH, theFederateHandle);
   }
   unsigned long normalizeServiceGroup(ServiceGroup theServiceGroup) override
   {
      return bridge.invoke(services::normalizeServiceGroup_SG, theServiceGroup);
   }
   void enableObjectClassRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::enableObjectClassRelevanceAdvisorySwitch);
   }
   void disableObjectClassRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::disableObjectClassRelevanceAdvisorySwitch);
   }
   void enableAttributeRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::enableAttributeRelevanceAdvisorySwitch);
   }
   void disableAttributeRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::disableAttributeRelevanceAdvisorySwitch);
   }
   void enableAttributeScopeAdvisorySwitch() override
   {
      bridge.invoke(services::enableAttributeScopeAdvisorySwitch);
   }
   void disableAttributeScopeAdvisorySwitch() override
   {
      bridge.invoke(services::disableAttributeScopeAdvisorySwitch);
   }
   void enableInteractionRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::enableInteractionRelevanceAdvisorySwitch);
   }
   void disableInteractionRelevanceAdvisorySwitch() override
   {
      bridge.invoke(services::disableInteractionRelevanceAdvisorySwitch);
   }
   // These two run the federate's code inside Java, whose frames no unwinding may skip: a thread that is
   // cancelled there is so when it comes back.
   bool evokeCallback(double approximateMinimumTimeInSeconds) override
   {
      UncancellableScope const inJava;
      return bridge.invoke(services::evokeCallback_D, approximateMinimumTimeInSeconds);
   }
   bool evokeMultipleCallbacks(double approximateMinimumTimeInSeconds,
                               double approximateMaximumTimeInSeconds) override
   {
      UncancellableScope const inJava;
      return bridge.invoke(services::evokeMultipleCallbacks_D_D, approximateMinimumTimeInSeconds,
                           approximateMaximumTimeInSeconds);
   }
   void enableCallbacks() override { bridge.invoke(services::enableCallbacks); }
   void disableCallbacks() override { bridge.invoke(services::disableCallbacks); }

   // Times and handles
   std::auto_ptr<LogicalTimeFactory> getTimeFactory() const override
   {
      return std::auto_ptr<LogicalTimeFactory>(bridge.makeTimeFactory().release());
   }
   FederateHandle decodeFederateHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<FederateHandle>(encodedValue);
   }
   ObjectClassHandle decodeObjectClassHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<ObjectClassHandle>(encodedValue);
   }
   InteractionClassHandle decodeInteractionClassHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<InteractionClassHandle>(encodedValue);
   }
   ObjectInstanceHandle decodeObjectInstanceHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<ObjectInstanceHandle>(encodedValue);
   }
   AttributeHandle decodeAttributeHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<AttributeHandle>(encodedValue);
   }
   ParameterHandle decodeParameterHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<ParameterHandle>(encodedValue);
   }
   DimensionHandle decodeDimensionHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<DimensionHandle>(encodedValue);
   }
   MessageRetractionHandle decodeMessageRetractionHandle(
      VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<MessageRetractionHandle>(encodedValue);
   }
   RegionHandle decodeRegionHandle(VariableLengthData const& encodedValue) const override
   {
      return HandleAccess::decode<RegionHandle>(encodedValue);
   }

private:
   RTIambassadorC bridge;
};

} // namespace

std::unique_ptr<RTIambassador> makeRTIambassadorAdapter() { return std::make_unique<RTIambassadorAdapter>(); }

} // namespace tovu1516e
