#include "Fixture.h"
#include "Samples.h"

#include <RTI/time/HLAinteger64Time.h>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace contract {
namespace {

// The messages that the page for authors of cores shows: blocks that name their method, with the bytes of a
// line before its explanation.
std::map<std::string, Bytes> documentedMessages()
{
   std::map<std::string, Bytes> messages;
   std::ifstream page(CONTRACT_PAGE);
   std::string method;
   for (std::string line; std::getline(page, line);) {
      if (line.rfind("```", 0) == 0) {
         method = method.empty() && line.rfind("```text ", 0) == 0 ? line.substr(8) : "";
      } else if (!method.empty()) {
         messages[method].append(Bytes(line.substr(0, line.find("  "))));
      }
   }
   return messages;
}

// The callback context stands in the examples as this number.
constexpr std::uint32_t documentedContext = 0x1000;

class DocumentedExamplesTest : public ContractTest
{
protected:
   DocumentedExamplesTest() { member.join(u"HLAinteger64Time"); }

   std::map<std::string, Bytes> const messages = documentedMessages();
};

TEST_F(DocumentedExamplesTest, AreWhatTheLibrarySends)
{
   AttributeHandleValueMap const values{{handle<AttributeHandle>(3), data(Bytes("01 02"))}};
   AttributeHandleSetRegionHandleSetPairVector const pairs{
      {{handle<AttributeHandle>(3), handle<AttributeHandle>(4)}, {handle<RegionHandle>(1)}}};
   std::map<std::string, std::function<void()>> const services = {
      {"updateAttributeValues_OIH_AHVM_BX_LT",
       [&] { rti.updateAttributeValues(handle<ObjectInstanceHandle>(5), values, {}, HLAinteger64Time(7)); }},
      {"setRangeBounds_RH_DH_RB",
       [&] { rti.setRangeBounds(handle<RegionHandle>(1), handle<DimensionHandle>(2), RangeBounds(5, 10)); }},
      {"requestFederationSave_S", [&] { rti.requestFederationSave(L"Z\u00FCrich \U0001D11E"); }},
      {"subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S",
       [&] {
          rti.subscribeObjectClassAttributesWithRegions(handle<ObjectClassHandle>(6), pairs, true, L"a");
       }},
   };
   for (auto const& [method, call] : services) {
      core.forget();
      call();
      EXPECT_EQ(core.calls().back().method, method);
      EXPECT_EQ(core.calls().back().message, messages.at(method)) << method;
   }

   core.forget();
   rti.connect(member.federate, HLA_EVOKED);
   EXPECT_EQ(core.calls().back().message->from(4), messages.at("connect_FA_CM_S").from(4));
   EXPECT_EQ(messages.at("connect_FA_CM_S").leadingInt(), documentedContext);
}

TEST_F(DocumentedExamplesTest, AreWhatTheLibraryUnderstands)
{
   std::map<std::string, std::wstring> const callbacks = {
      {"federationSynchronized_S_FHS_Native", L"federationSynchronized(\"A\", {#00000002})"},
      {"reflectAttributeValues_OIH_AHVM_BX_OT_TTH_LT_OT_MRH_FASRI_Native",
       L"reflectAttributeValues(#00000005, {#00000003=ff}, , 2, 1, HLAinteger64Time<7>, 2, "
       L"#0000000900000000, "
       L"by #00000002 in none of {})"},
   };
   for (auto const& [native, call] : callbacks) {
      Bytes const& documented = messages.at(native);
      EXPECT_EQ(documented.from(4).leadingInt(), documentedContext);
      Bytes message("63626160");
      message.int32(member.token).append(documented.from(8));
      EXPECT_EQ(core.deliver({native, message}), std::nullopt);
      EXPECT_EQ(member.federate.takeCalled(), std::vector<std::wstring>{call});
   }
   EXPECT_EQ(messages.size(), 5 + callbacks.size());
}

} // namespace
} // namespace contract
