#include "FederationTest.h"

#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

namespace {

using namespace rti1516e;
using namespace system_tests;

class Connection : public FederationTest
{};
IN_BOTH_CALLBACK_MODELS(Connection);

TEST_P(Connection, IsMadeAndGivenUpOnceAtATime)
{
   Federate& alpha = connected("alpha");
   EXPECT_REFUSED("AlreadyConnected", alpha.connect());
   alpha->disconnect();
   EXPECT_REFUSED("NotConnected", alpha->listFederationExecutions());
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
   expect(alpha, {"reportFederationExecutions({" + federation() + ":HLAinteger64Time " + second +
                  ":HLAfloat64Time})"});
   alpha->destroyFederationExecution(wide(second));
   alpha->listFederationExecutions();
   expect(alpha, {"reportFederationExecutions({" + federation() + ":HLAinteger64Time})"});
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
   struct
   {
      std::wstring asked;
      std::wstring given;
   } const rows[] = {{L"", L"HLAfloat64Time"},
                     {L"HLAfloat64Time", L"HLAfloat64Time"},
                     {L"HLAinteger64Time", L"HLAinteger64Time"}};
   Federate& alpha = connected("alpha");
   EXPECT_REFUSED("CouldNotCreateLogicalTimeFactory",
                  alpha->createFederationExecution(federationName(), fom("Road.xml"), L"HLAlunarTime"));
   for (auto const& row : rows) {
      alpha->createFederationExecution(federationName(), fom("Road.xml"), row.asked);
      alpha.join(federation());
      EXPECT_EQ(alpha->getTimeFactory()->getName(), row.given);
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
   EXPECT_REFUSED("FederationExecutionDoesNotExist",
                  beta->joinFederationExecution(L"beta", L"test", L"no such federation"));

   alpha->resignFederationExecution(NO_ACTION);
   EXPECT_REFUSED("FederateNotExecutionMember", alpha->resignFederationExecution(NO_ACTION));
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

struct BrokenModules
{
   std::vector<std::string> modules;
   std::string refused;
   std::string named; // what the message has to name
};

std::vector<BrokenModules> const brokenModules = {
   {{"Missing.xml"}, "CouldNotOpenFDD", "Missing.xml"},
   {{""}, "CouldNotOpenFDD", "fom"},
   {{"Letter.xml"}, "ErrorReadingFDD", "Letter.xml"},
   {{"Empty.xml"}, "ErrorReadingFDD", "Empty.xml"},
   {{"CutOff.xml"}, "ErrorReadingFDD", "CutOff.xml"},
   {{"Recipe.xml"}, "ErrorReadingFDD", "Recipe.xml"},
   {{"Road.xml", "Disagreeing.xml"}, "InconsistentFDD", "Disagreeing.xml"},
   {{"Road.xml", "Missing.xml"}, "CouldNotOpenFDD", "Missing.xml"},
};

std::vector<std::wstring> designators(std::vector<std::string> const& files)
{
   std::vector<std::wstring> result;
   for (auto const& file : files) {
      result.push_back(fom(file));
   }
   return result;
}

// The exception, and whether its message names the file.
template <class Call>
void expectRefusalNaming(std::string const& refused, std::string const& named, Call&& call)
{
   try {
      call();
      ADD_FAILURE() << "accepts " << named;
   } catch (Exception const& exception) {
      EXPECT_EQ(className(exception), refused);
      EXPECT_NE(narrow(exception.what()).find(named), std::string::npos) << narrow(exception.what());
   }
}

TEST_P(FomModules, ThatAreBrokenMakeNoFederation)
{
   Federate& alpha = connected("alpha");
   for (auto const& row : brokenModules) {
      SCOPED_TRACE(row.named);
      auto const modules = designators(row.modules);
      expectRefusalNaming(row.refused, row.named,
                          [&] { alpha->createFederationExecution(federationName(), modules); });
      if (modules.size() == 1) {
         expectRefusalNaming(row.refused, row.named,
                             [&] { alpha->createFederationExecution(federationName(), modules[0]); });
      }
      expectRefusalNaming(row.refused, row.named, [&] {
         alpha->createFederationExecutionWithMIM(federationName(), modules, wide(SYSTEM_TESTS_MIM));
      });
   }
   alpha->listFederationExecutions();
   expect(alpha, {"reportFederationExecutions({})"});
}

TEST_P(FomModules, ThatAreBrokenAreNotJoinedWith)
{
   Federate& alpha = joined("alpha");
   Federate& beta = connected("beta");
   for (auto const& row : brokenModules) {
      SCOPED_TRACE(row.named);
      auto const modules = designators(row.modules);
      expectRefusalNaming(row.refused, row.named, [&] { beta.join(federation(), modules); });
      expectRefusalNaming(row.refused, row.named,
                          [&] { beta->joinFederationExecution(L"test", federationName(), modules); });
   }
   EXPECT_REFUSED("NameNotFound", alpha->getFederateHandle(L"beta"));
   beta.join(federation(), {fom("Road.xml"), fom("Weather.xml")});
}

TEST_P(FomModules, AreNamedByPathOrByUrl)
{
   Federate& alpha = connected("alpha");
   std::wstring const directory = wide(SYSTEM_TESTS_FOM "/");
   for (std::wstring const& designator :
        {directory + L"Weather.xml", directory + L"Weather (50% rain).xml",
         L"file:" + directory + L"Weather.xml", L"file://" + directory + L"Weather%20(50%25%20rain).xml"}) {
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
