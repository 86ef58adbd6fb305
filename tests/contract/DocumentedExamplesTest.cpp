#include "tests/support/ContractTest.h"

#include <RTI/time/HLAinteger64Time.h>

#include <fstream>
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
   void SetUp() override
   {
      ContractTest::SetUp();
      join(u"HLAinteger64Time");
   }

   std::map<std::string, Bytes> const messages = documentedMessages();
};

TEST_F(DocumentedExamplesTest, AreWhatTheLibrarySends)
{
   RTIambassador& rti = *ambassador;
   AttributeHandleValueMap const values{{handle<AttributeHandle>(3), data(Bytes("01 02"))}};
   AttributeHandleSetRegionHandleSetPairVector const pairs{
      {{handle<AttributeHandle>(3), handle<AttributeHandle>(4)}, {handle<RegionHandle>(1)}}};
   rti.updateAttributeValues(handle<ObjectInstanceHandle>(5), values, {}, HLAinteger64Time(7));
   EXPECT_EQ(fake::lastMessage(), octetsOf(messages.at("updateAttributeValues_OIH_AHVM_BX_LT")));
   rti.setRangeBounds(handle<RegionHandle>(1), handle<DimensionHandle>(2), RangeBounds(5, 10));
   EXPECT_EQ(fake::lastMessage(), octetsOf(messages.at("setRangeBounds_RH_DH_RB")));
   rti.requestFederationSave(L"Z\u00FCrich \U0001D11E");
   EXPECT_EQ(fake::lastMessage(), octetsOf(messages.at("requestFederationSave_S")));
   rti.subscribeObjectClassAttributesWithRegions(handle<ObjectClassHandle>(6), pairs, true, L"a");
   EXPECT_EQ(fake::lastMessage(),
             octetsOf(messages.at("subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S")));
   rti.connect(federate, HLA_EVOKED);
   Bytes const sent(fake::lastMessage().data(), fake::lastMessage().size());
   EXPECT_EQ(sent.from(4), messages.at("connect_FA_CM_S").from(4));
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
      Bytes const message = Bytes("63626160").int32(token).append(documented.from(8));
      EXPECT_EQ(fake::callNative(native, octetsOf(message)), "none");
      EXPECT_EQ(federate.takeCalled(), std::vector<std::wstring>{call});
   }
   EXPECT_EQ(messages.size(), 5 + callbacks.size());
}

} // namespace
} // namespace contract
