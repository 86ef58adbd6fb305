#include "FederationTest.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>

#include <functional>

namespace {

using namespace rti1516e;
using namespace system_tests;

// Whether a service may be called during a save and during a restore.
enum class During
{
   Neither,
   Save,
   Restore,
   Both
};

struct Service
{
   char const* name;
   During allowed;
   std::function<void(RTIambassador&)> call;
};

// Every service that only a joined federate may call, with arguments that do not matter: the state is judged
// before them.
#define SERVICE(allowed, ...)                                                     \
   {                                                                              \
#__VA_ARGS__, During::allowed, [](RTIambassador & rti) { rti.__VA_ARGS__; } \
   }

HLAfloat64Time const time(5);
HLAfloat64Interval const interval(1);
AttributeHandleSet divested;

std::vector<Service> const services = {
   SERVICE(Both, resignFederationExecution(NO_ACTION)),
   SERVICE(Neither, registerFederationSynchronizationPoint(L"ready", {})),
   SERVICE(Neither, registerFederationSynchronizationPoint(L"ready", {}, {FederateHandle()})),
   SERVICE(Neither, synchronizationPointAchieved(L"ready")),
   SERVICE(Neither, requestFederationSave(L"noon")),
   SERVICE(Neither, requestFederationSave(L"noon", time)),
   SERVICE(Save, federateSaveBegun()),
   SERVICE(Save, federateSaveComplete()),
   SERVICE(Save, federateSaveNotComplete()),
   SERVICE(Both, abortFederationSave()),
   SERVICE(Save, queryFederationSaveStatus()),
   SERVICE(Neither, requestFederationRestore(L"noon")),
   SERVICE(Restore, federateRestoreComplete()),
   SERVICE(Restore, federateRestoreNotComplete()),
   SERVICE(Both, abortFederationRestore()),
   SERVICE(Restore, queryFederationRestoreStatus()),
   SERVICE(Both, getAutomaticResignDirective()),
   SERVICE(Both, setAutomaticResignDirective(NO_ACTION)),
   SERVICE(Both, getFederateHandle(L"alpha")),
   SERVICE(Both, getFederateName(FederateHandle())),
   SERVICE(Neither, publishObjectClassAttributes({}, {})),
   SERVICE(Neither, unpublishObjectClass({})),
   SERVICE(Neither, unpublishObjectClassAttributes({}, {})),
   SERVICE(Neither, publishInteractionClass({})),
   SERVICE(Neither, unpublishInteractionClass({})),
   SERVICE(Neither, subscribeObjectClassAttributes({}, {})),
   SERVICE(Neither, unsubscribeObjectClass({})),
   SERVICE(Neither, unsubscribeObjectClassAttributes({}, {})),
   SERVICE(Neither, subscribeInteractionClass({})),
   SERVICE(Neither, unsubscribeInteractionClass({})),
   SERVICE(Neither, reserveObjectInstanceName(L"car")),
   SERVICE(Neither, releaseObjectInstanceName(L"car")),
   SERVICE(Neither, reserveMultipleObjectInstanceName({L"car"})),
   SERVICE(Neither, releaseMultipleObjectInstanceName({L"car"})),
   SERVICE(Neither, registerObjectInstance({})),
   SERVICE(Neither, registerObjectInstance({}, L"car")),
   SERVICE(Neither, updateAttributeValues({}, {}, {})),
   SERVICE(Neither, updateAttributeValues({}, {}, {}, time)),
   SERVICE(Neither, sendInteraction({}, {}, {})),
   SERVICE(Neither, sendInteraction({}, {}, {}, time)),
   SERVICE(Neither, deleteObjectInstance({}, {})),
   SERVICE(Neither, deleteObjectInstance({}, {}, time)),
   SERVICE(Neither, localDeleteObjectInstance({})),
   SERVICE(Neither, requestAttributeValueUpdate(ObjectInstanceHandle(), {}, {})),
   SERVICE(Neither, requestAttributeValueUpdate(ObjectClassHandle(), {}, {})),
   SERVICE(Neither, requestAttributeTransportationTypeChange({}, {}, RELIABLE)),
   SERVICE(Neither, queryAttributeTransportationType({}, {})),
   SERVICE(Neither, requestInteractionTransportationTypeChange({}, RELIABLE)),
   SERVICE(Neither, queryInteractionTransportationType({}, {})),
   SERVICE(Neither, changeAttributeOrderType({}, {}, RECEIVE)),
   SERVICE(Neither, changeInteractionOrderType({}, RECEIVE)),
   SERVICE(Neither, unconditionalAttributeOwnershipDivestiture({}, {})),
   SERVICE(Neither, negotiatedAttributeOwnershipDivestiture({}, {}, {})),
   SERVICE(Neither, confirmDivestiture({}, {}, {})),
   SERVICE(Neither, attributeOwnershipAcquisition({}, {}, {})),
   SERVICE(Neither, attributeOwnershipAcquisitionIfAvailable({}, {})),
   SERVICE(Neither, attributeOwnershipReleaseDenied({}, {})),
   SERVICE(Neither, attributeOwnershipDivestitureIfWanted({}, {}, divested)),
   SERVICE(Neither, cancelNegotiatedAttributeOwnershipDivestiture({}, {})),
   SERVICE(Neither, cancelAttributeOwnershipAcquisition({}, {})),
   SERVICE(Neither, queryAttributeOwnership({}, {})),
   SERVICE(Neither, isAttributeOwnedByFederate({}, {})),
   SERVICE(Neither, enableTimeRegulation(interval)),
   SERVICE(Neither, disableTimeRegulation()),
   SERVICE(Neither, enableTimeConstrained()),
   SERVICE(Neither, disableTimeConstrained()),
   SERVICE(Neither, timeAdvanceRequest(time)),
   SERVICE(Neither, timeAdvanceRequestAvailable(time)),
   SERVICE(Neither, nextMessageRequest(time)),
   SERVICE(Neither, nextMessageRequestAvailable(time)),
   SERVICE(Neither, flushQueueRequest(time)),
   SERVICE(Neither, enableAsynchronousDelivery()),
   SERVICE(Neither, disableAsynchronousDelivery()),
   SERVICE(Neither, queryGALT()),
   SERVICE(Neither, queryLogicalTime()),
   SERVICE(Neither, queryLITS()),
   SERVICE(Neither, modifyLookahead(interval)),
   SERVICE(Neither, queryLookahead()),
   SERVICE(Neither, retract({})),
   SERVICE(Neither, createRegion({})),
   SERVICE(Neither, commitRegionModifications({})),
   SERVICE(Neither, deleteRegion({})),
   SERVICE(Neither, registerObjectInstanceWithRegions({}, {})),
   SERVICE(Neither, registerObjectInstanceWithRegions({}, {}, L"car")),
   SERVICE(Neither, associateRegionsForUpdates({}, {})),
   SERVICE(Neither, unassociateRegionsForUpdates({}, {})),
   SERVICE(Neither, subscribeObjectClassAttributesWithRegions({}, {})),
   SERVICE(Neither, unsubscribeObjectClassAttributesWithRegions({}, {})),
   SERVICE(Neither, subscribeInteractionClassWithRegions({}, {})),
   SERVICE(Neither, unsubscribeInteractionClassWithRegions({}, {})),
   SERVICE(Neither, sendInteractionWithRegions({}, {}, {}, {})),
   SERVICE(Neither, sendInteractionWithRegions({}, {}, {}, {}, time)),
   SERVICE(Neither, requestAttributeValueUpdateWithRegions({}, {}, {})),
   SERVICE(Neither, getDimensionHandleSet({})),
   SERVICE(Neither, getRangeBounds({}, {})),
   SERVICE(Neither, setRangeBounds({}, {}, {})),
   SERVICE(Neither, enableObjectClassRelevanceAdvisorySwitch()),
   SERVICE(Neither, disableObjectClassRelevanceAdvisorySwitch()),
   SERVICE(Neither, enableAttributeRelevanceAdvisorySwitch()),
   SERVICE(Neither, disableAttributeRelevanceAdvisorySwitch()),
   SERVICE(Neither, enableAttributeScopeAdvisorySwitch()),
   SERVICE(Neither, disableAttributeScopeAdvisorySwitch()),
   SERVICE(Neither, enableInteractionRelevanceAdvisorySwitch()),
   SERVICE(Neither, disableInteractionRelevanceAdvisorySwitch()),
   SERVICE(Both, getObjectClassHandle(L"")),
   SERVICE(Both, getObjectClassName({})),
   SERVICE(Both, getKnownObjectClassHandle({})),
   SERVICE(Both, getObjectInstanceHandle(L"")),
   SERVICE(Both, getObjectInstanceName({})),
   SERVICE(Both, getAttributeHandle({}, L"")),
   SERVICE(Both, getAttributeName({}, {})),
   SERVICE(Both, getUpdateRateValue(L"")),
   SERVICE(Both, getUpdateRateValueForAttribute({}, {})),
   SERVICE(Both, getInteractionClassHandle(L"")),
   SERVICE(Both, getInteractionClassName({})),
   SERVICE(Both, getParameterHandle({}, L"")),
   SERVICE(Both, getParameterName({}, {})),
   SERVICE(Both, getOrderType(L"")),
   SERVICE(Both, getOrderName(RECEIVE)),
   SERVICE(Both, getTransportationTypeHandle(L"")),
   SERVICE(Both, getTransportationTypeName(RELIABLE)),
   SERVICE(Both, getAvailableDimensionsForClassAttribute({}, {})),
   SERVICE(Both, getAvailableDimensionsForInteractionClass({})),
   SERVICE(Both, getDimensionHandle(L"")),
   SERVICE(Both, getDimensionName({})),
   SERVICE(Both, getDimensionUpperBound({})),
   SERVICE(Both, normalizeFederateHandle({})),
   SERVICE(Both, normalizeServiceGroup(SUPPORT_SERVICES)),
};

#undef SERVICE

class Preconditions : public FederationTest
{
protected:
   void expectRefusals(Federate& federate, std::string const& refused, std::vector<During> const& where)
   {
      for (auto const& service : services) {
         for (During const allowed : where) {
            if (service.allowed == allowed) {
               EXPECT_EQ(refusal([&] { service.call(*federate); }), refused) << service.name;
            }
         }
      }
   }

   static std::vector<During> anywhere()
   {
      return {During::Neither, During::Save, During::Restore, During::Both};
   }
};
IN_BOTH_CALLBACK_MODELS(Preconditions);

TEST_P(Preconditions, AreAConnectionAndAFederation)
{
   Federate& alpha = connected("alpha");
   expectRefusals(alpha, "FederateNotExecutionMember", anywhere());
   joined("alpha")->resignFederationExecution(NO_ACTION);
   expectRefusals(alpha, "FederateNotExecutionMember", anywhere());
   alpha->disconnect();
   expectRefusals(alpha, "NotConnected", anywhere());
   EXPECT_EQ(refusal([&] { alpha->createFederationExecution(L"other", fom("Road.xml")); }), "NotConnected");
   EXPECT_EQ(refusal([&] {
                alpha->createFederationExecution(L"other", {fom("Road.xml"), fom("Weather.xml")});
             }),
             "NotConnected");
   EXPECT_EQ(refusal([&] {
                alpha->createFederationExecutionWithMIM(L"other", {fom("Road.xml")}, wide(SYSTEM_TESTS_MIM));
             }),
             "NotConnected");
   EXPECT_EQ(refusal([&] { alpha->destroyFederationExecution(federationName()); }), "NotConnected");
   EXPECT_EQ(refusal([&] { alpha->listFederationExecutions(); }), "NotConnected");
   EXPECT_EQ(refusal([&] { alpha.join(federation()); }), "NotConnected");
   EXPECT_EQ(refusal([&] { alpha->joinFederationExecution(L"test", federationName()); }), "NotConnected");
}

TEST_P(Preconditions, AreNoSaveAndNoRestore)
{
   Federate& alpha = joined("alpha");
   alpha->requestFederationSave(L"noon");
   expect(alpha, {"initiateFederateSave(noon)"});
   expectRefusals(alpha, "SaveInProgress", {During::Neither, During::Restore});
   EXPECT_EQ(refusal([&] { alpha->enableCallbacks(); }), "SaveInProgress");
   EXPECT_EQ(refusal([&] { alpha->disableCallbacks(); }), "SaveInProgress");
   alpha->federateSaveBegun();
   expectRefusals(alpha, "SaveInProgress", {During::Neither, During::Restore});
   alpha->federateSaveComplete();
   expect(alpha, {"federationSaved()"});

   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreSucceeded(noon)", "federationRestoreBegun()",
                  "initiateFederateRestore(noon, alpha, alpha)"});
   expectRefusals(alpha, "RestoreInProgress", {During::Neither, During::Save});
   EXPECT_EQ(refusal([&] { alpha->enableCallbacks(); }), "RestoreInProgress");
   EXPECT_EQ(refusal([&] { alpha->disableCallbacks(); }), "RestoreInProgress");
   alpha->federateRestoreComplete();
   expect(alpha, {"federationRestored()"});
}

} // namespace
