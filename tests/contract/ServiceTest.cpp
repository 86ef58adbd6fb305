// What each of the services sends, returns and throws.
#include "tests/support/ContractTest.h"
#include "tests/support/Shown.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <variant>

namespace contract {

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

using Answer = std::variant<std::nullptr_t, std::int64_t, double, Bytes, std::vector<std::int32_t>,
                            std::vector<std::int64_t>, std::u16string>;

void answer(Answer const& answer)
{
   fake::Core& core = fake::core();
   core.returnsNull = std::holds_alternative<std::nullptr_t>(answer);
   if (auto const* number = std::get_if<std::int64_t>(&answer)) {
      core.number = *number;
   } else if (auto const* real = std::get_if<double>(&answer)) {
      core.real = *real;
   } else if (auto const* bytes = std::get_if<Bytes>(&answer)) {
      core.bytes = octetsOf(*bytes);
   } else if (auto const* ints = std::get_if<std::vector<std::int32_t>>(&answer)) {
      core.ints = *ints;
   } else if (auto const* longs = std::get_if<std::vector<std::int64_t>>(&answer)) {
      core.longs = *longs;
   } else if (auto const* text = std::get_if<std::u16string>(&answer)) {
      core.text = *text;
   }
}

struct ResultCase
{
   Answer answer;
   std::wstring result;
};

// What every kind of Java result becomes, by the service where it is one service's alone, else by its type.
std::vector<ResultCase> resultsOf(JavaMethod const& method)
{
   using Int = std::int64_t;
   using Ints = std::vector<std::int32_t>;
   using Longs = std::vector<std::int64_t>;
   static std::map<std::string, std::vector<ResultCase>> const results = {
      {"queryLogicalTime", {{TestTime::encoded(5), L"Test<5>"}, {nullptr, L"none"}}},
      {"queryLookahead", {{TestInterval::encoded(6), L"Test<6>"}, {nullptr, L"none"}}},
      {"queryGALT", {{TestTime::encoded(7), L"valid Test<7>"}, {nullptr, L"invalid none"}}},
      {"queryLITS", {{TestTime::encoded(8), L"valid Test<8>"}, {nullptr, L"invalid none"}}},
      {"getOrderType_S", {{Int{0}, shown(RECEIVE)}, {Int{1}, shown(TIMESTAMP)}}},
      {"getTransportationTypeHandle_S", {{Int{1}, shown(RELIABLE)}, {Int{2}, shown(BEST_EFFORT)}}},
      {"getAutomaticResignDirective",
       {{Int{0}, shown(UNCONDITIONALLY_DIVEST_ATTRIBUTES)}, {Int{5}, shown(NO_ACTION)}}},
      {"getTimeFactory",
       {{u"TestTime", L"TestTime"},
        {u"HLAinteger64Time", L"HLAinteger64Time"},
        {u"", L"HLAfloat64Time"},
        {nullptr, L"HLAfloat64Time"},
        {u"unheard of", L"none"}}},
      {"V", {{nullptr, L""}}},
      {"I",
       {{Int{0}, L"#00000000"},
        {Int{0x01020304}, L"#01020304"},
        {Int{std::numeric_limits<std::int32_t>::min()}, L"#80000000"},
        {Int{-1}, L"#ffffffff"}}},
      {"Z", {{Int{0}, L"false"}, {Int{1}, L"true"}}},
      {"J", {{Int{4294967296}, L"4294967296"}, {Int{-1}, L"18446744073709551615"}}},
      {"D", {{1.0, L"3ff0000000000000"}, {-0.0, L"8000000000000000"}, {INFINITY, L"7ff0000000000000"}}},
      {"[I", {{Ints{3, -2, 1, 3}, L"{#00000001, #00000003, #fffffffe}"}, {Ints{}, L"{}"}, {nullptr, L"{}"}}},
      {"[J",
       {{Longs{5, 10}, L"5..10"},
        {Longs{0, 4294967296}, L"0..0"},
        {Longs{-1, 0x1FFFFFFFF, 7}, L"4294967295..4294967295"},
        {Longs{7}, L"7..0"},
        {Longs{}, L"0..0"},
        {nullptr, L"0..0"}}},
      {"[B",
       {{Bytes("80000001 00000003 AABBCC"), L"#8000000100000003aabbcc"},
        {Bytes("00000007 00000003 AA"), L"#0000000700000000"},
        {Bytes("00000007 FFFFFFFF AA"), L"#0000000700000000"},
        {Bytes(), L"#0000000000000000"},
        {nullptr, L"#0000000000000000"}}},
      {"Ljava/lang/String;",
       {{u"Z\u00fcrich", L"\"Z\u00fcrich\""},
        {u"", L"\"\""},
        {nullptr, L"\"\""},
        {std::u16string(u"a\0b", 3), std::wstring(L"\"a\0b\"", 5)},
        {u"\xD83D\xDE80\xDBFF\xDFFF\xFFFF", L"\"\U0001F680\U0010FFFF\uFFFF\""},
        // Halves of pairs stay as they are: alone, the wrong way round, at either end.
        {u"\xD83D\xD83D\xDE80x\xDE80\xD83D", std::wstring(L"\"") + wchar_t(0xD83D) + L"\U0001F680x" +
                                                wchar_t(0xDE80) + wchar_t(0xD83D) + L"\""}}},
   };
   auto const byName = results.find(method.name);
   return byName != results.end() ? byName->second : results.at(method.result());
}

class ServiceTest : public ContractTest, public testing::WithParamInterface<Service>
{
protected:
   // What the service throws if the core raises an exception of a class with these bases, each by its path.
   Caught caught(std::vector<std::string> const& classes, std::optional<std::u16string> const& message)
   {
      fake::core().raises = classes;
      fake::core().message = message;
      return caughtFrom([this] { GetParam().call(*ambassador); });
   }

   JavaMethod const& method = GetParam().method;
};

INSTANTIATE_TEST_SUITE_P(Each, ServiceTest, testing::ValuesIn(services()),
                         [](auto const& each) { return each.param.method.name; });

TEST_P(ServiceTest, SendsItsMessageAndReturnsWhatTheCoreAnswers)
{
   for (auto const& expected : resultsOf(method)) {
      answer(expected.answer);
      std::string called;
      fake::core().meanwhile = [&called] { called = fake::lastMethod(); };
      EXPECT_EQ(GetParam().call(*ambassador), expected.result);
      EXPECT_EQ(called, method.name + " " + method.signature);
      if (method.takesMessage()) {
         Bytes message(fake::lastMessage().data(), fake::lastMessage().size());
         if (method.name == "connect_FA_CM_S") {
            EXPECT_EQ(message.leadingInt(), token);
            message = message.from(4);
         }
         EXPECT_EQ(message, argumentBytes(codesOf(method.name)));
      }
   }
}

// Of the classes that a service lists, and that the exception is an instance of, the first is thrown.
TEST_P(ServiceTest, ThrowsTheFirstOfItsExceptionsThatFits)
{
   CaptureStderr();
   std::vector<std::string> classes;
   for (auto const& name : method.exceptions) {
      classes.push_back("hla/rti1516e/exceptions/" + name);
   }
   for (auto const& name : method.exceptions) {
      std::vector<std::string> fitting(classes.rbegin(), classes.rend());
      EXPECT_EQ(caught(fitting, u"why \xD83D\xDE80"), (Caught{name, L"why \U0001F680"}));
      EXPECT_EQ(caught({classes.front()}, std::nullopt),
                (Caught{name, L"hla.rti1516e.exceptions." + widened(name)}));
      expectClean(1);
      classes.erase(classes.begin());
   }
   EXPECT_EQ(GetCapturedStderr(), "");
}

TEST_P(ServiceTest, ThrowsInternalErrorForAnyOtherException)
{
   std::vector<std::string> unlisted = {"java/lang/NullPointerException"};
#define ADD_IF_UNLISTED(Name)                                                        \
   if (std::count(method.exceptions.begin(), method.exceptions.end(), #Name) == 0) { \
      unlisted.push_back("hla/rti1516e/exceptions/" #Name);                          \
   }
   RTI_FOR_EACH_EXCEPTION(ADD_IF_UNLISTED)
#undef ADD_IF_UNLISTED
   for (auto const& className : unlisted) {
      std::string dotted = className;
      std::replace(dotted.begin(), dotted.end(), '/', '.');
      CaptureStderr();
      EXPECT_EQ(caught({className}, u"why"), (Caught{"RTIinternalError", widened(dotted) + L": why"}));
      EXPECT_EQ(GetCapturedStderr(), "Unhandled exception\nstack trace of " + className + "\n");
   }
}

using ServicesTest = ContractTest;

TEST_F(ServicesTest, AreJustTheMethodsOfTheCore)
{
   std::set<std::string> methods = {"<init> ([B)V"};
   for (auto const& method : javaMethods()) {
      methods.insert(method.name + " " + method.signature);
   }
   EXPECT_EQ(methods.size(), 143U);
   EXPECT_EQ(fake::methodsLookedUp(), methods);
   std::set<std::string> natives;
   for (auto const& native : nativeNames()) {
      natives.insert(native + " ([B)V");
   }
   EXPECT_EQ(natives.size(), 60U);
   EXPECT_EQ(fake::nativesRegistered(), natives);
}

TEST_F(ServicesTest, SendAwkwardValues)
{
   struct Case
   {
      std::function<void()> call;
      Bytes message;
   };
   RTIambassador& rti = *ambassador;
   auto const save = [&](std::wstring const& label) {
      return [&, label] { rti.requestFederationSave(label); };
   };
   auto const character = [](unsigned int number) { return static_cast<wchar_t>(number); };
   auto const region = handle<RegionHandle>(2);
   auto const dimension = handle<DimensionHandle>(3);
   std::vector<Case> cases = {
      {save(std::wstring(L"a\0b", 3)), Bytes("00000003 0061 0000 0062")},
      {save(L"\uFFFF\U00010000\U0010FFFF"), Bytes("00000005 FFFF D800 DC00 DBFF DFFF")},
      // Half a pair travels as it is; what is no character becomes the replacement character.
      {save({character(0xD83D), L'x', character(0xDE80)}), Bytes("00000003 D83D 0078 DE80")},
      {save({character(0x110000), character(0x80000000), character(0xFFFFFFFF)}),
       Bytes("00000003 FFFD FFFD FFFD")},
      {[&] { rti.registerFederationSynchronizationPoint(L"", {}, {}); }, Bytes("00000000 00000000 00000000")},
      {[&] { rti.createFederationExecution(L"", std::vector<std::wstring>()); },
       Bytes("00000000 00000000 00000000")},
      {[&] { rti.registerObjectInstanceWithRegions({}, {}); }, Bytes("00000000 00000000")},
      {[&] { rti.retract(MessageRetractionHandle()); }, Bytes("00000000 00000000")},
      // Only the low 32 bits of a bound cross.
      {[&] { rti.setRangeBounds(region, dimension, RangeBounds(0x1FFFFFFFF, 0x100000000)); },
       Bytes("00000002 00000003 00000000FFFFFFFF 0000000000000000")},
      {[&] { rti.subscribeInteractionClassWithRegions({}, {region}, false); },
       Bytes("00000000 00000000 00000001 00000002")},
      {[&] { rti.subscribeInteractionClass({}); }, Bytes("00000000 00000001")},
      {[&] { rti.subscribeObjectClassAttributes({}, {}); }, Bytes("00000000 00000000 00000001 00000000")},
      {[&] { rti.synchronizationPointAchieved(L"p", false); }, Bytes("00000001 0070 00000000")},
      {[&] { rti.changeInteractionOrderType({}, RECEIVE); }, Bytes("00000000 00000000")},
      {[&] { rti.requestInteractionTransportationTypeChange({}, RELIABLE); }, Bytes("00000000 00000001")},
      {[&] { rti.connect(federate, HLA_IMMEDIATE); }, Bytes().int32(token).int32(2).int32(0)},
   };
   for (std::uint32_t value = 0; value <= 5; ++value) {
      cases.push_back({[&, value] { rti.resignFederationExecution(static_cast<ResignAction>(value)); },
                       Bytes().int32(value)});
   }
   for (std::uint32_t value = 0; value <= 6; ++value) {
      cases.push_back({[&, value] { rti.normalizeServiceGroup(static_cast<ServiceGroup>(value)); },
                       Bytes().int32(value + 1)});
   }
   // Each number of bytes is copied in a way of its own.
   for (std::size_t size = 0; size < 40; ++size) {
      Bytes const bytes(std::string("0123456789abcdefghijklmnopqrstuvwxyz....").data(), size);
      cases.push_back({[&, bytes] { rti.registerFederationSynchronizationPoint(L"", data(bytes)); },
                       Bytes("00000000").counted(bytes)});
   }
   for (auto const& each : cases) {
      each.call();
      EXPECT_EQ(Bytes(fake::lastMessage().data(), fake::lastMessage().size()), each.message)
         << fake::lastMethod();
   }
}

TEST_F(ServicesTest, LeaveTheDivestedAttributesUntouchedWhenTheyFail)
{
   AttributeHandleSet divested = samples::attributes;
   fake::core().raises = {"hla/rti1516e/exceptions/AttributeNotOwned"};
   EXPECT_THROW(ambassador->attributeOwnershipDivestitureIfWanted(samples::object, {}, divested),
                AttributeNotOwned);
   EXPECT_EQ(divested, samples::attributes);
}

TEST_F(ServicesTest, DecodeHandles)
{
   RTIambassador& rti = *ambassador;
   auto const encoded = data(Bytes("FEDCBA98"));
   int const calls = fake::calls();
   for (auto const& decoded :
        {shown(rti.decodeFederateHandle(encoded)), shown(rti.decodeObjectClassHandle(encoded)),
         shown(rti.decodeInteractionClassHandle(encoded)), shown(rti.decodeObjectInstanceHandle(encoded)),
         shown(rti.decodeAttributeHandle(encoded)), shown(rti.decodeParameterHandle(encoded)),
         shown(rti.decodeDimensionHandle(encoded)), shown(rti.decodeRegionHandle(encoded))}) {
      EXPECT_EQ(decoded, L"#fedcba98");
   }
   EXPECT_EQ(shown(rti.decodeMessageRetractionHandle(data(Bytes("FEDCBA98 00000002 FACE")))),
             L"#fedcba9800000002face");
   EXPECT_EQ(fake::calls(), calls);
}

TEST_F(ServicesTest, HaveTheirOtherSpellings)
{
   RTIambassador& rti = *ambassador;
   TestTime time(1);
   answer(nullptr);
   EXPECT_FALSE(rti.queryGALT(time) || rti.queryLITS(time));
   EXPECT_EQ(time.get(), 1U);
   answer(TestTime::encoded(2));
   EXPECT_TRUE(rti.queryGALT(time));
   EXPECT_EQ(time.get(), 2U);
   answer(TestTime::encoded(3));
   EXPECT_TRUE(rti.queryLITS(time));
   EXPECT_EQ(time.get(), 3U);
   answer(TestTime::encoded(4));
   rti.queryLogicalTime(time);
   EXPECT_EQ(time.get(), 4U);
   TestInterval interval(1);
   answer(TestInterval::encoded(5));
   rti.queryLookahead(interval);
   EXPECT_EQ(interval.get(), 5U);
   answer(std::int64_t{2});
   EXPECT_EQ(rti.getTransportationType(L"HLAbestEffort"), BEST_EFFORT);
   answer(u"HLAreliable");
   EXPECT_EQ(rti.getTransportationName(RELIABLE), L"HLAreliable");
   EXPECT_EQ(rtiName(), L"Tovu Evolved");
   EXPECT_EQ(rtiVersion(), L"5.3.2.0");
}

} // namespace
} // namespace contract
