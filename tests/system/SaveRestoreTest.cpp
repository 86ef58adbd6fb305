#include "FederationTest.h"

namespace {

using namespace rti1516e;
using namespace system_tests;

class SaveRestore : public FederationTest
{
protected:
   SaveRestore() : alpha(joined("alpha")), beta(joined("beta")) {}

   void askForASave()
   {
      alpha->requestFederationSave(L"noon");
      expectEach({&alpha, &beta}, {"initiateFederateSave(noon)"});
   }

   void save()
   {
      askForASave();
      for (Federate* const federate : {&alpha, &beta}) {
         (*federate)->federateSaveBegun();
         (*federate)->federateSaveComplete();
      }
      expectEach({&alpha, &beta}, {"federationSaved()"});
   }

   void askForARestore()
   {
      alpha->requestFederationRestore(L"noon");
      expect(alpha, {"requestFederationRestoreSucceeded(noon)", "federationRestoreBegun()",
                     "initiateFederateRestore(noon, alpha, alpha)"});
      expect(beta, {"federationRestoreBegun()", "initiateFederateRestore(noon, beta, beta)"});
   }

   void expectSaveStatus(std::string const& status)
   {
      beta->queryFederationSaveStatus();
      expect(beta, {"federationSaveStatusResponse(" + status + ")"});
   }

   void expectRestoreStatus(std::string const& status)
   {
      beta->queryFederationRestoreStatus();
      expect(beta, {"federationRestoreStatusResponse(" + status + ")"});
   }

   Federate& alpha;
   Federate& beta;
};
IN_BOTH_CALLBACK_MODELS(SaveRestore);

TEST_P(SaveRestore, SavesWhenAllHaveSaved)
{
   expectSaveStatus("{alpha=idle beta=idle}");
   askForASave();
   expectSaveStatus("{alpha=instructed beta=instructed}");
   alpha->federateSaveBegun();
   expectSaveStatus("{alpha=saving beta=instructed}");
   alpha->federateSaveComplete();
   expectSaveStatus("{alpha=waiting beta=instructed}");
   beta->federateSaveBegun();
   expectSaveStatus("{alpha=waiting beta=saving}");
   expectNothing(alpha);
   beta->federateSaveComplete();
   expectEach({&alpha, &beta}, {"federationSaved()"});
   expectSaveStatus("{alpha=idle beta=idle}");
   save();
}

TEST_P(SaveRestore, DoesNotSaveWhenOneCannot)
{
   askForASave();
   alpha->federateSaveBegun();
   alpha->federateSaveComplete();
   beta->federateSaveBegun();
   beta->federateSaveNotComplete();
   expectEach({&alpha, &beta}, {"federationNotSaved(federate-failed)"});
   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreFailed(noon)"});
   save();
}

TEST_P(SaveRestore, DoesNotSaveWhenOneResigns)
{
   askForASave();
   alpha->federateSaveBegun();
   alpha->federateSaveComplete();
   beta->federateSaveBegun();
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"federationNotSaved(federate-resigned)"});
}

TEST_P(SaveRestore, AbortsASaveAtAnyPoint)
{
   EXPECT_EQ(refusal([&] { alpha->abortFederationSave(); }), "SaveNotInProgress");
   for (int steps = 0; steps < 3; ++steps) {
      askForASave();
      if (steps > 0) {
         alpha->federateSaveBegun();
      }
      if (steps > 1) {
         alpha->federateSaveComplete();
      }
      beta->abortFederationSave();
      expectEach({&alpha, &beta}, {"federationNotSaved(aborted)"});
      expectSaveStatus("{alpha=idle beta=idle}");
      EXPECT_EQ(refusal([&] { alpha->abortFederationSave(); }), "SaveNotInProgress");
   }
}

TEST_P(SaveRestore, SavesInTheRightOrder)
{
   EXPECT_EQ(refusal([&] { alpha->federateSaveBegun(); }), "SaveNotInitiated");
   EXPECT_EQ(refusal([&] { alpha->federateSaveComplete(); }), "FederateHasNotBegunSave");
   EXPECT_EQ(refusal([&] { alpha->federateSaveNotComplete(); }), "FederateHasNotBegunSave");
   askForASave();
   EXPECT_EQ(refusal([&] { alpha->federateSaveComplete(); }), "FederateHasNotBegunSave");
   EXPECT_EQ(refusal([&] { alpha->federateSaveNotComplete(); }), "FederateHasNotBegunSave");
   EXPECT_EQ(refusal([&] { alpha->requestFederationSave(L"later"); }), "SaveInProgress");
   EXPECT_EQ(refusal([&] { alpha->requestFederationRestore(L"noon"); }), "SaveInProgress");
   EXPECT_EQ(refusal([&] { connected("late").join(federation()); }), "SaveInProgress");
}

TEST_P(SaveRestore, RestoresWhenAllHaveRestored)
{
   save();
   expectRestoreStatus("{alpha=idle beta=idle}");
   askForARestore();
   expectRestoreStatus("{alpha=restoring beta=restoring}");
   alpha->federateRestoreComplete();
   expectRestoreStatus("{alpha=waiting beta=restoring}");
   expectNothing(alpha);
   beta->federateRestoreComplete();
   expectEach({&alpha, &beta}, {"federationRestored()"});
   expectRestoreStatus("{alpha=idle beta=idle}");
   askForARestore();
}

TEST_P(SaveRestore, DoesNotRestoreWhenOneCannot)
{
   save();
   askForARestore();
   alpha->federateRestoreComplete();
   beta->federateRestoreNotComplete();
   expectEach({&alpha, &beta}, {"federationNotRestored(federate-failed)"});
   expectRestoreStatus("{alpha=idle beta=idle}");
}

TEST_P(SaveRestore, DoesNotRestoreWhenOneResigns)
{
   save();
   askForARestore();
   alpha->federateRestoreComplete();
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"federationNotRestored(federate-resigned)"});
}

TEST_P(SaveRestore, AbortsARestore)
{
   EXPECT_EQ(refusal([&] { alpha->abortFederationRestore(); }), "RestoreNotInProgress");
   save();
   for (bool const oneIsDone : {false, true}) {
      askForARestore();
      if (oneIsDone) {
         alpha->federateRestoreComplete();
      }
      beta->abortFederationRestore();
      expectEach({&alpha, &beta}, {"federationNotRestored(aborted)"});
      EXPECT_EQ(refusal([&] { alpha->abortFederationRestore(); }), "RestoreNotInProgress");
   }
}

TEST_P(SaveRestore, RestoresOnlyWhatWasSavedByTheSameFederates)
{
   EXPECT_EQ(refusal([&] { alpha->federateRestoreComplete(); }), "RestoreNotRequested");
   EXPECT_EQ(refusal([&] { alpha->federateRestoreNotComplete(); }), "RestoreNotRequested");
   save();
   alpha->requestFederationRestore(L"midnight");
   expect(alpha, {"requestFederationRestoreFailed(midnight)"});
   Federate& late = joined("late");
   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreFailed(noon)"});
   expectNothing(beta);
   late->resignFederationExecution(NO_ACTION);

   askForARestore();
   EXPECT_EQ(refusal([&] { alpha->requestFederationRestore(L"noon"); }), "RestoreInProgress");
   EXPECT_EQ(refusal([&] { alpha->requestFederationSave(L"noon"); }), "RestoreInProgress");
   EXPECT_EQ(refusal([&] { late.join(federation()); }), "RestoreInProgress");
}

TEST_P(SaveRestore, RestoresEachAsItselfOrElseAsAnotherOfItsType)
{
   save();
   alpha->resignFederationExecution(NO_ACTION);
   beta->resignFederationExecution(NO_ACTION);
   FederateHandle const handle = beta.handle();
   Federate& gamma = joined("gamma");
   alpha.join(federation());
   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreSucceeded(noon)", "federationRestoreBegun()",
                  "initiateFederateRestore(noon, alpha, alpha)"});
   expect(gamma, {"federationRestoreBegun()", "initiateFederateRestore(noon, beta, beta)"});
   alpha->federateRestoreComplete();
   gamma->federateRestoreComplete();
   expectEach({&alpha, &gamma}, {"federationRestored()"});
   EXPECT_EQ(gamma->getFederateName(handle), L"beta");
}

} // namespace
