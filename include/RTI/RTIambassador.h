#ifndef RTI_RTIambassador_h
#define RTI_RTIambassador_h

#include <RTI/Enums.h>
#include <RTI/Exception.h>
#include <RTI/Handle.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>
#include <RTI/RangeBounds.h>
#include <RTI/SpecificConfig.h>
#include <RTI/Typedefs.h>
#include <RTI/VariableLengthData.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

RTI_AUTO_PTR_BEGIN

namespace rti1516e {

class FederateAmbassador;

// The answer to queryGALT and queryLITS. There is no time while timeIsValid is false, and none either,
// although it is true, before the ambassador has a time factory.
struct RTI_EXPORT TimeQueryReturn
{
   TimeQueryReturn() : timeIsValid(false) {}
   TimeQueryReturn(TimeQueryReturn&& other) noexcept
      : timeIsValid(other.timeIsValid), time(other.time.release())
   {}
   TimeQueryReturn& operator=(TimeQueryReturn&& other) noexcept
   {
      timeIsValid = other.timeIsValid;
      time.reset(other.time.release());
      return *this;
   }

   bool timeIsValid;
   std::auto_ptr<LogicalTime> time;
};

// The services of the infrastructure, as RTIambassadorFactory gives them to a federate.
//
// Any thread may call. The library attaches it to the Java VM and detaches it when it ends; a thread that was
// attached before stays attached. A service fails with one of the exceptions that are listed with it: the
// infrastructure checks the arguments, the library itself does not. RTIinternalError stands for everything
// that the standard does not foresee, with the infrastructure's own text.
//
// Strings are sent as UTF-16. A message to the infrastructure can hold up to 2^31 - 1 bytes; a service whose
// arguments take more throws RTIinternalError. Arguments are copied before a service returns, and results
// belong to the caller.
//
// Destroying the ambassador disconnects it and waits for those of its callbacks that other threads are in, so
// that the federate's objects may go next; two threads that each wait in this way for the other's callback
// wait for good. It may be destroyed in one of its own callbacks, by a static object's destructor while the
// process ends, and while another thread waits in evokeCallback or evokeMultipleCallbacks, which then return.
// It must not be destroyed while another thread is in, or about to call, any other of its services.
//
// Where the Java VM is gone, because the application has destroyed it or Java has ended the process, and in
// the child of a fork, which has no VM, services throw RTIinternalError; the ambassador can still be
// destroyed, and then waits for no callback. A child must not return from a callback that it was forked in.
//
// A thread that is cancelled (pthread_cancel) in evokeCallback or evokeMultipleCallbacks, or in a callback
// that one of them runs, is so once the service has returned. Cancelling a thread in any other service, or
// one of the infrastructure's own threads, and ending a thread in a callback (pthread_exit) are outside the
// contract: the thread's stack goes, and the Java VM, which still knows it, sooner or later ends the process.
// The same goes for a longjmp out of a callback. A thread must not have a Java exception pending when it
// calls.
//
// Where memory is wanting, a service throws std::bad_alloc, and the ambassador can be used on.
class RTI_EXPORT RTIambassador
{
protected:
   RTIambassador();

public:
   RTIambassador(RTIambassador const&) = delete;
   RTIambassador& operator=(RTIambassador const&) = delete;
   virtual ~RTIambassador();

   // Federation management

   // The federate ambassador must outlive this ambassador; it stays stored even if the call fails.
   virtual void connect(FederateAmbassador& federateAmbassador, CallbackModel theCallbackModel,
                        std::wstring const& localSettingsDesignator = std::wstring()) = 0;
   virtual void disconnect() = 0;

   // A FOM module is named by the path or the URL of its file. An empty time implementation name asks for
   // "HLAfloat64Time".
   virtual void createFederationExecution(
      std::wstring const& federationExecutionName, std::wstring const& fomModule,
      std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;
   virtual void createFederationExecution(
      std::wstring const& federationExecutionName, std::vector<std::wstring> const& fomModules,
      std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;
   virtual void createFederationExecutionWithMIM(
      std::wstring const& federationExecutionName, std::vector<std::wstring> const& fomModules,
      std::wstring const& mimModule, std::wstring const& logicalTimeImplementationName = std::wstring()) = 0;
   virtual void destroyFederationExecution(std::wstring const& federationExecutionName) = 0;

   // The list arrives as the callback reportFederationExecutions.
   virtual void listFederationExecutions() = 0;

   // A successful join also gives this ambassador the factory of the federation's logical times.
   virtual FederateHandle joinFederationExecution(
      std::wstring const& federateName, std::wstring const& federateType,
      std::wstring const& federationExecutionName,
      std::vector<std::wstring> const& additionalFomModules = std::vector<std::wstring>()) = 0;
   virtual FederateHandle joinFederationExecution(
      std::wstring const& federateType, std::wstring const& federationExecutionName,
      std::vector<std::wstring> const& additionalFomModules = std::vector<std::wstring>()) = 0;
   virtual void resignFederationExecution(ResignAction resignAction) = 0;

   // Without a set of federates the point is for all of them, those that join later included.
   virtual void registerFederationSynchronizationPoint(std::wstring const& label,
                                                       VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void registerFederationSynchronizationPoint(std::wstring const& label,
                                                       VariableLengthData const& theUserSuppliedTag,
                                                       FederateHandleSet const& synchronizationSet) = 0;
   virtual void synchronizationPointAchieved(std::wstring const& label, bool successfully = true) = 0;
   virtual void requestFederationSave(std::wstring const& label) = 0;
   virtual void requestFederationSave(std::wstring const& label, LogicalTime const& theTime) = 0;
   virtual void federateSaveBegun() = 0;
   virtual void federateSaveComplete() = 0;
   virtual void federateSaveNotComplete() = 0;
   virtual void abortFederationSave() = 0;

   // The status arrives as the callback federationSaveStatusResponse.
   virtual void queryFederationSaveStatus() = 0;
   virtual void requestFederationRestore(std::wstring const& label) = 0;
   virtual void federateRestoreComplete() = 0;
   virtual void federateRestoreNotComplete() = 0;
   virtual void abortFederationRestore() = 0;

   // The status arrives as the callback federationRestoreStatusResponse.
   virtual void queryFederationRestoreStatus() = 0;

   // Declaration management
   virtual void publishObjectClassAttributes(ObjectClassHandle theClass,
                                             AttributeHandleSet const& attributeList) = 0;
   virtual void unpublishObjectClass(ObjectClassHandle theClass) = 0;
   virtual void unpublishObjectClassAttributes(ObjectClassHandle theClass,
                                               AttributeHandleSet const& attributeList) = 0;
   virtual void publishInteractionClass(InteractionClassHandle theInteraction) = 0;
   virtual void unpublishInteractionClass(InteractionClassHandle theInteraction) = 0;
   virtual void subscribeObjectClassAttributes(ObjectClassHandle theClass,
                                               AttributeHandleSet const& attributeList, bool active = true,
                                               std::wstring const& updateRateDesignator = std::wstring()) = 0;
   virtual void unsubscribeObjectClass(ObjectClassHandle theClass) = 0;
   virtual void unsubscribeObjectClassAttributes(ObjectClassHandle theClass,
                                                 AttributeHandleSet const& attributeList) = 0;
   virtual void subscribeInteractionClass(InteractionClassHandle theClass, bool active = true) = 0;
   virtual void unsubscribeInteractionClass(InteractionClassHandle theClass) = 0;

   // Object management

   // The answer to a reservation arrives as a callback.
   virtual void reserveObjectInstanceName(std::wstring const& theObjectInstanceName) = 0;
   virtual void releaseObjectInstanceName(std::wstring const& theObjectInstanceName) = 0;
   virtual void reserveMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) = 0;
   virtual void releaseMultipleObjectInstanceName(std::set<std::wstring> const& theObjectInstanceNames) = 0;
   virtual ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass) = 0;
   virtual ObjectInstanceHandle registerObjectInstance(ObjectClassHandle theClass,
                                                       std::wstring const& theObjectInstanceName) = 0;

   // The forms with a time return a handle by which the message can be retracted, one that is not valid
   // if the message was not sent in time stamp order.
   virtual void updateAttributeValues(ObjectInstanceHandle theObject,
                                      AttributeHandleValueMap const& theAttributeValues,
                                      VariableLengthData const& theUserSuppliedTag) = 0;
   virtual MessageRetractionHandle updateAttributeValues(ObjectInstanceHandle theObject,
                                                         AttributeHandleValueMap const& theAttributeValues,
                                                         VariableLengthData const& theUserSuppliedTag,
                                                         LogicalTime const& theTime) = 0;
   virtual void sendInteraction(InteractionClassHandle theInteraction,
                                ParameterHandleValueMap const& theParameterValues,
                                VariableLengthData const& theUserSuppliedTag) = 0;
   virtual MessageRetractionHandle sendInteraction(InteractionClassHandle theInteraction,
                                                   ParameterHandleValueMap const& theParameterValues,
                                                   VariableLengthData const& theUserSuppliedTag,
                                                   LogicalTime const& theTime) = 0;
   virtual void deleteObjectInstance(ObjectInstanceHandle theObject,
                                     VariableLengthData const& theUserSuppliedTag) = 0;
   virtual MessageRetractionHandle deleteObjectInstance(ObjectInstanceHandle theObject,
                                                        VariableLengthData const& theUserSuppliedTag,
                                                        LogicalTime const& theTime) = 0;
   virtual void localDeleteObjectInstance(ObjectInstanceHandle theObject) = 0;
   virtual void requestAttributeValueUpdate(ObjectInstanceHandle theObject,
                                            AttributeHandleSet const& theAttributes,
                                            VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void requestAttributeValueUpdate(ObjectClassHandle theClass,
                                            AttributeHandleSet const& theAttributes,
                                            VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void requestAttributeTransportationTypeChange(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet const& theAttributes,
                                                         TransportationType theType) = 0;

   // The answers to the queries arrive as callbacks.
   virtual void queryAttributeTransportationType(ObjectInstanceHandle theObject,
                                                 AttributeHandle theAttribute) = 0;
   virtual void requestInteractionTransportationTypeChange(InteractionClassHandle theClass,
                                                           TransportationType theType) = 0;
   virtual void queryInteractionTransportationType(FederateHandle theFederate,
                                                   InteractionClassHandle theInteraction) = 0;
   virtual void changeAttributeOrderType(ObjectInstanceHandle theObject,
                                         AttributeHandleSet const& theAttributes, OrderType theType) = 0;
   virtual void changeInteractionOrderType(InteractionClassHandle theClass, OrderType theType) = 0;

   // Ownership management
   virtual void unconditionalAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                           AttributeHandleSet const& theAttributes) = 0;
   virtual void negotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                        AttributeHandleSet const& theAttributes,
                                                        VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void confirmDivestiture(ObjectInstanceHandle theObject,
                                   AttributeHandleSet const& confirmedAttributes,
                                   VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void attributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& desiredAttributes,
                                              VariableLengthData const& theUserSuppliedTag) = 0;
   virtual void attributeOwnershipAcquisitionIfAvailable(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet const& desiredAttributes) = 0;
   virtual void attributeOwnershipReleaseDenied(ObjectInstanceHandle theObject,
                                                AttributeHandleSet const& theAttributes) = 0;

   // Assigns the attributes that were divested to the last argument; a failure leaves it untouched.
   virtual void attributeOwnershipDivestitureIfWanted(ObjectInstanceHandle theObject,
                                                      AttributeHandleSet const& theAttributes,
                                                      AttributeHandleSet& theDivestedAttributes) = 0;
   virtual void cancelNegotiatedAttributeOwnershipDivestiture(ObjectInstanceHandle theObject,
                                                              AttributeHandleSet const& theAttributes) = 0;
   virtual void cancelAttributeOwnershipAcquisition(ObjectInstanceHandle theObject,
                                                    AttributeHandleSet const& theAttributes) = 0;
   virtual void queryAttributeOwnership(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;
   virtual bool isAttributeOwnedByFederate(ObjectInstanceHandle theObject, AttributeHandle theAttribute) = 0;

   // Time management
   virtual void enableTimeRegulation(LogicalTimeInterval const& theLookahead) = 0;
   virtual void disableTimeRegulation() = 0;
   virtual void enableTimeConstrained() = 0;
   virtual void disableTimeConstrained() = 0;
   virtual void timeAdvanceRequest(LogicalTime const& theTime) = 0;
   virtual void timeAdvanceRequestAvailable(LogicalTime const& theTime) = 0;
   virtual void nextMessageRequest(LogicalTime const& theTime) = 0;
   virtual void nextMessageRequestAvailable(LogicalTime const& theTime) = 0;
   virtual void flushQueueRequest(LogicalTime const& theTime) = 0;
   virtual void enableAsynchronousDelivery() = 0;
   virtual void disableAsynchronousDelivery() = 0;
   virtual TimeQueryReturn queryGALT() = 0;

   // Empty before the first join, and where the time library does not know the federation's time
   // implementation. So is what queryLookahead returns.
   virtual std::auto_ptr<LogicalTime> queryLogicalTime() = 0;
   virtual TimeQueryReturn queryLITS() = 0;
   virtual void modifyLookahead(LogicalTimeInterval const& theLookahead) = 0;
   virtual std::auto_ptr<LogicalTimeInterval> queryLookahead() = 0;
   virtual void retract(MessageRetractionHandle theHandle) = 0;

   // Data distribution management
   virtual RegionHandle createRegion(DimensionHandleSet const& theDimensions) = 0;
   virtual void commitRegionModifications(RegionHandleSet const& theRegionHandleSet) = 0;
   virtual void deleteRegion(RegionHandle const& theRegion) = 0;
   virtual ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;
   virtual ObjectInstanceHandle registerObjectInstanceWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      std::wstring const& theObjectInstanceName) = 0;
   virtual void associateRegionsForUpdates(
      ObjectInstanceHandle theObject,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;
   virtual void unassociateRegionsForUpdates(
      ObjectInstanceHandle theObject,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;
   virtual void subscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector,
      bool active = true, std::wstring const& updateRateDesignator = std::wstring()) = 0;
   virtual void unsubscribeObjectClassAttributesWithRegions(
      ObjectClassHandle theClass,
      AttributeHandleSetRegionHandleSetPairVector const& theAttributeHandleSetRegionHandleSetPairVector) = 0;
   virtual void subscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                                     RegionHandleSet const& theRegionHandleSet,
                                                     bool active = true) = 0;
   virtual void unsubscribeInteractionClassWithRegions(InteractionClassHandle theClass,
                                                       RegionHandleSet const& theRegionHandleSet) = 0;
   virtual void sendInteractionWithRegions(InteractionClassHandle theInteraction,
                                           ParameterHandleValueMap const& theParameterValues,
                                           RegionHandleSet const& theRegionHandleSet,
                                           VariableLengthData const& theUserSuppliedTag) = 0;
   virtual MessageRetractionHandle sendInteractionWithRegions(
      InteractionClassHandle theInteraction, ParameterHandleValueMap const& theParameterValues,
      RegionHandleSet const& theRegionHandleSet, VariableLengthData const& theUserSuppliedTag,
      LogicalTime const& theTime) = 0;
   virtual void requestAttributeValueUpdateWithRegions(
      ObjectClassHandle theClass, AttributeHandleSetRegionHandleSetPairVector const& theSet,
      VariableLengthData const& theUserSuppliedTag) = 0;

   // Support services
   virtual ResignAction getAutomaticResignDirective() = 0;
   virtual void setAutomaticResignDirective(ResignAction resignAction) = 0;
   virtual FederateHandle getFederateHandle(std::wstring const& theName) = 0;
   virtual std::wstring getFederateName(FederateHandle theHandle) = 0;
   virtual ObjectClassHandle getObjectClassHandle(std::wstring const& theName) = 0;
   virtual std::wstring getObjectClassName(ObjectClassHandle theHandle) = 0;
   virtual ObjectClassHandle getKnownObjectClassHandle(ObjectInstanceHandle theObject) = 0;
   virtual ObjectInstanceHandle getObjectInstanceHandle(std::wstring const& theName) = 0;
   virtual std::wstring getObjectInstanceName(ObjectInstanceHandle theHandle) = 0;
   virtual AttributeHandle getAttributeHandle(ObjectClassHandle whichClass,
                                              std::wstring const& theAttributeName) = 0;
   virtual std::wstring getAttributeName(ObjectClassHandle whichClass, AttributeHandle theHandle) = 0;

   // In updates per second.
   virtual double getUpdateRateValue(std::wstring const& updateRateDesignator) = 0;
   virtual double getUpdateRateValueForAttribute(ObjectInstanceHandle theObject,
                                                 AttributeHandle theAttribute) = 0;
   virtual InteractionClassHandle getInteractionClassHandle(std::wstring const& theName) = 0;
   virtual std::wstring getInteractionClassName(InteractionClassHandle theHandle) = 0;
   virtual ParameterHandle getParameterHandle(InteractionClassHandle whichClass,
                                              std::wstring const& theName) = 0;
   virtual std::wstring getParameterName(InteractionClassHandle whichClass, ParameterHandle theHandle) = 0;
   virtual OrderType getOrderType(std::wstring const& orderName) = 0;
   virtual std::wstring getOrderName(OrderType orderType) = 0;
   virtual TransportationType getTransportationTypeHandle(std::wstring const& transportationTypeName) = 0;
   virtual std::wstring getTransportationTypeName(TransportationType transportationType) = 0;
   virtual DimensionHandleSet getAvailableDimensionsForClassAttribute(ObjectClassHandle theClass,
                                                                      AttributeHandle theHandle) = 0;
   virtual DimensionHandleSet getAvailableDimensionsForInteractionClass(InteractionClassHandle theClass) = 0;
   virtual DimensionHandle getDimensionHandle(std::wstring const& theName) = 0;
   virtual std::wstring getDimensionName(DimensionHandle theHandle) = 0;
   virtual unsigned long getDimensionUpperBound(DimensionHandle theHandle) = 0;
   virtual DimensionHandleSet getDimensionHandleSet(RegionHandle theRegionHandle) = 0;
   virtual RangeBounds getRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle) = 0;
   virtual void setRangeBounds(RegionHandle theRegionHandle, DimensionHandle theDimensionHandle,
                               RangeBounds const& theRangeBounds) = 0;
   virtual unsigned long normalizeFederateHandle(FederateHandle theFederateHandle) = 0;
   virtual unsigned long normalizeServiceGroup(ServiceGroup theServiceGroup) = 0;
   virtual void enableObjectClassRelevanceAdvisorySwitch() = 0;
   virtual void disableObjectClassRelevanceAdvisorySwitch() = 0;
   virtual void enableAttributeRelevanceAdvisorySwitch() = 0;
   virtual void disableAttributeRelevanceAdvisorySwitch() = 0;
   virtual void enableAttributeScopeAdvisorySwitch() = 0;
   virtual void disableAttributeScopeAdvisorySwitch() = 0;
   virtual void enableInteractionRelevanceAdvisorySwitch() = 0;
   virtual void disableInteractionRelevanceAdvisorySwitch() = 0;

   // Times in seconds. In the evoked model callbacks run on this thread, inside these calls. Both tell
   // whether more callbacks are waiting.
   virtual bool evokeCallback(double approximateMinimumTimeInSeconds) = 0;
   virtual bool evokeMultipleCallbacks(double approximateMinimumTimeInSeconds,
                                       double approximateMaximumTimeInSeconds) = 0;
   virtual void enableCallbacks() = 0;
   virtual void disableCallbacks() = 0;

   // Times and handles

   // A new factory of the federation's logical times, the caller's; empty if the time library does not
   // know them.
   virtual std::auto_ptr<LogicalTimeFactory> getTimeFactory() const = 0;

   // Turn what a handle's encode gave back into the handle.
   virtual FederateHandle decodeFederateHandle(VariableLengthData const& encodedValue) const = 0;
   virtual ObjectClassHandle decodeObjectClassHandle(VariableLengthData const& encodedValue) const = 0;
   virtual InteractionClassHandle decodeInteractionClassHandle(
      VariableLengthData const& encodedValue) const = 0;
   virtual ObjectInstanceHandle decodeObjectInstanceHandle(VariableLengthData const& encodedValue) const = 0;
   virtual AttributeHandle decodeAttributeHandle(VariableLengthData const& encodedValue) const = 0;
   virtual ParameterHandle decodeParameterHandle(VariableLengthData const& encodedValue) const = 0;
   virtual DimensionHandle decodeDimensionHandle(VariableLengthData const& encodedValue) const = 0;
   virtual MessageRetractionHandle decodeMessageRetractionHandle(
      VariableLengthData const& encodedValue) const = 0;
   virtual RegionHandle decodeRegionHandle(VariableLengthData const& encodedValue) const = 0;

   // Other spellings of services above. The queries assign what they get to the argument, which must be of
   // the federation's time implementation; queryGALT and queryLITS tell whether there was a time to assign,
   // and the other two throw RTIinternalError if there was none.
   bool queryGALT(LogicalTime& theTime) { return assign(queryGALT().time, theTime); }
   bool queryLITS(LogicalTime& theTime) { return assign(queryLITS().time, theTime); }
   void queryLogicalTime(LogicalTime& theTime) { require(assign(queryLogicalTime(), theTime)); }
   void queryLookahead(LogicalTimeInterval& interval) { require(assign(queryLookahead(), interval)); }
   TransportationType getTransportationType(std::wstring const& transportationName)
   {
      return getTransportationTypeHandle(transportationName);
   }
   std::wstring getTransportationName(TransportationType theType)
   {
      return getTransportationTypeName(theType);
   }

private:
   template <typename T>
   static bool assign(std::auto_ptr<T> const& from, T& to)
   {
      if (from.get() == nullptr) {
         return false;
      }
      to = *from;
      return true;
   }

   static void require(bool assigned)
   {
      if (!assigned) {
         throw RTIinternalError(L"There is no logical time: this ambassador has no logical time factory");
      }
   }
};

} // namespace rti1516e

RTI_AUTO_PTR_END

#endif
