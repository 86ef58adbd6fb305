#include "FederationTest.h"

#include <atomic>
#include <utility>

namespace system_tests {

std::wstring fom(std::string const& file) { return wide(SYSTEM_TESTS_FOM "/" + file); }

std::string uniqueName()
{
   static std::atomic<int> count{0};
   return "federation-" + std::to_string(++count);
}

Federate& FederationTest::connected(std::string const& name)
{
   auto found = _federates.find(name);
   if (found == _federates.end()) {
      auto federate = std::make_unique<Federate>(name, GetParam(), _names);
      federate->connect();
      found = _federates.emplace(name, std::move(federate)).first;
   }
   return *found->second;
}

Federate& FederationTest::joined(std::string const& name)
{
   Federate& federate = connected(name);
   if (!_created) {
      create({fom("Road.xml")});
   }
   if (!federate.handle().isValid()) {
      federate.join(_federation);
   }
   return federate;
}

void FederationTest::create(std::vector<std::wstring> const& modules, std::string const& timeImplementation)
{
   Federate creator("creator", HLA_EVOKED, _names);
   creator.connect();
   creator->createFederationExecution(federationName(), modules, wide(timeImplementation));
   _created = true;
}

void FederationTest::TearDown()
{
   for (auto const& entry : _federates) {
      Federate& federate = *entry.second;
      federate.onCallback = nullptr;
      std::string const resigned =
         refusal([&] { federate->resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
      EXPECT_TRUE(resigned == "nothing" || resigned == "FederateNotExecutionMember" ||
                  resigned == "NotConnected")
         << federate.name() << " resigns: " << resigned;
   }
   Federate destroyer("destroyer", HLA_EVOKED, _names);
   destroyer.connect();
   std::string const destroyed = refusal([&] { destroyer->destroyFederationExecution(federationName()); });
   EXPECT_TRUE(destroyed == "nothing" || destroyed == "FederationExecutionDoesNotExist") << destroyed;
   for (auto const& entry : _federates) {
      Federate& federate = *entry.second;
      EXPECT_REFUSED("nothing", federate->disconnect()) << federate.name();
   }
}

void FederationTest::expect(Federate& federate, Callbacks const& callbacks)
{
   EXPECT_EQ(federate.callbacks(callbacks.size()), callbacks) << federate.name();
}

void FederationTest::expectEach(std::vector<Federate*> const& federates, Callbacks const& callbacks)
{
   for (Federate* const federate : federates) {
      expect(*federate, callbacks);
   }
}

std::string modelName(testing::TestParamInfo<CallbackModel> const& info)
{
   return info.param == HLA_EVOKED ? "Evoked" : "Immediate";
}

} // namespace system_tests
