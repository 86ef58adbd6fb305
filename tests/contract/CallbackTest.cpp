// What each of the callbacks brings, and what becomes of what the federate throws.
#include "tests/support/ContractTest.h"

#include <random>
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
      auto const pending = deliver("federationSaved_Native");
      EXPECT_EQ(pending.find(federateInternalError), 0U) << pending;
      return pending.substr(std::min(pending.size(), federateInternalError.size()));
   }
};

// The fuzzer goes on with this for longer, and from more than chance.
TEST_F(CallbackTest, BringsWhatWasSent)
{
   std::mt19937 random(1);
   for (auto const& native : nativeNames()) {
      for (int n = 0; n < 100; ++n) {
         // Small octets are often codes and counts, any others are good for numbers.
         std::vector<std::uint8_t> made(400);
         std::generate(made.begin(), made.end(), [&] { return random() % (n % 2 == 0 ? 8 : 256); });
         Octets octets(made.data(), made.size());
         RandomCallback const callback(native, octets);
         EXPECT_EQ(deliver(native, callback.arguments), "none");
         EXPECT_EQ(federate.takeCalled(), std::vector<std::wstring>{callback.called});
      }
   }
   expectClean(1);
}

struct Unusual : std::exception
{
   char const* what() const noexcept override { return "Z\xFCrich"; }
};

TEST_F(CallbackTest, TurnsWhateverIsThrownIntoFederateInternalError)
{
   EXPECT_EQ(arriving(FederateInternalError(L"")), "");
   // Of a wide text the low 8 bits of each unit are kept, zeros too.
   EXPECT_EQ(arriving(NameNotFound(std::wstring(L"\u00e9\u20ac\U0001F680\u0100z\0y", 7))),
             "\xC3\xA9\xC2\xAC\x3D\xC2\x80\xC0\x80z\xC0\x80y");
   EXPECT_EQ(arriving(std::runtime_error("plain")), "plain");
   EXPECT_EQ(arriving(std::bad_alloc()), "std::bad_alloc");
   // Of a narrow text UTF-8 is understood; what is none arrives byte by byte.
   EXPECT_EQ(arriving(std::string("Z\xC3\xBCrich \xF0\x9F\x9A\x80")),
             "Z\xC3\xBCrich \xED\xA0\xBD\xED\xBA\x80");
   EXPECT_EQ(arriving(std::runtime_error("Z\xC3\xBCrich")), "Z\xC3\xBCrich");
   EXPECT_EQ(arriving(std::string("a\0b", 3)), "a\xC0\x80"
                                               "b");
   EXPECT_EQ(arriving(Unusual()), "Z\xC3\xBCrich");
   EXPECT_EQ(arriving(std::string("\xC3")), "\xC3\x83");
   EXPECT_EQ(arriving(std::string("\xC0\x80")), "\xC3\x80\xC2\x80");
   EXPECT_EQ(arriving(std::string("\xED\xA0\x80")), "\xC3\xAD\xC2\xA0\xC2\x80");
   EXPECT_EQ(arriving(std::string("\xF4\x90\x80\x80")), "\xC3\xB4\xC2\x90\xC2\x80\xC2\x80");
   EXPECT_EQ(arriving(42), "Unknown C++ exception");
   EXPECT_EQ(arriving(L"a wide text"), "Unknown C++ exception");
   EXPECT_EQ(arriving(std::string(100'000, 'x')), std::string(100'000, 'x'));
}

TEST_F(CallbackTest, MayCallServicesAndThrowOutOfThem)
{
   federate.inCallback = [&] { ambassador->requestFederationSave(L"inside"); };
   EXPECT_EQ(deliver("federationSaved_Native"), "none");
   EXPECT_EQ(fake::lastMethod(), "requestFederationSave_S ([B)V");
   fake::core().raises = {"hla/rti1516e/exceptions/SaveInProgress"};
   EXPECT_EQ(deliver("federationSaved_Native"), federateInternalError + "raised");
}

TEST_F(CallbackTest, MayThrowWhileAJavaExceptionOfItsOwnIsPending)
{
   federate.inCallback = [] {
      JavaVM* vm = nullptr;
      jsize count = 0;
      JNI_GetCreatedJavaVMs(&vm, 1, &count);
      void* attached = nullptr;
      vm->AttachCurrentThread(&attached, nullptr);
      auto* const env = static_cast<JNIEnv*>(attached);
      jclass const left = env->FindClass("java/lang/IllegalStateException");
      env->ThrowNew(left, "left");
      env->DeleteLocalRef(left);
      throw std::runtime_error("thrown");
   };
   EXPECT_EQ(deliver("federationSaved_Native"), federateInternalError + "thrown");
}

// No ambassador was ever known by these: neighbours of a live one's in each of its bytes.
TEST_F(CallbackTest, IsRefusedForATokenThatNobodyHas)
{
   auto const notConnected = newAmbassador();
   auto const own = token;
   std::vector<std::uint32_t> tokens = {0, 0xFFFFFFFF};
   for (unsigned int shift = 0; shift < 32; shift += 4) {
      for (std::uint32_t step = 1; step < 16; ++step) {
         tokens.push_back(own ^ step << shift);
         tokens.push_back(own + (step << shift));
      }
   }
   for (auto const stranger : tokens) {
      token = stranger;
      EXPECT_EQ(deliver("federationSaved_Native")
                   .find(federateInternalError + "The RTI ambassador of this callback is "),
                0U);
   }
   EXPECT_TRUE(federate.takeCalled().empty());
}

TEST_F(CallbackTest, ReachesTheFederateOfTheLatestConnect)
{
   RecordingFederate second;
   fake::core().raises = {"hla/rti1516e/exceptions/AlreadyConnected"};
   EXPECT_THROW(ambassador->connect(second, HLA_IMMEDIATE), AlreadyConnected);
   fake::core().raises.clear();
   EXPECT_EQ(deliver("federationSaved_Native"), "none");
   EXPECT_EQ(second.takeCalled().size(), 1U);

   // Of one that has not come back yet, too, and of one that was before a disconnect.
   fake::core().meanwhile = [&] { EXPECT_EQ(deliver("federationSaved_Native"), "none"); };
   ambassador->connect(federate, HLA_IMMEDIATE);
   ambassador->disconnect();
   EXPECT_EQ(deliver("federationSaved_Native"), "none");
   EXPECT_EQ(federate.takeCalled().size(), 2U);
   EXPECT_TRUE(second.takeCalled().empty());
}

TEST_F(CallbackTest, ReachesTheAmbassadorThatItIsForAlone)
{
   auto const other = newAmbassador();
   RecordingFederate others;
   other->connect(others, HLA_EVOKED);
   auto const peer = fake::lastPeer();
   fake::core().text = u"HLAinteger64Time";
   other->joinFederationExecution(L"type", L"federation");
   ambassador->enableCallbacks();
   EXPECT_NE(fake::lastPeer(), peer);
   EXPECT_EQ(deliver("timeAdvanceGrant_LT_Native", TestTime::encoded(2)), "none");
   EXPECT_EQ(federate.takeCalled(), std::vector<std::wstring>{L"timeAdvanceGrant(Test<2>)"});
   EXPECT_TRUE(others.takeCalled().empty());
}

} // namespace
} // namespace contract
