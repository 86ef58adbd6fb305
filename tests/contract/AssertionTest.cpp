// What no core and no federate may send: values without a code, codes without a value, and messages that are
// none. The process ends, and says which assertion has failed.
#include "tests/support/ContractTest.h"

#include <array>
#include <functional>
#include <utility>

namespace contract {
namespace {

class AssertionTest : public ContractTest
{
protected:
   AssertionTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); } // the child of a fork has no VM

   // The bytes are the whole message, with the token between the two.
   void deliverBare(char const* before, char const* after) const
   {
      fake::callNative(saved, Bytes(before).int32(token).append(Bytes(after)));
   }
};

TEST_F(AssertionTest, NamesExpressionUnitAndLine)
{
   auto& rti = *ambassador;
   auto const notJoined = newAmbassador();
   std::string const firstMagic = "preMagic == PRE_MAGIC, file gen/cpp/FederateAmbassadorC, line [0-9]+";
   std::string const lastMagic = "postMagic == POST_MAGIC, file gen/cpp/FederateAmbassadorC, line [0-9]+";
   std::string const encoder = "false, file gen/cpp_handwritten/Encoder, line ";
   fake::core.result = Bytes("00000003");
   for (auto const& [violate, failure] : std::vector<std::pair<std::function<void()>, std::string>>{
           {[&] { deliverBare("63626161", "59585756"); }, firstMagic},
           {[&] { deliverBare("63626160", "59585757"); }, lastMagic},
           {[&] { connect(*notJoined), deliver(granted, someTime); }, lastMagic},
           {[&] { rti.changeInteractionOrderType({}, static_cast<OrderType>(3)); }, encoder + "151"},
           {[&] { rti.getOrderName(static_cast<OrderType>(0)); }, encoder + "151"},
           {[&] { rti.resignFederationExecution(static_cast<ResignAction>(6)); }, encoder + "127"},
           {[&] { rti.getTransportationTypeName(static_cast<TransportationType>(3)); }, encoder + "139"},
           {[&] { rti.normalizeServiceGroup(static_cast<ServiceGroup>(7)); }, encoder + "173"},
           {[&] { rti.getTransportationTypeHandle(L""); }, encoder + "247"},
           {[&] { rti.getOrderType(L""); }, encoder + "263"}}) {
      EXPECT_DEATH(violate(), "Assertion failed: " + failure + "\n");
   }
   std::string const reflection = "reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI";
   for (auto const& [native, bytes, line] : std::vector<std::array<std::string, 3>>{
           {reflection, "00000001 00000000 00000000 00000002 00000001 00000000 00000000", "628"},
           {reflection, "00000001 00000000 00000000 00000000 00000003 00000000 00000000", "655"},
           {reflection, "00000001 00000000 00000000 00000000 00000000 00000000 00000000", "655"},
           {"synchronizationPointRegistrationFailed_S_SPFR", "00000000 00000002", "112"},
           {"federationNotSaved_SFR", "00000006", "150"},
           {"federationNotSaved_SFR", "FFFFFFFF", "150"},
           {"federationNotRestored_RFR", "00000005", "187"},
           {"federationSaveStatusResponse_FHSSPX", "00000001 00000001 00000004", "406"},
           {"federationRestoreStatusResponse_FRSX", "00000001 00000001 00000002 00000006", "364"}}) {
      EXPECT_DEATH(deliver(native + "_Native", Bytes(bytes)),
                   "Assertion failed: false, file gen/cpp_handwritten/Decoder, line " + line + "\n");
   }
}

TEST_F(AssertionTest, NamesTheMethodThatACoreHasNot)
{
   fake::core.lacks = services().back().method;
   EXPECT_DEATH(newAmbassador(), "^The core on the CLASSPATH is of another version than this library.*\n?"
                                 "Cannot locate " +
                                    fake::core.lacks +
                                    "\\.\n.*id != 0, file gen/cpp/RTIambassadorC, line [0-9]+\n");
}

} // namespace
} // namespace contract
