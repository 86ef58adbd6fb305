#include "Federate.h"

#include <RTI/RTIambassadorFactory.h>

#include <utility>

namespace system_tests {

using namespace rti1516e;

using Clock = std::chrono::steady_clock;

// What follows the values of a message, in one text.
struct Detail
{
   std::string text;
};

static std::string show(Detail const& detail) { return detail.text; }

static Detail at(LogicalTime const& time, OrderType received)
{
   return {"at " + show(time) + " " + show(received)};
}

static Detail at(LogicalTime const& time, OrderType received, MessageRetractionHandle const& handle)
{
   return {at(time, received).text + (handle.isValid() ? " retractable" : " with an invalid handle")};
}

template <class Info>
static Detail by(Info const& info)
{
   return {info.hasProducingFederate ? "by " + show(info.producingFederate) : "by somebody"};
}

template <class Info>
static Detail from(Info const& info)
{
   return {by(info).text + (info.sentRegions.empty() ? "" : ", from " + show(info.sentRegions))};
}

static Detail from(SupplementalRemoveInfo const& info) { return by(info); }

Federate::Federate(std::string const& name, CallbackModel model, Names& names)
   : _name(name),
     _model(model),
     _names(names),
     _ambassador(RTIambassadorFactory().createRTIambassador().release())
{}

Federate::~Federate() { destroyAmbassador(); }

void Federate::connect() { _ambassador->connect(*this, _model); }

void Federate::join(std::string const& federation, std::vector<std::wstring> const& modules)
{
   _handle = _ambassador->joinFederationExecution(wide(_name), L"test", wide(federation), modules);
   _names.add(_handle, _name);
}

bool Federate::await(std::function<bool()> const& condition, std::chrono::milliseconds limit)
{
   auto const deadline = Clock::now() + limit;
   while (true) {
      std::size_t const seen = _written.load();
      if (condition()) {
         return true;
      }
      if (Clock::now() > deadline) {
         return false;
      }
      if (_model == HLA_EVOKED) {
         _ambassador->evokeCallback(0.02);
      } else {
         std::unique_lock<std::mutex> lock(_mutex);
         _news.wait_for(lock, std::chrono::milliseconds(20), [&] { return _written != seen; });
      }
   }
}

// The list of federations is asked for only to hear when all callbacks before it have come.
void Federate::drain()
{
   _drained = false;
   _draining = true;
   _ambassador->listFederationExecutions();
   if (!await([this] { return _drained.load(); })) {
      written("the callbacks do not come to an end");
   }
}

Federate::Callbacks Federate::callbacks(std::size_t wanted)
{
   await([&] { return waiting() >= wanted; });
   drain();
   Callbacks taken;
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      taken.swap(_callbacks);
   }
   for (auto& callback : taken) {
      callback = _names.in(callback);
   }
   return taken;
}

std::size_t Federate::waiting() const
{
   std::lock_guard<std::mutex> const lock(_mutex);
   return _callbacks.size();
}

template <class... Arguments>
void Federate::record(char const* callback, Arguments const&... arguments)
{
   std::string text;
   ((text += (text.empty() ? "" : ", ") + show(arguments)), ...);
   written(callback + ("(" + text + ")"));
}

void Federate::tell()
{
   std::lock_guard<std::mutex> const lock(_mutex);
   ++_written;
   _news.notify_all();
}

void Federate::written(std::string const& callback)
{
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      _callbacks.push_back(callback);
   }
   tell();
   if (onCallback) {
      onCallback(callback);
   }
}

void Federate::connectionLost(std::wstring const& faultDescription)
{
   record("connectionLost", faultDescription);
}
void Federate::reportFederationExecutions(
   FederationExecutionInformationVector const& theFederationExecutionInformationList)
{
   if (_draining.exchange(false)) {
      _drained = true;
      tell();
      return;
   }
   record("reportFederationExecutions", theFederationExecutionInformationList);
}
void Federate::synchronizationPointRegistrationSucceeded(std::wstring const& label)
{
   record("synchronizationPointRegistrationSucceeded", label);
}
void Federate::synchronizationPointRegistrationFailed(std::wstring const& label,
                                                      SynchronizationPointFailureReason reason)
{
   record("synchronizationPointRegistrationFailed", label, reason);
}
void Federate::announceSynchronizationPoint(std::wstring const& label,
                                            VariableLengthData const& theUserSuppliedTag)
{
   record("announceSynchronizationPoint", label, theUserSuppliedTag);
}
void Federate::federationSynchronized(std::wstring const& label, FederateHandleSet const& failedToSyncSet)
{
   record("federationSynchronized", label, failedToSyncSet);
}
void Federate::initiateFederateSave(std::wstring const& label, LogicalTime const& theTime)
{
   record("initiateFederateSave", label, theTime);
}
void Federate::initiateFederateSave(std::wstring const& label) { record("initiateFederateSave", label); }
void Federate::federationSaved() { record("federationSaved"); }
void Federate::federationNotSaved(SaveFailureReason theSaveFailureReason)
{
   record("federationNotSaved", theSaveFailureReason);
}
void Federate::federationSaveStatusResponse(FederateHandleSaveStatusPairVector const& theFederateStatusVector)
{
   record("federationSaveStatusResponse", theFederateStatusVector);
}
void Federate::requestFederationRestoreSucceeded(std::wstring const& label)
{
   record("requestFederationRestoreSucceeded", label);
}
void Federate::requestFederationRestoreFailed(std::wstring const& label)
{
   record("requestFederationRestoreFailed", label);
}
void Federate::federationRestoreBegun() { record("federationRestoreBegun"); }
void Federate::initiateFederateRestore(std::wstring const& label, std::wstring const& federateName,
                                       FederateHandle handle)
{
   record("initiateFederateRestore", label, federateName, handle);
}
void Federate::federationRestored() { record("federationRestored"); }
void Federate::federationNotRestored(RestoreFailureReason theRestoreFailureReason)
{
   record("federationNotRestored", theRestoreFailureReason);
}
void Federate::federationRestoreStatusResponse(
   FederateRestoreStatusVector const& theFederateRestoreStatusVector)
{
   record("federationRestoreStatusResponse", theFederateRestoreStatusVector);
}
void Federate::startRegistrationForObjectClass(ObjectClassHandle theClass)
{
   record("startRegistrationForObjectClass", theClass);
}
void Federate::stopRegistrationForObjectClass(ObjectClassHandle theClass)
{
   record("stopRegistrationForObjectClass", theClass);
}
void Federate::turnInteractionsOn(InteractionClassHandle theHandle)
{
   record("turnInteractionsOn", theHandle);
}
void Federate::turnInteractionsOff(InteractionClassHandle theHandle)
{
   record("turnInteractionsOff", theHandle);
}
void Federate::objectInstanceNameReservationSucceeded(std::wstring const& theObjectInstanceName)
{
   record("objectInstanceNameReservationSucceeded", theObjectInstanceName);
}
void Federate::objectInstanceNameReservationFailed(std::wstring const& theObjectInstanceName)
{
   record("objectInstanceNameReservationFailed", theObjectInstanceName);
}
void Federate::multipleObjectInstanceNameReservationSucceeded(
   std::set<std::wstring> const& theObjectInstanceNames)
{
   record("multipleObjectInstanceNameReservationSucceeded", theObjectInstanceNames);
}
void Federate::multipleObjectInstanceNameReservationFailed(
   std::set<std::wstring> const& theObjectInstanceNames)
{
   record("multipleObjectInstanceNameReservationFailed", theObjectInstanceNames);
}
void Federate::discoverObjectInstance(ObjectInstanceHandle theObject, ObjectClassHandle theObjectClass,
                                      std::wstring const& theObjectInstanceName,
                                      FederateHandle producingFederate)
{
   record("discoverObjectInstance", theObject, theObjectClass, theObjectInstanceName, producingFederate);
}
void Federate::discoverObjectInstance(ObjectInstanceHandle theObject, ObjectClassHandle theObjectClass,
                                      std::wstring const& theObjectInstanceName)
{
   record("discoverObjectInstance", theObject, theObjectClass, theObjectInstanceName);
}
void Federate::reflectAttributeValues(ObjectInstanceHandle theObject,
                                      AttributeHandleValueMap const& theAttributeValues,
                                      VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                      TransportationType theType, LogicalTime const& theTime,
                                      OrderType receivedOrder, MessageRetractionHandle theHandle,
                                      SupplementalReflectInfo theReflectInfo)
{
   record("reflectAttributeValues", theObject, theAttributeValues, theUserSuppliedTag, sentOrder, theType,
          at(theTime, receivedOrder, theHandle), from(theReflectInfo));
}
void Federate::reflectAttributeValues(ObjectInstanceHandle theObject,
                                      AttributeHandleValueMap const& theAttributeValues,
                                      VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                      TransportationType theType, LogicalTime const& theTime,
                                      OrderType receivedOrder, SupplementalReflectInfo theReflectInfo)
{
   record("reflectAttributeValues", theObject, theAttributeValues, theUserSuppliedTag, sentOrder, theType,
          at(theTime, receivedOrder), from(theReflectInfo));
}
void Federate::reflectAttributeValues(ObjectInstanceHandle theObject,
                                      AttributeHandleValueMap const& theAttributeValues,
                                      VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                      TransportationType theType, SupplementalReflectInfo theReflectInfo)
{
   record("reflectAttributeValues", theObject, theAttributeValues, theUserSuppliedTag, sentOrder, theType,
          from(theReflectInfo));
}
void Federate::receiveInteraction(InteractionClassHandle theInteraction,
                                  ParameterHandleValueMap const& theParameterValues,
                                  VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                  TransportationType theType, LogicalTime const& theTime,
                                  OrderType receivedOrder, MessageRetractionHandle theHandle,
                                  SupplementalReceiveInfo theReceiveInfo)
{
   record("receiveInteraction", theInteraction, theParameterValues, theUserSuppliedTag, sentOrder, theType,
          at(theTime, receivedOrder, theHandle), from(theReceiveInfo));
}
void Federate::receiveInteraction(InteractionClassHandle theInteraction,
                                  ParameterHandleValueMap const& theParameterValues,
                                  VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                  TransportationType theType, LogicalTime const& theTime,
                                  OrderType receivedOrder, SupplementalReceiveInfo theReceiveInfo)
{
   record("receiveInteraction", theInteraction, theParameterValues, theUserSuppliedTag, sentOrder, theType,
          at(theTime, receivedOrder), from(theReceiveInfo));
}
void Federate::receiveInteraction(InteractionClassHandle theInteraction,
                                  ParameterHandleValueMap const& theParameterValues,
                                  VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                  TransportationType theType, SupplementalReceiveInfo theReceiveInfo)
{
   record("receiveInteraction", theInteraction, theParameterValues, theUserSuppliedTag, sentOrder, theType,
          from(theReceiveInfo));
}
void Federate::removeObjectInstance(ObjectInstanceHandle theObject,
                                    VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                    LogicalTime const& theTime, OrderType receivedOrder,
                                    MessageRetractionHandle theHandle, SupplementalRemoveInfo theRemoveInfo)
{
   record("removeObjectInstance", theObject, theUserSuppliedTag, sentOrder,
          at(theTime, receivedOrder, theHandle), from(theRemoveInfo));
}
void Federate::removeObjectInstance(ObjectInstanceHandle theObject,
                                    VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                    LogicalTime const& theTime, OrderType receivedOrder,
                                    SupplementalRemoveInfo theRemoveInfo)
{
   record("removeObjectInstance", theObject, theUserSuppliedTag, sentOrder, at(theTime, receivedOrder),
          from(theRemoveInfo));
}
void Federate::removeObjectInstance(ObjectInstanceHandle theObject,
                                    VariableLengthData const& theUserSuppliedTag, OrderType sentOrder,
                                    SupplementalRemoveInfo theRemoveInfo)
{
   record("removeObjectInstance", theObject, theUserSuppliedTag, sentOrder, from(theRemoveInfo));
}
void Federate::attributesInScope(ObjectInstanceHandle theObject, AttributeHandleSet const& theAttributes)
{
   record("attributesInScope", theObject, theAttributes);
}
void Federate::attributesOutOfScope(ObjectInstanceHandle theObject, AttributeHandleSet const& theAttributes)
{
   record("attributesOutOfScope", theObject, theAttributes);
}
void Federate::provideAttributeValueUpdate(ObjectInstanceHandle theObject,
                                           AttributeHandleSet const& theAttributes,
                                           VariableLengthData const& theUserSuppliedTag)
{
   record("provideAttributeValueUpdate", theObject, theAttributes, theUserSuppliedTag);
}
void Federate::turnUpdatesOnForObjectInstance(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& theAttributes,
                                              std::wstring const& updateRateDesignator)
{
   record("turnUpdatesOnForObjectInstance", theObject, theAttributes, updateRateDesignator);
}
void Federate::turnUpdatesOnForObjectInstance(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& theAttributes)
{
   record("turnUpdatesOnForObjectInstance", theObject, theAttributes);
}
void Federate::turnUpdatesOffForObjectInstance(ObjectInstanceHandle theObject,
                                               AttributeHandleSet const& theAttributes)
{
   record("turnUpdatesOffForObjectInstance", theObject, theAttributes);
}
void Federate::confirmAttributeTransportationTypeChange(ObjectInstanceHandle theObject,
                                                        AttributeHandleSet const& theAttributes,
                                                        TransportationType theTransportation)
{
   record("confirmAttributeTransportationTypeChange", theObject, theAttributes, theTransportation);
}
void Federate::reportAttributeTransportationType(ObjectInstanceHandle theObject, AttributeHandle theAttribute,
                                                 TransportationType theTransportation)
{
   record("reportAttributeTransportationType", theObject, theAttribute, theTransportation);
}
void Federate::confirmInteractionTransportationTypeChange(InteractionClassHandle theInteraction,
                                                          TransportationType theTransportation)
{
   record("confirmInteractionTransportationTypeChange", theInteraction, theTransportation);
}
void Federate::reportInteractionTransportationType(FederateHandle federateHandle,
                                                   InteractionClassHandle theInteraction,
                                                   TransportationType theTransportation)
{
   record("reportInteractionTransportationType", federateHandle, theInteraction, theTransportation);
}
void Federate::requestAttributeOwnershipAssumption(ObjectInstanceHandle theObject,
                                                   AttributeHandleSet const& offeredAttributes,
                                                   VariableLengthData const& theUserSuppliedTag)
{
   record("requestAttributeOwnershipAssumption", theObject, offeredAttributes, theUserSuppliedTag);
}
void Federate::requestDivestitureConfirmation(ObjectInstanceHandle theObject,
                                              AttributeHandleSet const& releasedAttributes)
{
   record("requestDivestitureConfirmation", theObject, releasedAttributes);
}
void Federate::attributeOwnershipAcquisitionNotification(ObjectInstanceHandle theObject,
                                                         AttributeHandleSet const& securedAttributes,
                                                         VariableLengthData const& theUserSuppliedTag)
{
   record("attributeOwnershipAcquisitionNotification", theObject, securedAttributes, theUserSuppliedTag);
}
void Federate::attributeOwnershipUnavailable(ObjectInstanceHandle theObject,
                                             AttributeHandleSet const& theAttributes)
{
   record("attributeOwnershipUnavailable", theObject, theAttributes);
}
void Federate::requestAttributeOwnershipRelease(ObjectInstanceHandle theObject,
                                                AttributeHandleSet const& candidateAttributes,
                                                VariableLengthData const& theUserSuppliedTag)
{
   record("requestAttributeOwnershipRelease", theObject, candidateAttributes, theUserSuppliedTag);
}
void Federate::confirmAttributeOwnershipAcquisitionCancellation(ObjectInstanceHandle theObject,
                                                                AttributeHandleSet const& theAttributes)
{
   record("confirmAttributeOwnershipAcquisitionCancellation", theObject, theAttributes);
}
void Federate::informAttributeOwnership(ObjectInstanceHandle theObject, AttributeHandle theAttribute,
                                        FederateHandle theOwner)
{
   record("informAttributeOwnership", theObject, theAttribute, theOwner);
}
void Federate::attributeIsNotOwned(ObjectInstanceHandle theObject, AttributeHandle theAttribute)
{
   record("attributeIsNotOwned", theObject, theAttribute);
}
void Federate::attributeIsOwnedByRTI(ObjectInstanceHandle theObject, AttributeHandle theAttribute)
{
   record("attributeIsOwnedByRTI", theObject, theAttribute);
}
void Federate::timeRegulationEnabled(LogicalTime const& theFederateTime)
{
   record("timeRegulationEnabled", theFederateTime);
}
void Federate::timeConstrainedEnabled(LogicalTime const& theFederateTime)
{
   record("timeConstrainedEnabled", theFederateTime);
}
void Federate::timeAdvanceGrant(LogicalTime const& theTime) { record("timeAdvanceGrant", theTime); }
void Federate::requestRetraction(MessageRetractionHandle theHandle)
{
   record("requestRetraction", theHandle);
}

} // namespace system_tests
