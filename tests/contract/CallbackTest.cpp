// What each of the callbacks brings, and what becomes of what the federate throws.
#include "tests/support/ContractTest.h"

#include <new>
#include <stdexcept>

namespace contract {
namespace {

class CallbackTest : public ContractTest
{
protected:
   // The text of the Java exception that what a callback throws becomes, in JNI's own encoding.
   template <class Thrown>
   std::string arriving(Thrown const& thrown)
   {
      federate.inCallback = [&] { throw thrown; };
      auto const pending = deliver(saved);
      EXPECT_EQ(pending.find(federateInternalError), 0U) << pending;
      return pending.substr(std::min(pending.size(), federateInternalError.size()));
   }
};

// And throws whatever the federate throws.
TEST_F(CallbackTest, BringsWhatWasSent)
{
   for (auto const& callback : callbacks()) {
      withRandomOctets(100, [&](Octets& octets) {
         auto const arguments = callback.makeArguments(octets);
         federate.inCallback = [] {};
         EXPECT_EQ(deliver(callback.native, arguments), "none");
         Bytes const text = octets.bytes();
         federate.inCallback = [&text] { throw std::string(text.begin(), text.end()); };
         EXPECT_EQ(deliver(callback.native, arguments).find(federateInternalError), 0U);
         RecordingFederate::Calls::value_type const call{callback.member, arguments};
         EXPECT_EQ(federate.takeCalled(), (RecordingFederate::Calls{call, call}));
      });
   }
   expectClean(1);
}

// No core sends these, but they have a meaning.
TEST_F(CallbackTest, UnderstandsWhatIsNotCanonical)
{
   auto const expect = [this](char const* native, char const* sent, char const* understood) {
      EXPECT_EQ(deliver(native, Bytes(sent)), "none");
      EXPECT_EQ(federate.takeCalled().at(0).second, Bytes(understood)) << native;
   };
   // A count below zero is none, and anything but zero is true.
   expect("attributesInScope_OIH_AHS_Native", "00000001 FFFFFFFE", "00000001 00000000");
   expect("removeObjectInstance_OIH_BX_OT_FASRI_Native", "00000001 00000000 00000000 00000300 00000005",
          "00000001 00000000 00000000 00000001 00000005");
   // In any order, and the first of those with the same key counts.
   expect("provideAttributeValueUpdate_OIH_AHS_BX_Native",
          "00000001 00000003 80000001 00000002 80000001 00000000",
          "00000001 00000002 00000002 80000001 00000000");
   expect(
      "receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native",
      "00000001 00000002 00000003 00000001 AA 00000003 00000000 00000000 00000000 00000001 00000000 00000000",
      "00000001 00000001 00000003 00000001 AA 00000000 00000000 00000001 00000000 00000000");
}

TEST_F(CallbackTest, TurnsWhateverIsThrownIntoFederateInternalError)
{
   EXPECT_EQ(arriving(FederateInternalError(L"")), "");
   // Of a wide text the low 8 bits of each unit are kept, zeros too.
   EXPECT_EQ(arriving(NameNotFound(std::wstring(L"\u00e9\u20ac\U0001F680\u0100z\0y", 7))),
             "\xC3\xA9\xC2\xAC\x3D\xC2\x80\xC0\x80z\xC0\x80y");
   // Of a narrow text UTF-8 is understood; what is none arrives byte by byte.
   EXPECT_EQ(arriving(std::runtime_error("Z\xC3\xBCrich")), "Z\xC3\xBCrich");
   EXPECT_EQ(arriving(std::bad_alloc()), "std::bad_alloc");
   for (auto const& [thrown, text] : std::vector<std::pair<std::string, std::string>>{
           {"Z\xC3\xBCrich \xF0\x9F\x9A\x80", "Z\xC3\xBCrich \xED\xA0\xBD\xED\xBA\x80"},
           {{'a', '\0', 'b'}, {'a', '\xC0', '\x80', 'b'}},
           {"Z\xFCrich\xC3", "Z\xC3\xBCrich\xC3\x83"},
           {"\xC0\x80", "\xC3\x80\xC2\x80"},
           {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xC2\x80"},
           {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"},
           {std::string(100'000, 'x'), std::string(100'000, 'x')},
        }) {
      EXPECT_EQ(arriving(thrown), text);
   }
   EXPECT_EQ(arriving(42), "Unknown C++ exception");
   EXPECT_EQ(arriving(L"a wide text"), "Unknown C++ exception");
}

TEST_F(CallbackTest, MayCallServicesAndThrowOutOfThem)
{
   federate.inCallback = [&] { ambassador->requestFederationSave(L"inside"); };
   EXPECT_EQ(deliver(saved), "none");
   EXPECT_EQ(fake::account.lastMethod, "requestFederationSave_S ([B)V");
   fake::core.raises = {exceptionPath + "SaveInProgress"};
   EXPECT_EQ(deliver(saved), federateInternalError + "raised");
}

TEST_F(CallbackTest, MayThrowWhileAJavaExceptionOfItsOwnIsPending)
{
   federate.inCallback = [] {
      jclass const left = fake::env.FindClass("java/lang/IllegalStateException");
      fake::env.ThrowNew(left, "left");
      fake::env.DeleteLocalRef(left);
      throw std::runtime_error("thrown");
   };
   EXPECT_EQ(deliver(saved), federateInternalError + "thrown");
}

// No ambassador was ever known by these: neighbours of a live one's in each of its bytes.
TEST_F(CallbackTest, IsRefusedForATokenThatNobodyHas)
{
   auto const notConnected = newAmbassador();
   auto const own = token;
   for (unsigned int shift = 0; shift < 32; shift += 4) {
      for (std::uint32_t step = 1; step < 16; ++step) {
         for (auto const stranger : {own ^ step << shift, own + (step << shift), step - 1}) {
            token = stranger;
            EXPECT_EQ(deliver(saved).find(federateInternalError + "The RTI ambassador of this callback is "),
                      0U);
         }
      }
   }
   EXPECT_TRUE(federate.takeCalled().empty());
}

TEST_F(CallbackTest, ReachesTheFederateOfTheLatestConnect)
{
   RecordingFederate second;
   fake::core.raises = {exceptionPath + "AlreadyConnected"};
   EXPECT_THROW(ambassador->connect(second, HLA_IMMEDIATE), AlreadyConnected);
   fake::core.raises.clear();
   EXPECT_EQ(deliver(saved), "none");
   EXPECT_EQ(second.takeCalled().size(), 1U);

   // Of one that has not come back yet, too, and of one that was before a disconnect.
   fake::core.meanwhile = [&] { EXPECT_EQ(deliver(saved), "none"); };
   ambassador->connect(federate, HLA_IMMEDIATE);
   ambassador->disconnect();
   EXPECT_EQ(deliver(saved), "none");
   EXPECT_EQ(federate.takeCalled().size(), 2U);
   EXPECT_TRUE(second.takeCalled().empty());
}

} // namespace
} // namespace contract
