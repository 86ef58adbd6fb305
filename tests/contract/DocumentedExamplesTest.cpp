#include "tests/support/ContractTest.h"

#include <RTI/time/HLAinteger64Time.h>

#include <fstream>
#include <map>

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

using DocumentedExamplesTest = ContractTest;

// Where the callback context stands, the number is the example's.
TEST_F(DocumentedExamplesTest, AreWhatTheLibrarySendsAndUnderstands)
{
   join(u"HLAinteger64Time");
   auto messages = documentedMessages();
   RTIambassador& rti = *ambassador;
   auto const expectSent = [&](char const* method, std::size_t context = 0) {
      EXPECT_EQ(fake::account.lastMessage.from(context), messages.at(method).from(context));
      messages.erase(method);
   };
   auto const attribute = handle<AttributeHandle>(3);
   auto const region = handle<RegionHandle>(1);
   rti.updateAttributeValues(handle<ObjectInstanceHandle>(5), {{attribute, data(Bytes("01 02"))}}, {},
                             HLAinteger64Time(7));
   expectSent("updateAttributeValues_OIH_AHVM_BX_LT");
   rti.setRangeBounds(region, handle<DimensionHandle>(2), RangeBounds(5, 10));
   expectSent("setRangeBounds_RH_DH_RB");
   rti.requestFederationSave(L"Z\u00FCrich \U0001D11E");
   expectSent("requestFederationSave_S");
   rti.subscribeObjectClassAttributesWithRegions(
      handle<ObjectClassHandle>(6), {{{attribute, handle<AttributeHandle>(4)}, {region}}}, true, L"a");
   expectSent("subscribeObjectClassAttributesWithRegions_OCH_ASRSPL_Z_S");
   rti.connect(federate, HLA_EVOKED);
   expectSent("connect_FA_CM_S", 4);

   for (auto const& callback : callbacks()) {
      if (auto const found = messages.find(callback.native); found != messages.end()) {
         Bytes const arguments(found->second.data() + 8, found->second.size() - 12); // within the envelope
         EXPECT_EQ(deliver(callback.native, arguments), "none");
         EXPECT_EQ(federate.takeCalled(), (RecordingFederate::Calls{{callback.member, arguments}}));
         messages.erase(found);
      }
   }
   EXPECT_TRUE(messages.empty());
}

} // namespace
} // namespace contract
