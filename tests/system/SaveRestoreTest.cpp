#include "FederationTest.h"

#include <algorithm>

namespace {

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

   static void complete(Federate& federate)
   {
      federate->federateSaveBegun();
      federate->federateSaveComplete();
   }

   void save()
   {
      askForASave();
      complete(alpha);
      complete(beta);
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

TEST_P(SaveRestore, IsDoneByVeryManyFederatesToo)
{
   ObjectClassHandle const vehicle = alpha->getObjectClassHandle(L"Vehicle");
   AttributeHandleSet const attributes{alpha->getAttributeHandle(vehicle, L"Position")};
   std::vector<Federate*> all = {&alpha, &beta};
   for (int i = 0; i < 200; ++i) {
      all.push_back(&joined("crowd " + std::to_string(i)));
   }
   for (Federate* const federate : all) {
      (*federate)->publishObjectClassAttributes(vehicle, attributes);
      (*federate)->subscribeObjectClassAttributes(vehicle, attributes);
      (*federate)->registerObjectInstance(vehicle);
   }
   for (Federate* const federate : all) {
      EXPECT_EQ(federate->callbacks(all.size() - 1).size(), all.size() - 1);
   }
   alpha->requestFederationSave(L"noon");
   expectEach(all, {"initiateFederateSave(noon)"});
   std::for_each(all.begin(), all.end(), [](Federate* federate) { complete(*federate); });
   expectEach(all, {"federationSaved()"});

   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreSucceeded(noon)", "federationRestoreBegun()",
                  "initiateFederateRestore(noon, alpha, alpha)"});
   alpha->federateRestoreComplete();
   for (auto federate = all.begin() + 1; federate != all.end(); ++federate) {
      std::string const& name = (*federate)->name();
      expect(**federate,
             {"federationRestoreBegun()", "initiateFederateRestore(noon, " + name + ", " + name + ")"});
      (**federate)->federateRestoreComplete();
   }
   expectEach(all, {"federationRestored()"});
}

TEST_P(SaveRestore, DoesNotSaveWhenOneCannotOrResigns)
{
   askForASave();
   complete(alpha);
   beta->federateSaveBegun();
   beta->federateSaveNotComplete();
   expectEach({&alpha, &beta}, {"federationNotSaved(federate-failed)"});
   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreFailed(noon)"});

   save();
   askForASave();
   complete(alpha);
   beta->federateSaveBegun();
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"federationNotSaved(federate-resigned)"});
}

TEST_P(SaveRestore, AbortsASaveAtAnyPoint)
{
   EXPECT_REFUSED("SaveNotInProgress", alpha->abortFederationSave());
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
      EXPECT_REFUSED("SaveNotInProgress", alpha->abortFederationSave());
   }
}

TEST_P(SaveRestore, SavesInTheRightOrder)
{
   EXPECT_REFUSED("SaveNotInitiated", alpha->federateSaveBegun());
   EXPECT_REFUSED("FederateHasNotBegunSave", alpha->federateSaveComplete());
   EXPECT_REFUSED("FederateHasNotBegunSave", alpha->federateSaveNotComplete());
   beta->disableCallbacks();
   alpha->requestFederationSave(L"noon");
   EXPECT_REFUSED("SaveNotInitiated", beta->federateSaveBegun()); // as far as beta knows
   alpha->abortFederationSave();
   beta->enableCallbacks();
   expectEach({&alpha, &beta}, {"initiateFederateSave(noon)", "federationNotSaved(aborted)"});
   askForASave();
   EXPECT_REFUSED("FederateHasNotBegunSave", alpha->federateSaveComplete());
   EXPECT_REFUSED("FederateHasNotBegunSave", alpha->federateSaveNotComplete());
   EXPECT_REFUSED("SaveInProgress", connected("late").join(federation()));
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

TEST_P(SaveRestore, DoesNotRestoreWhenOneCannotOrResigns)
{
   save();
   askForARestore();
   alpha->federateRestoreComplete();
   beta->federateRestoreNotComplete();
   expectEach({&alpha, &beta}, {"federationNotRestored(federate-failed)"});
   expectRestoreStatus("{alpha=idle beta=idle}");

   askForARestore();
   alpha->federateRestoreComplete();
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"federationNotRestored(federate-resigned)"});
}

TEST_P(SaveRestore, AbortsARestore)
{
   EXPECT_REFUSED("RestoreNotInProgress", alpha->abortFederationRestore());
   save();
   for (bool const oneIsDone : {false, true}) {
      askForARestore();
      if (oneIsDone) {
         alpha->federateRestoreComplete();
      }
      beta->abortFederationRestore();
      expectEach({&alpha, &beta}, {"federationNotRestored(aborted)"});
      EXPECT_REFUSED("RestoreNotInProgress", alpha->abortFederationRestore());
   }
}

TEST_P(SaveRestore, RestoresOnlyWhatWasSavedByTheSameFederates)
{
   EXPECT_REFUSED("RestoreNotRequested", alpha->federateRestoreComplete());
   EXPECT_REFUSED("RestoreNotRequested", alpha->federateRestoreNotComplete());
   save();
   alpha->requestFederationRestore(L"midnight");
   expect(alpha, {"requestFederationRestoreFailed(midnight)"});
   Federate& late = joined("late");
   alpha->requestFederationRestore(L"noon");
   expect(alpha, {"requestFederationRestoreFailed(noon)"});
   expectNothing(beta);
   late->resignFederationExecution(NO_ACTION);

   askForARestore();
   EXPECT_REFUSED("RestoreInProgress", late.join(federation()));
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
