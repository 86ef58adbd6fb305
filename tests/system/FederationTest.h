// The ground of the scenarios: a federation of the test's own, in which federates come to be when they are
// named.
#ifndef RTI1516E_TESTS_SYSTEM_FEDERATIONTEST_H
#define RTI1516E_TESTS_SYSTEM_FEDERATIONTEST_H

#include "Federate.h"
#include "Refusal.h"
#include "Text.h"

#include <RTI/RTI1516.h>

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace system_tests {

using Callbacks = Federate::Callbacks;

// The designator of a FOM module that the tests bring along, or of one that they do not.
std::wstring fom(std::string const& file);

// A name that no other federation of this process has.
std::string uniqueName();

class FederationTest : public testing::TestWithParam<CallbackModel>
{
protected:
   // Has all federates that have come to be resign, destroys the federation and disconnects them.
   void TearDown() override;

   // Connected, and joined too. Each name is one federate.
   Federate& connected(std::string const& name);
   Federate& joined(std::string const& name);

   // Destroys the federate and with it its ambassador, in whatever state it is.
   void forget(std::string const& name) { _federates.erase(name); }

   // Makes the test's federation otherwise than joined does, which takes the module Road.xml.
   void create(std::vector<std::wstring> const& modules, std::string const& timeImplementation = "");

   std::string const& federation() const { return _federation; }
   std::wstring federationName() const { return wide(_federation); }
   Names& names() { return _names; }

   // The next callbacks are these, in this order, and no other comes.
   static void expect(Federate& federate, Callbacks const& callbacks);

   // Every one of them is called back with the same.
   static void expectEach(std::vector<Federate*> const& federates, Callbacks const& callbacks);

private:
   Names _names;
   std::string const _federation = uniqueName();
   bool _created = false;
   std::map<std::string, std::unique_ptr<Federate>> _federates;
};

std::string modelName(testing::TestParamInfo<CallbackModel> const& info);

} // namespace system_tests

// Runs the scenarios of a suite in both callback models.
#define IN_BOTH_CALLBACK_MODELS(Suite) \
   INSTANTIATE_TEST_SUITE_P(, Suite, testing::Values(HLA_EVOKED, HLA_IMMEDIATE), modelName)

#endif
