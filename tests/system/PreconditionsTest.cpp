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

std::vector<Service> const services = {
   SERVICE(Both, resignFederationExecution(NO_ACTION)),
   SERVICE(Neither, registerFederationSynchronizationPoint(L"ready", {})),
   SERVICE(Neither, registerFederationSynchronizationPoint(L"ready", {}, {FederateHandle()})),
   SERVICE(Neither, synchronizationPointAchieved(L"ready")),
   SERVICE(Neither, requestFederationSave(L"noon")),
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
