#include "FederationTest.h"

#include <set>
#include <string>

namespace {

using namespace system_tests;

std::string const registered = "synchronizationPointRegistrationSucceeded(ready)";
std::string const announced = "announceSynchronizationPoint(ready, tag)";
std::string const synchronized = "federationSynchronized(ready, {})";

class Synchronization : public FederationTest
{
protected:
   Synchronization() : alpha(joined("alpha")), beta(joined("beta")) {}

   // Of all federates.
   void registerReady()
   {
      alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
      expectInAnyOrder(alpha, {registered, announced});
      expect(beta, {announced});
   }

   Federate& alpha;
   Federate& beta;
};
IN_BOTH_CALLBACK_MODELS(Synchronization);

TEST_P(Synchronization, WaitsForEveryFederate)
{
   registerReady();
   beta->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   expectNothing(beta);
   alpha->synchronizationPointAchieved(L"ready");
   expectEach({&alpha, &beta}, {synchronized});

   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", alpha->synchronizationPointAchieved(L"ready"));
   registerReady();
}

TEST_P(Synchronization, OfAnEmptySetIsOfAllAndTellsWhoFailed)
{
   Federate& gamma = joined("gamma");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), FederateHandleSet());
   expectInAnyOrder(alpha, {registered, announced});
   expectEach({&beta, &gamma}, {announced});
   alpha->synchronizationPointAchieved(L"ready", false);
   beta->synchronizationPointAchieved(L"ready", true);
   gamma->synchronizationPointAchieved(L"ready", false);
   expectEach({&alpha, &beta, &gamma}, {"federationSynchronized(ready, {alpha gamma})"});
}

TEST_P(Synchronization, IsOfTheGivenFederatesAlone)
{
   Federate& gamma = joined("gamma");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), {beta.handle(), gamma.handle()});
   expect(alpha, {registered});
   expectEach({&beta, &gamma}, {announced});
   Federate& late = joined("late");
   for (Federate* const federate : {&alpha, &late}) {
      EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced",
                     (*federate)->synchronizationPointAchieved(L"ready"));
   }
   beta->synchronizationPointAchieved(L"ready");
   gamma->synchronizationPointAchieved(L"ready");
   expectEach({&beta, &gamma}, {synchronized});
   expectEach({&alpha, &late}, {});
}

TEST_P(Synchronization, IsAnnouncedToWhoJoinsLate)
{
   registerReady();
   Federate& late = joined("late");
   expect(late, {announced});
   alpha->synchronizationPointAchieved(L"ready");
   beta->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   late->synchronizationPointAchieved(L"ready");
   expectEach({&alpha, &beta, &late}, {synchronized});
   expectNothing(joined("latest"));
}

TEST_P(Synchronization, IsAnnouncedToMembersOnly)
{
   for (int point = 0; point < 20; ++point) {
      alpha->registerFederationSynchronizationPoint(std::to_wstring(point), bytes("tag"));
   }
   Federate& late = connected("late");
   std::set<std::string> answers;
   late.onCallback = [&](std::string const&) {
      answers.insert(refusal([&] { late->getAutomaticResignDirective(); }));
   };
   for (int visit = 0; visit < 10; ++visit) {
      late.join(federation());
      EXPECT_EQ(late.callbacks(20).size(), 20U);
      EXPECT_EQ(answers, std::set<std::string>{"nothing"});
      late->resignFederationExecution(NO_ACTION);
   }
}

TEST_P(Synchronization, DoesNotWaitForWhoResigned)
{
   registerReady();
   alpha->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {synchronized});
}

TEST_P(Synchronization, KeepsSeveralPointsApart)
{
   alpha->registerFederationSynchronizationPoint(L"first", bytes(""));
   beta->registerFederationSynchronizationPoint(L"second", bytes(""));
   alpha.callbacks(3);
   beta.callbacks(3);
   alpha->synchronizationPointAchieved(L"second");
   alpha->synchronizationPointAchieved(L"first");
   beta->synchronizationPointAchieved(L"second");
   expectEach({&alpha, &beta}, {"federationSynchronized(second, {})"});
   beta->synchronizationPointAchieved(L"first");
   expectEach({&alpha, &beta}, {"federationSynchronized(first, {})"});
}

TEST_P(Synchronization, IsNotRegisteredTwiceNorForWhoIsNotJoined)
{
   FederateHandle const gone = joined("gone").handle();
   joined("gone")->resignFederationExecution(NO_ACTION);

   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), {beta.handle()});
   expect(alpha, {registered});
   expect(beta, {announced});
   beta->registerFederationSynchronizationPoint(L"ready", bytes("other"));
   expect(beta, {"synchronizationPointRegistrationFailed(ready, label-not-unique)"});
   alpha->registerFederationSynchronizationPoint(L"done", bytes("tag"), {beta.handle(), gone});
   expect(alpha, {"synchronizationPointRegistrationFailed(done, member-not-joined)"});
   FederateHandleSet const invalid = {beta.handle(), FederateHandle()};
   EXPECT_REFUSED("InvalidFederateHandle",
                  alpha->registerFederationSynchronizationPoint(L"done", bytes("tag"), invalid));
   expectEach({&alpha, &beta}, {});
   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", beta->synchronizationPointAchieved(L"unheard of"));
}

TEST_P(Synchronization, IsAchievedOnceByEach)
{
   registerReady();
   alpha->synchronizationPointAchieved(L"ready", false);
   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", alpha->synchronizationPointAchieved(L"ready"));
}

} // namespace
