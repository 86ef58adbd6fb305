#include "Fixture.h"
#include "Samples.h"
#include "Services.h"

#include <stdexcept>
#include <thread>

namespace contract {
namespace {

// The name of the callback that a native leads to.
std::wstring callbackOf(std::string const& native) { return widened(native.substr(0, native.find('_'))); }

class NativeTest : public ContractTest, public testing::WithParamInterface<std::string>
{
protected:
   std::string const& native = GetParam();
   std::vector<std::string> const codes = codesOf(native);
   std::vector<std::wstring> const expected = {callbackOf(native) + shownArguments(codes)};
   Delivery delivery{native, member.message(argumentBytes(codes))};
};

TEST_P(NativeTest, CallsTheFederateWithWhatItDecodes)
{
   EXPECT_EQ(core.deliver(delivery), std::nullopt);
   EXPECT_EQ(member.federate.takeCalled(), expected);
}

TEST_P(NativeTest, PassesOnWhatTheFederateThrows)
{
   delivery.onJavaThread = true;
   member.federate.inCallback = [] { throw FederateInternalError(L"x"); };
   EXPECT_EQ(core.deliver(delivery), (JavaException{hlaClass("FederateInternalError"), u"x"}));
   EXPECT_EQ(member.federate.takeCalled(), expected);
}

INSTANTIATE_TEST_SUITE_P(Each, NativeTest, testing::ValuesIn(nativeNames()),
                         [](auto const& each) { return each.param; });

class CallbackTest : public ContractTest
{
protected:
   std::optional<JavaException> deliver(std::string const& native, Bytes const& arguments)
   {
      return core.deliver({native, member.message(arguments)});
   }

   std::wstring delivered(std::string const& native, Bytes const& arguments)
   {
      EXPECT_EQ(deliver(native, arguments), std::nullopt);
      auto const called = member.federate.takeCalled();
      return called.size() == 1 ? called[0] : std::to_wstring(called.size()) + L" callbacks";
   }

   // What arrives in Java of what a callback throws.
   template <class Thrown>
   std::u16string arriving(Thrown const& thrown)
   {
      member.federate.inCallback = [&] { throw thrown; };
      auto const pending = deliver("federationSaved_Native", Bytes());
      EXPECT_EQ(pending ? pending->className : "nothing", hlaClass("FederateInternalError"));
      return pending.value_or(JavaException{}).message.value_or(u"no message");
   }
};

TEST_F(CallbackTest, DecodesEveryCodeOfAnEnumeration)
{
   struct Enumeration
   {
      std::string native;
      char const* before; // the code, in the message
      char const* after;
      std::wstring arguments; // with % for the value
      std::uint32_t firstCode;
      std::vector<int> values; // from the first code on
   };
   for (auto const& [native, before, after, arguments, firstCode, values] : std::vector<Enumeration>{
           {"synchronizationPointRegistrationFailed_S_SPFR_Native", "00000000", "", L"(\"\", %)", 0, {0, 1}},
           {"federationNotSaved_SFR_Native", "", "", L"(%)", 0, {0, 1, 2, 3, 4, 5}},
           {"federationNotRestored_RFR_Native", "", "", L"(%)", 0, {0, 1, 2, 3, 4}},
           {"removeObjectInstance_OIH_BX_OT_FASRI_Native",
            "00000001 00000000",
            "00000000",
            L"(#00000001, , %, by nobody #00000000)",
            0,
            {RECEIVE, TIMESTAMP}},
           {"confirmInteractionTransportationTypeChange_ICH_TTH_Native",
            "00000001",
            "",
            L"(#00000001, %)",
            1,
            {RELIABLE, BEST_EFFORT}},
        }) {
      auto code = firstCode;
      for (int const value : values) {
         std::wstring expected = callbackOf(native) + arguments;
         expected.replace(expected.find(L'%'), 1, std::to_wstring(value));
         EXPECT_EQ(delivered(native, Bytes(before).int32(code++).append(Bytes(after))), expected);
      }
   }
}

TEST_F(CallbackTest, DecodesSupplementsByTheirFlags)
{
   std::string const native = "reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native";
   std::string const before = "00000001 00000000 00000000 00000000 00000001";
   std::wstring const start = L"reflectAttributeValues(#00000001, {}, , 1, 1, ";
   for (auto const& [info, expected] : std::map<std::string, std::wstring>{
           {"00000000 00000000", L"by nobody #00000000 in none of {}"},
           {"00000001 00000000 00000009", L"by #00000009 in none of {}"},
           {"00000000 00000001 00000001 00000005", L"by nobody #00000000 in {#00000005}"},
           {"80000000 FFFFFFFF 00000009 00000000", L"by #00000009 in {}"},
        }) {
      EXPECT_EQ(delivered(native, Bytes(before + info)), start + expected + L")") << info;
   }
   EXPECT_EQ(
      delivered("removeObjectInstance_OIH_BX_OT_FASRI_Native", Bytes("00000001 00000000 00000001 00000000")),
      L"removeObjectInstance(#00000001, , 2, by nobody #00000000)");
}

TEST_F(CallbackTest, DecodesAwkwardValues)
{
   struct Awkward
   {
      char const* native;
      Bytes arguments;
      std::wstring expected;
   };
   for (auto const& [native, arguments, expected] : std::vector<Awkward>{
           {"connectionLost_S_Native", Bytes().text(u""), L"connectionLost(\"\")"},
           {"connectionLost_S_Native", Bytes().text(std::u16string(u"a\0b", 3)),
            std::wstring(L"connectionLost(\"a\0b\")", 21)},
           {"connectionLost_S_Native", Bytes().text(u"\xD83D\xDE80\xDBFF\xDFFF"),
            L"connectionLost(\"\U0001F680\U0010FFFF\")"},
           {"connectionLost_S_Native", Bytes().text(u"\xDE80\xD83D"),
            std::wstring(L"connectionLost(\"") + wchar_t(0xDE80) + wchar_t(0xD83D) + L"\")"},
           {"connectionLost_S_Native", Bytes("FFFFFFFF"), L"connectionLost(\"\")"},
           // A count below 1 is an empty collection, and what comes twice is in a set or map once.
           {"federationSynchronized_S_FHS_Native", Bytes("00000000 80000000"),
            L"federationSynchronized(\"\", {})"},
           {"federationSynchronized_S_FHS_Native", Bytes("00000000 00000003 00000002 80000000 00000002"),
            L"federationSynchronized(\"\", {#00000002, #80000000})"},
           {"multipleObjectInstanceNameReservationFailed_S_Native", Bytes("00000000"),
            L"multipleObjectInstanceNameReservationFailed({})"},
           {"multipleObjectInstanceNameReservationFailed_S_Native",
            Bytes().int32(2).text(u"same").text(u"same"),
            L"multipleObjectInstanceNameReservationFailed({\"same\"})"},
           {"receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native",
            Bytes("00000001 00000003 00000009 00000001 AA 00000005 00000001 CC 00000009 00000002 BBBB")
               .append(Bytes("00000000 00000000 00000001 00000000 00000000")),
            L"receiveInteraction(#00000001, {#00000005=cc, #00000009=aa}, , 1, 1, "
            L"by nobody #00000000 in none of {})"},
           {"reportFederationExecutions_FEIS_Native", Bytes("FFFFFFFF"), L"reportFederationExecutions({})"},
           {"federationSaveStatusResponse_FHSSPX_Native",
            Bytes("00000002 00000001 00000000 00000001 00000003"),
            L"federationSaveStatusResponse({#00000001=0, #00000001=3})"},
           {"announceSynchronizationPoint_S_BX_Native", Bytes("00000000 00000000"),
            L"announceSynchronizationPoint(\"\", )"},
           {"requestRetraction_MRH_Native", Bytes("FFFFFFFF 00000000"),
            L"requestRetraction(#ffffffff00000000)"},
        }) {
      EXPECT_EQ(delivered(native, arguments), expected);
   }
}

TEST_F(CallbackTest, DecodesLargeValues)
{
   Bytes const value(std::string(10'000'000, 'x').data(), 10'000'000);
   Bytes large("00000001 00000001 00000007");
   large.counted(value).append(Bytes("00000000 00000000 00000001 00000000 00000000"));
   EXPECT_EQ(delivered("reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native", large),
             L"reflectAttributeValues(#00000001, {#00000007=" + widened(value.hexadecimal()) +
                L"}, , 1, 1, by nobody #00000000 in none of {})");

   constexpr std::uint32_t count = 10'000;
   Bytes many("00000001");
   many.int32(count);
   std::wstring values;
   for (std::uint32_t i = 1; i <= count; ++i) {
      many.int32(i).counted(Bytes().int32(~i));
      values += (i == 1 ? L"" : L", ") + shown(handle<ParameterHandle>(i)) + L"=" +
                widened(Bytes().int32(~i).hexadecimal());
   }
   many.append(Bytes("00000000 00000000 00000001 00000000 00000000"));
   EXPECT_EQ(delivered("receiveInteraction_ICH_PHVM_BX_OT_TTH_FASRI_Native", many),
             L"receiveInteraction(#00000001, {" + values + L"}, , 1, 1, by nobody #00000000 in none of {})");
}

struct Unusual : std::exception
{
   explicit Unusual(char const* text) : _text(text) {}
   char const* what() const noexcept override { return _text; }

private:
   char const* _text;
};

TEST_F(CallbackTest, TurnsWhateverIsThrownIntoFederateInternalError)
{
   EXPECT_EQ(arriving(FederateInternalError(L"x")), u"x");
   EXPECT_EQ(arriving(FederateInternalError(L"")), u"");
   EXPECT_EQ(arriving(NameNotFound(L"no such name")), u"no such name");
   // Of a wide text the low 8 bits of each unit are kept, zeros too.
   EXPECT_EQ(arriving(NameNotFound(std::wstring(L"\u00e9\u20ac\U0001F680\u0100z\0y", 7))),
             std::u16string(u"\u00e9\u00ac\u003d\u0080\u0000z\u0000y", 8));
   EXPECT_EQ(arriving(std::runtime_error("plain")), u"plain");
   EXPECT_EQ(arriving(std::bad_alloc()), u"std::bad_alloc");
   EXPECT_EQ(arriving(Unusual("")), u"");
   EXPECT_EQ(arriving(std::string("thrown text")), u"thrown text");
   // Of a narrow text UTF-8 is understood; what is none arrives byte by byte.
   EXPECT_EQ(arriving(std::string("Z\xC3\xBCrich \xF0\x9F\x9A\x80")), u"Z\u00fcrich \xD83D\xDE80");
   EXPECT_EQ(arriving(std::string("a\0b", 3)), std::u16string(u"a\0b", 3));
   EXPECT_EQ(arriving(Unusual("Z\xFCrich")), u"Z\u00fcrich");
   EXPECT_EQ(arriving(std::string("\xC3")), u"\u00c3");
   EXPECT_EQ(arriving(std::string("\xC0\x80")), u"\u00c0\u0080");
   EXPECT_EQ(arriving(std::string("\xED\xA0\x80")), u"\u00ed\u00a0\u0080");
   EXPECT_EQ(arriving(std::string("\xF4\x90\x80\x80")), u"\u00f4\u0090\u0080\u0080");
   EXPECT_EQ(arriving(42), u"Unknown C++ exception");
   EXPECT_EQ(arriving("a literal"), u"Unknown C++ exception");
   EXPECT_EQ(arriving(L"a wide text"), u"Unknown C++ exception");
   EXPECT_EQ(arriving(std::string(100'000, 'x')), std::u16string(100'000, u'x'));
}

TEST_F(CallbackTest, MayCallServicesAndThrowOutOfThem)
{
   member.federate.inCallback = [&] { rti.requestFederationSave(L"inside"); };
   EXPECT_EQ(deliver("federationSaved_Native", Bytes()), std::nullopt);
   EXPECT_EQ(core.calls().at(0).message, Bytes().text(u"inside"));

   core.answer("requestFederationSave_S", JavaException{hlaClass("SaveInProgress"), u"from inside"});
   EXPECT_EQ(deliver("federationSaved_Native", Bytes()),
             (JavaException{hlaClass("FederateInternalError"), u"from inside"}));
}

TEST_F(CallbackTest, ArrivesWhileItIsEvoked)
{
   auto const evoke = [&](Delivery const& delivery) {
      core.answer("evokeCallback_D", delivery);
      EXPECT_FALSE(rti.evokeCallback(0.5));
      return core.pending();
   };
   std::thread::id calledOn;
   member.federate.inCallback = [&] { calledOn = std::this_thread::get_id(); };
   Delivery delivery{"federationSaved_Native", member.message(Bytes())};
   EXPECT_EQ(evoke(delivery), std::nullopt);
   EXPECT_EQ(member.federate.takeCalled().size(), 1U);
   EXPECT_EQ(calledOn, std::this_thread::get_id());

   delivery.onJavaThread = true;
   EXPECT_EQ(evoke(delivery), std::nullopt);
   EXPECT_EQ(member.federate.takeCalled().size(), 1U);
   EXPECT_NE(calledOn, std::this_thread::get_id());

   member.federate.inCallback = [] { throw std::runtime_error("while evoked"); };
   EXPECT_EQ(evoke(delivery), (JavaException{hlaClass("FederateInternalError"), u"while evoked"}));
}

// No context was ever known by these: neighbours of a live one in each of its bytes.
TEST_F(CallbackTest, IsRefusedForATokenThatNobodyHas)
{
   auto const notConnected = newAmbassador();
   Member other;
   std::vector<std::uint32_t> tokens = {0, 0xFFFFFFFF};
   for (unsigned int shift = 0; shift < 32; shift += 4) {
      for (std::uint32_t step = 1; step < 16; ++step) {
         tokens.push_back(member.token ^ step << shift);
         tokens.push_back(member.token + (step << shift));
      }
   }
   for (auto const token : tokens) {
      if (token == other.token) {
         continue;
      }
      Bytes const message = Bytes("63626160").int32(token).append(Bytes("59585756"));
      auto const pending = core.deliver({"federationSaved_Native", message});
      ASSERT_TRUE(pending) << token;
      EXPECT_EQ(pending->className, hlaClass("FederateInternalError"));
      EXPECT_FALSE(pending->message.value_or(u"").empty());
   }
   EXPECT_TRUE(member.federate.takeCalled().empty());
   EXPECT_TRUE(other.federate.takeCalled().empty());
}

TEST_F(CallbackTest, ReachesTheFederateOfTheLatestConnectEvenIfThatFailed)
{
   RecordingFederate second;
   core.answer("connect_FA_CM_S", JavaException{hlaClass("AlreadyConnected"), u"why"});
   EXPECT_THROW(rti.connect(second, HLA_IMMEDIATE), AlreadyConnected);
   EXPECT_EQ(deliver("federationSaved_Native", Bytes()), std::nullopt);
   EXPECT_EQ(second.takeCalled().size(), 1U);
   EXPECT_TRUE(member.federate.takeCalled().empty());
}

TEST_F(CallbackTest, StillArrivesAfterDisconnect)
{
   rti.disconnect();
   EXPECT_EQ(delivered("connectionLost_S_Native", Bytes().text(u"late")), L"connectionLost(\"late\")");
}

} // namespace
} // namespace contract
