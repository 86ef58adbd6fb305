#include "FederationTest.h"

namespace {

using namespace rti1516e;
using namespace system_tests;

class Synchronization : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(Synchronization);

std::string const registered = "synchronizationPointRegistrationSucceeded(ready)";
std::string const announced = "announceSynchronizationPoint(ready, tag)";
std::string const synchronized = "federationSynchronized(ready, {})";

TEST_P(Synchronization, WaitsForEveryFederate)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   expectInAnyOrder(alpha, {registered, announced});
   expect(beta, {announced});

   beta->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   expectNothing(beta);
   alpha->synchronizationPointAchieved(L"ready");
   expectEach({&alpha, &beta}, {synchronized});

   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", alpha->synchronizationPointAchieved(L"ready"));
   beta->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   expectInAnyOrder(beta, {registered, announced});
}

TEST_P(Synchronization, TellsWhoFailed)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   Federate& gamma = joined("gamma");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   expectInAnyOrder(alpha, {registered, announced});
   expectEach({&beta, &gamma}, {announced});
   alpha->synchronizationPointAchieved(L"ready", false);
   beta->synchronizationPointAchieved(L"ready", true);
   gamma->synchronizationPointAchieved(L"ready", false);
   expectEach({&alpha, &beta, &gamma}, {"federationSynchronized(ready, {alpha gamma})"});
}

TEST_P(Synchronization, IsOfTheGivenFederatesAlone)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   Federate& gamma = joined("gamma");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), {beta.handle(), gamma.handle()});
   expect(alpha, {registered});
   expectEach({&beta, &gamma}, {announced});
   Federate& late = joined("late");

   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", alpha->synchronizationPointAchieved(L"ready"));
   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced", late->synchronizationPointAchieved(L"ready"));
   beta->synchronizationPointAchieved(L"ready");
   gamma->synchronizationPointAchieved(L"ready");
   expectEach({&beta, &gamma}, {synchronized});
   expectNothing(alpha);
   expectNothing(late);
}

TEST_P(Synchronization, OfAnEmptySetIsOfAll)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), FederateHandleSet());
   expectInAnyOrder(alpha, {registered, announced});
   expect(beta, {announced});
}

TEST_P(Synchronization, IsAnnouncedToWhoJoinsLate)
{
   Federate& alpha = joined("alpha");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   expectInAnyOrder(alpha, {registered, announced});
   Federate& late = joined("late");
   expect(late, {announced});
   alpha->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   late->synchronizationPointAchieved(L"ready");
   expectEach({&alpha, &late}, {synchronized});
   expectNothing(joined("latest"));
}

TEST_P(Synchronization, DoesNotWaitForWhoResigned)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"));
   expectInAnyOrder(alpha, {registered, announced});
   alpha->synchronizationPointAchieved(L"ready");
   expectNothing(alpha);
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {synchronized});
}

TEST_P(Synchronization, KeepsSeveralPointsApart)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
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
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   FederateHandle const gone = joined("gone").handle();
   joined("gone")->resignFederationExecution(NO_ACTION);

   alpha->registerFederationSynchronizationPoint(L"ready", bytes("tag"), {beta.handle()});
   expect(alpha, {registered});
   expect(beta, {announced});
   beta->registerFederationSynchronizationPoint(L"ready", bytes("other"));
   expect(beta, {"synchronizationPointRegistrationFailed(ready, label-not-unique)"});
   alpha->registerFederationSynchronizationPoint(L"done", bytes("tag"), {beta.handle(), gone});
   expect(alpha, {"synchronizationPointRegistrationFailed(done, member-not-joined)"});
   EXPECT_REFUSED("InvalidFederateHandle", alpha->registerFederationSynchronizationPoint(
                                              L"done", bytes("tag"), {beta.handle(), FederateHandle()}));
   expectNothing(alpha);
   expectNothing(beta);
   EXPECT_REFUSED("SynchronizationPointLabelNotAnnounced",
                  beta->synchronizationPointAchieved(L"never heard of"));
}

} // namespace
