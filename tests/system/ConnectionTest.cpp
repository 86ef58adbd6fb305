#include "FederationTest.h"

namespace {

using namespace system_tests;

class Connection : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(Connection);

TEST_P(Connection, IsMadeAndGivenUpOnceAtATime)
{
   Federate& alpha = connected("alpha");
   EXPECT_REFUSED("AlreadyConnected", alpha.connect());
   alpha->disconnect();
   alpha.connect();

   joined("alpha");
   EXPECT_REFUSED("FederateIsExecutionMember", alpha->disconnect());
   alpha->resignFederationExecution(NO_ACTION);
   alpha->disconnect();
}

TEST_P(Connection, ListsTheFederationsThatThereAre)
{
   Federate& alpha = connected("alpha");
   alpha->listFederationExecutions();
   expect(alpha, {"reportFederationExecutions({})"});

   create({fom("Road.xml")}, "HLAinteger64Time");
   std::string const second = uniqueName();
   alpha->createFederationExecution(wide(second), fom("Road.xml"));
   alpha->listFederationExecutions();
   expect(alpha, {"reportFederationExecutions({" + federation() + "=HLAinteger64Time " + second +
                  "=HLAfloat64Time})"});
   alpha->destroyFederationExecution(wide(second));
   alpha->listFederationExecutions();
   expect(alpha, {"reportFederationExecutions({" + federation() + "=HLAinteger64Time})"});
}

class FederationExecution : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(FederationExecution);

TEST_P(FederationExecution, IsCreatedAndDestroyedOnce)
{
   Federate& alpha = connected("alpha");
   EXPECT_REFUSED("FederationExecutionDoesNotExist", alpha->destroyFederationExecution(federationName()));
   create({fom("Road.xml")});
   EXPECT_REFUSED("FederationExecutionAlreadyExists",
                  alpha->createFederationExecution(federationName(), fom("Road.xml")));

   Federate& beta = joined("beta");
   EXPECT_REFUSED("FederatesCurrentlyJoined", alpha->destroyFederationExecution(federationName()));
   beta->resignFederationExecution(NO_ACTION);
   alpha->destroyFederationExecution(federationName());
   EXPECT_REFUSED("FederationExecutionDoesNotExist", alpha->destroyFederationExecution(federationName()));
   EXPECT_REFUSED("FederationExecutionDoesNotExist", beta.join(federation()));
}

TEST_P(FederationExecution, LivesInOneKindOfTime)
{
   Federate& alpha = connected("alpha");
   EXPECT_REFUSED("CouldNotCreateLogicalTimeFactory",
                  alpha->createFederationExecution(federationName(), fom("Road.xml"), L"HLAlunarTime"));
   for (std::wstring const asked : {L"", L"HLAfloat64Time", L"HLAinteger64Time"}) {
      alpha->createFederationExecution(federationName(), fom("Road.xml"), asked);
      alpha.join(federation());
      EXPECT_EQ(alpha->getTimeFactory()->getName(), asked.empty() ? L"HLAfloat64Time" : asked);
      alpha->resignFederationExecution(NO_ACTION);
      alpha->destroyFederationExecution(federationName());
   }
}

TEST_P(FederationExecution, IsJoinedOnceByEachNameAndAmbassador)
{
   Federate& alpha = joined("alpha");
   Federate& beta = connected("beta");
   EXPECT_REFUSED("FederateAlreadyExecutionMember",
                  alpha->joinFederationExecution(L"gamma", L"test", federationName()));
   EXPECT_REFUSED("FederateNameAlreadyInUse",
                  beta->joinFederationExecution(L"alpha", L"test", federationName()));
   alpha->resignFederationExecution(NO_ACTION);
   FederateHandle const secondAlpha = beta->joinFederationExecution(L"alpha", L"test", federationName());
   EXPECT_EQ(beta->getFederateHandle(L"alpha"), secondAlpha);
}

TEST_P(FederationExecution, KnowsItsFederatesByNameAndHandle)
{
   Federate& alpha = joined("alpha");
   Federate& beta = connected("beta");
   Federate& gamma = connected("gamma");
   FederateHandle const unnamed = beta->joinFederationExecution(L"test", federationName());
   FederateHandle const other = gamma->joinFederationExecution(L"test", federationName());
   EXPECT_NE(unnamed, other);
   EXPECT_NE(unnamed, alpha.handle());

   std::wstring const givenName = alpha->getFederateName(unnamed);
   EXPECT_FALSE(givenName.empty());
   EXPECT_NE(givenName, alpha->getFederateName(other));
   EXPECT_EQ(alpha->getFederateHandle(givenName), unnamed);
   EXPECT_EQ(beta->getFederateHandle(L"alpha"), alpha.handle());
   EXPECT_EQ(beta->getFederateName(alpha.handle()), L"alpha");
   EXPECT_REFUSED("NameNotFound", alpha->getFederateHandle(L"nobody"));
   EXPECT_REFUSED("InvalidFederateHandle", alpha->getFederateName(FederateHandle()));

   beta->resignFederationExecution(NO_ACTION);
   EXPECT_REFUSED("FederateHandleNotKnown", alpha->getFederateName(unnamed));
   EXPECT_REFUSED("NameNotFound", alpha->getFederateHandle(givenName));
}

TEST_P(FederationExecution, KeepsAnAutomaticResignDirectiveForEachFederate)
{
   Federate& alpha = joined("alpha");
   Federate& beta = joined("beta");
   EXPECT_EQ(alpha->getAutomaticResignDirective(), NO_ACTION);
   for (ResignAction const action :
        {UNCONDITIONALLY_DIVEST_ATTRIBUTES, DELETE_OBJECTS, CANCEL_PENDING_OWNERSHIP_ACQUISITIONS,
         DELETE_OBJECTS_THEN_DIVEST, CANCEL_THEN_DELETE_THEN_DIVEST, NO_ACTION}) {
      alpha->setAutomaticResignDirective(action);
      EXPECT_EQ(alpha->getAutomaticResignDirective(), action);
      EXPECT_EQ(beta->getAutomaticResignDirective(), NO_ACTION);
   }
}

class FomModules : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(FomModules);

// The exception, and whether its message names the file.
template <class Call>
void expectRefusalNaming(std::string const& refused, std::string const& named, Call&& call)
{
   contract::Caught const caught = contract::caughtFrom(call);
   EXPECT_EQ(caught.type, refused);
   EXPECT_NE(caught.text.find(wide(named)), std::wstring::npos) << caught;
}

TEST_P(FomModules, ThatAreBrokenMakeNoFederationAndAreNotJoinedWith)
{
   struct
   {
      std::vector<std::wstring> modules;
      std::string refused;
      std::string named; // what the message has to name
   } const rows[] = {
      {{fom("Missing.xml")}, "CouldNotOpenFDD", "Missing.xml"},
      {{fom("")}, "CouldNotOpenFDD", "fom"},
      {{fom("Letter.xml")}, "ErrorReadingFDD", "Letter.xml"},
      {{fom("Empty.xml")}, "ErrorReadingFDD", "Empty.xml"},
      {{fom("CutOff.xml")}, "ErrorReadingFDD", "CutOff.xml"},
      {{fom("Recipe.xml")}, "ErrorReadingFDD", "Recipe.xml"},
      {{fom("Road.xml"), fom("Disagreeing.xml")}, "InconsistentFDD", "Disagreeing.xml"},
      {{fom("Road.xml"), fom("Missing.xml")}, "CouldNotOpenFDD", "Missing.xml"},
   };
   Federate& alpha = joined("alpha");
   Federate& beta = connected("beta");
   std::wstring const other = wide(uniqueName());
   for (auto const& row : rows) {
      SCOPED_TRACE(row.named);
      std::vector<std::function<void()>> services = {
         [&] { beta->createFederationExecution(other, row.modules); },
         [&] { beta->createFederationExecutionWithMIM(other, row.modules, wide(SYSTEM_TESTS_MIM)); },
         [&] { beta.join(federation(), row.modules); },
         [&] { beta->joinFederationExecution(L"test", federationName(), row.modules); }};
      if (row.modules.size() == 1) {
         services.push_back([&] { beta->createFederationExecution(other, row.modules[0]); });
      }
      for (auto const& service : services) {
         expectRefusalNaming(row.refused, row.named, service);
      }
   }
   beta->listFederationExecutions();
   expect(beta, {"reportFederationExecutions({" + federation() + "=HLAfloat64Time})"});
   EXPECT_REFUSED("NameNotFound", alpha->getFederateHandle(L"beta"));
   beta.join(federation(), {fom("Road.xml"), fom("Weather.xml")});
}

TEST_P(FomModules, AreNamedByPathOrByUrl)
{
   Federate& alpha = connected("alpha");
   std::wstring const copies = wide(SYSTEM_TESTS_COPIES "/");
   for (std::wstring const& designator :
        {copies + L"Weather (50% rain).xml", L"file://" + copies + L"Weather%20(50%25%20rain).xml",
         L"file:" + fom("Weather.xml")}) {
      SCOPED_TRACE(narrow(designator));
      alpha->createFederationExecution(federationName(), designator);
      alpha->destroyFederationExecution(federationName());
   }
}

TEST_P(FomModules, MayReplaceTheStandardManagementObjectModel)
{
   Federate& alpha = connected("alpha");
   std::vector<std::wstring> const modules = {fom("Road.xml")};
   struct
   {
      std::wstring mim;
      std::string refused;
      std::string named;
   } const rows[] = {{fom("Missing.xml"), "CouldNotOpenMIM", "Missing.xml"},
                     {fom("Letter.xml"), "ErrorReadingMIM", "Letter.xml"},
                     {fom("Recipe.xml"), "ErrorReadingMIM", "Recipe.xml"},
                     {L"HLAstandardMIM", "DesignatorIsHLAstandardMIM", "HLAstandardMIM"}};
   for (auto const& row : rows) {
      expectRefusalNaming(row.refused, row.named, [&] {
         alpha->createFederationExecutionWithMIM(federationName(), modules, row.mim);
      });
   }
   alpha->createFederationExecutionWithMIM(federationName(), modules, wide(SYSTEM_TESTS_MIM),
                                           L"HLAinteger64Time");
   alpha.join(federation());
   EXPECT_EQ(alpha->getTimeFactory()->getName(), L"HLAinteger64Time");
   alpha->resignFederationExecution(NO_ACTION);
   alpha->destroyFederationExecution(federationName());
}

} // namespace
