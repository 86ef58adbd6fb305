#include "../contract/Services.h"
#include "FederationTest.h"

#include <algorithm>

namespace {

using namespace system_tests;

// What state of the federate or of its federation forbids, it forbids to every service that lists the
// exception, and whatever the arguments: the state is judged before them.
class Preconditions : public FederationTest
{
protected:
   static bool lists(contract::Service const& service, std::string const& exception)
   {
      auto const& exceptions = service.method.exceptions;
      return std::find(exceptions.begin(), exceptions.end(), exception) != exceptions.end();
   }

   static void expectRefusals(Federate& federate, std::string const& exception)
   {
      for (auto const& service : contract::services()) {
         // A federate that has joined may not join, whatever its federation is doing.
         bool const joins = lists(service, "FederateAlreadyExecutionMember");
         if (lists(service, exception) && (!joins || exception == "NotConnected")) {
            EXPECT_REFUSED(exception, service.call(*federate)) << service.method.name;
         }
      }
   }
};
IN_BOTH_CALLBACK_MODELS(Preconditions);

TEST_P(Preconditions, AreAConnectionAndAFederation)
{
   Federate& alpha = connected("alpha");
   expectRefusals(alpha, "FederateNotExecutionMember");
   joined("alpha")->resignFederationExecution(NO_ACTION);
   expectRefusals(alpha, "FederateNotExecutionMember");
   alpha->disconnect();
   expectRefusals(alpha, "NotConnected");
}

TEST_P(Preconditions, AreNoSaveAndNoRestore)
{
   Federate& alpha = joined("alpha");
   alpha->requestFederationSave(L"noon");
   expect(alpha, {"initiateFederateSave(noon)"});
   expectRefusals(alpha, "SaveInProgress");
   alpha->federateSaveBegun();
   expectRefusals(alpha, "SaveInProgress");
   alpha->federateSaveComplete();
   expect(alpha, {"federationSaved()"});

   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreSucceeded(noon)", "federationRestoreBegun()",
                  "initiateFederateRestore(noon, alpha, alpha)"});
   expectRefusals(alpha, "RestoreInProgress");
   alpha->federateRestoreComplete();
   expect(alpha, {"federationRestored()"});
}

} // namespace
