// What no core and no federate may send: values without a code, codes without a value, and messages that are
// none. The process ends, and says which assertion has failed.
#include "tests/support/ContractTest.h"

#include <functional>
#include <utility>

namespace contract {
namespace {

class AssertionTest : public ContractTest
{
protected:
   AssertionTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); } // the child of a fork has no VM

   // A callback with an order and a transportation type.
   void reflect(char const* codes) const
   {
      deliver("reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native",
              Bytes("00000001 00000000 00000000").append(Bytes(codes)).append(Bytes("00000000 00000000")));
   }

   // The bytes are the whole message, with the token between the two.
   void deliverBare(char const* before, char const* after) const
   {
      Bytes const message = Bytes(before).int32(token).append(Bytes(after));
      fake::callNative(saved, message);
   }

   void grantBeforeAnyJoin()
   {
      auto const newcomer = newAmbassador();
      connect(*newcomer);
      deliver(granted, Bytes("0000000000000001"));
   }
};

TEST_F(AssertionTest, NamesExpressionUnitAndLine)
{
   auto& rti = *ambassador;
   auto& core = fake::core();
   std::string const firstMagic = "preMagic == PRE_MAGIC, file gen/cpp/FederateAmbassadorC, line [0-9]+";
   std::string const lastMagic = "postMagic == POST_MAGIC, file gen/cpp/FederateAmbassadorC, line [0-9]+";
   std::string const encoder = "false, file gen/cpp_handwritten/Encoder, line ";
   std::string const decoder = "false, file gen/cpp_handwritten/Decoder, line ";
   core.number = 0;
   for (auto const& [violate, failure] : std::vector<std::pair<std::function<void()>, std::string>>{
           {[&] { deliverBare("63626161", "59585756"); }, firstMagic},
           {[&] { deliverBare("63626160", "59585757"); }, lastMagic},
           {[&] { grantBeforeAnyJoin(); }, lastMagic},
           {[&] { rti.changeInteractionOrderType({}, static_cast<OrderType>(3)); }, encoder + "151"},
           {[&] { rti.getOrderName(static_cast<OrderType>(0)); }, encoder + "151"},
           {[&] { rti.resignFederationExecution(static_cast<ResignAction>(6)); }, encoder + "127"},
           {[&] { rti.getTransportationTypeName(static_cast<TransportationType>(3)); }, encoder + "139"},
           {[&] { rti.normalizeServiceGroup(static_cast<ServiceGroup>(7)); }, encoder + "173"},
           {[&] { rti.getTransportationTypeHandle(L""); }, encoder + "247"},
           {[&] {
               core.number = 2;
               rti.getOrderType(L"");
            },
            encoder + "263"},
           {[&] { reflect("00000002 00000001"); }, decoder + "628"},
           {[&] { reflect("00000000 00000003"); }, decoder + "655"},
           {[&] { reflect("00000000 00000000"); }, decoder + "655"},
           {[&] {
               deliver("synchronizationPointRegistrationFailed_S_SPFR_Native", Bytes("00000000 00000002"));
            },
            decoder + "112"},
           {[&] { deliver("federationNotSaved_SFR_Native", Bytes("00000006")); }, decoder + "150"},
           {[&] { deliver("federationNotSaved_SFR_Native", Bytes("FFFFFFFF")); }, decoder + "150"},
           {[&] { deliver("federationNotRestored_RFR_Native", Bytes("00000005")); }, decoder + "187"},
           {[&] {
               deliver("federationSaveStatusResponse_FHSSPX_Native", Bytes("00000001 00000001 00000004"));
            },
            decoder + "406"},
           {[&] {
               deliver("federationRestoreStatusResponse_FRSX_Native",
                       Bytes("00000001 00000001 00000002 00000006"));
            },
            decoder + "364"},
        }) {
      EXPECT_DEATH(violate(), "Assertion failed: " + failure + "\n");
   }
}

TEST_F(AssertionTest, NamesTheMethodThatACoreHasNot)
{
   for (auto const& service : {services().front(), services()[services().size() / 2], services().back()}) {
      fake::core().lacks = service.method;
      EXPECT_DEATH(newAmbassador(), "^The core on the CLASSPATH is of another version than this library.*\n?"
                                    "Cannot locate " +
                                       service.method +
                                       "\\.\n.*id != 0, file gen/cpp/RTIambassadorC, line [0-9]+\n");
   }
   fake::core().lacks.clear();
}

} // namespace
} // namespace contract
