#include "Fixture.h"
#include "Samples.h"
#include "Services.h"

#include <RTI/RTI1516.h>

#include <algorithm>
#include <limits>

namespace contract {
namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

struct ResultCase
{
   Answer answer;
   std::wstring result;
};

// What every kind of Java result becomes, by the service where it is one service's alone, else by its type.
std::vector<ResultCase> resultsOf(JavaMethod const& method)
{
   static std::map<std::string, std::vector<ResultCase>> const timeResults = {
      {"queryLogicalTime", {{TestTime::encoded(5), L"Test<5>"}, {nullptr, L"none"}}},
      {"queryLookahead", {{TestInterval::encoded(6), L"Test<6>"}, {nullptr, L"none"}}},
      {"queryGALT", {{TestTime::encoded(7), L"valid Test<7>"}, {nullptr, L"invalid none"}}},
      {"queryLITS", {{TestTime::encoded(8), L"valid Test<8>"}, {nullptr, L"invalid none"}}},
   };
   static std::map<std::string, std::vector<ResultCase>> const results = {
      {"getOrderType_S", {{jint{0}, shown(RECEIVE)}, {jint{1}, shown(TIMESTAMP)}}},
      {"getTransportationTypeHandle_S", {{jint{1}, shown(RELIABLE)}, {jint{2}, shown(BEST_EFFORT)}}},
      {"getAutomaticResignDirective",
       {{jint{0}, shown(UNCONDITIONALLY_DIVEST_ATTRIBUTES)}, {jint{5}, shown(NO_ACTION)}}},
      {"getTimeFactory",
       {{u"TestTime", L"TestTime"},
        {u"HLAinteger64Time", L"HLAinteger64Time"},
        {u"", L"HLAfloat64Time"},
        {nullptr, L"HLAfloat64Time"},
        {u"unheard of", L"none"}}},
      {"V", {{nullptr, L""}}},
      {"I",
       {{jint{0}, L"#00000000"},
        {jint{0x01020304}, L"#01020304"},
        {std::numeric_limits<jint>::min(), L"#80000000"},
        {jint{-1}, L"#ffffffff"}}},
      {"Z", {{false, L"false"}, {true, L"true"}}},
      {"J",
       {{jlong{0}, L"0"},
        {jlong{4294967296}, L"4294967296"},
        {std::numeric_limits<jlong>::max(), L"9223372036854775807"},
        {jlong{-1}, L"18446744073709551615"}}},
      {"D",
       {{1.0, L"3ff0000000000000"},
        {-0.0, L"8000000000000000"},
        {std::numeric_limits<double>::denorm_min(), L"0000000000000001"},
        {std::numeric_limits<double>::infinity(), L"7ff0000000000000"}}},
      {"[I",
       {{std::vector<jint>{3, -2, 1, 3}, L"{#00000001, #00000003, #fffffffe}"},
        {std::vector<jint>{}, L"{}"},
        {nullptr, L"{}"}}},
      {"[J",
       {{std::vector<jlong>{5, 10}, L"5..10"},
        {std::vector<jlong>{0, 4294967296}, L"0..0"},
        {std::vector<jlong>{-1, 0x1FFFFFFFF, 7}, L"4294967295..4294967295"},
        {std::vector<jlong>{7}, L"7..0"},
        {std::vector<jlong>{}, L"0..0"},
        {nullptr, L"0..0"}}},
      {"[B",
       {{Bytes("80000001 00000003 AABBCC"), L"#8000000100000003aabbcc"},
        {Bytes("00000007 00000000"), L"#0000000700000000"},
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
        {u"\xDE80\xD83D", std::wstring(L"\"") + wchar_t(0xDE80) + wchar_t(0xD83D) + L"\""},
        {u"\xD83D\xD83D\xDE80x\xDE80",
         std::wstring(L"\"") + wchar_t(0xD83D) + L"\U0001F680x" + wchar_t(0xDE80) + L"\""}}},
   };
   for (auto const& [key, table] :
        {std::pair{method.name, &timeResults}, {method.name, &results}, {method.result(), &results}}) {
      auto const found = table->find(key);
      if (found != table->end()) {
         return found->second;
      }
   }
   throw std::logic_error("no results for " + method.name);
}

class ServiceTest : public ContractTest, public testing::WithParamInterface<Service>
{
protected:
   Service const& service = GetParam();
   JavaMethod const& method = service.method;

   Caught caught()
   {
      return caughtFrom([this] { service.call(rti); });
   }
};

TEST_P(ServiceTest, SendsItsMessage)
{
   core.answer(method.name, resultsOf(method).front().answer);
   service.call(rti);

   auto const call = core.calls().at(0);
   EXPECT_EQ(call.method, method.name);
   ASSERT_EQ(call.message.has_value(), method.takesMessage());
   if (method.name == "connect_FA_CM_S") {
      EXPECT_EQ(call.message->leadingInt(), member.token);
      EXPECT_EQ(call.message->from(4), argumentBytes(codesOf(method.name)));
   } else if (call.message) {
      EXPECT_EQ(*call.message, argumentBytes(codesOf(method.name)));
   }
}

TEST_P(ServiceTest, ReturnsWhatTheCoreAnswers)
{
   for (auto const& expected : resultsOf(method)) {
      core.answer(method.name, expected.answer);
      EXPECT_EQ(service.call(rti), expected.result);
   }
}

TEST_P(ServiceTest, ThrowsTheCoresExceptions)
{
   CaptureStderr();
   for (auto const& name : method.exceptions) {
      core.answer(method.name, JavaException{hlaClass(name), u"why \xD83D\xDE80"});
      EXPECT_EQ(caught(), (Caught{name, L"why \U0001F680"}));
      core.answer(method.name, JavaException{hlaClass(name), std::nullopt});
      EXPECT_EQ(caught(), (Caught{name, widened(hlaClass(name))}));
   }
   EXPECT_EQ(GetCapturedStderr(), "");
}

TEST_P(ServiceTest, ThrowsInternalErrorForAnyOtherException)
{
   auto const& listed = method.exceptions;
   auto const unlisted = *std::find_if(exceptionClasses().begin(), exceptionClasses().end(), [&](auto& name) {
      return std::find(listed.begin(), listed.end(), name) == listed.end();
   });
   for (auto const& className :
        {hlaClass(unlisted), hlaClass("FederateInternalError"), std::string("java.lang.NullPointerException"),
         std::string("java.lang.StackOverflowError")}) {
      CaptureStderr();
      core.answer(method.name, JavaException{className, u"why"});
      EXPECT_EQ(caught(), (Caught{"RTIinternalError", widened(className + ": why")}));
      auto const printed = GetCapturedStderr();
      EXPECT_EQ(printed.find("Unhandled exception\n"), 0U) << printed;
      EXPECT_NE(printed.find(className + ": why\n\tat "), std::string::npos) << printed;
   }
}

INSTANTIATE_TEST_SUITE_P(Each, ServiceTest, testing::ValuesIn(services()),
                         [](auto const& each) { return each.param.method.name; });

TEST(ServiceTableTest, HasEveryJavaMethod)
{
   EXPECT_EQ(javaMethods().size(), 142U);
   EXPECT_EQ(services().size(), 142U);
   EXPECT_EQ(nativeNames().size(), 60U);
}

using ServicesTest = ContractTest;

TEST_F(ServicesTest, LeaveTheDivestedAttributesUntouchedWhenTheyFail)
{
   AttributeHandleSet divested = samples::attributes;
   core.answer("attributeOwnershipDivestitureIfWanted_OIH_AHS",
               JavaException{hlaClass("AttributeNotOwned"), u"why"});
   EXPECT_THROW(rti.attributeOwnershipDivestitureIfWanted(samples::object, {}, divested), AttributeNotOwned);
   EXPECT_EQ(divested, samples::attributes);
}

TEST_F(ServicesTest, DecodeHandles)
{
   auto const encoded = data(Bytes("FEDCBA98"));
   EXPECT_EQ(shown(rti.decodeFederateHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeObjectClassHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeInteractionClassHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeObjectInstanceHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeAttributeHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeParameterHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeDimensionHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeRegionHandle(encoded)), L"#fedcba98");
   EXPECT_EQ(shown(rti.decodeMessageRetractionHandle(data(Bytes("FEDCBA98 00000002 FACE")))),
             L"#fedcba9800000002face");
   EXPECT_TRUE(core.calls().empty());
}

TEST_F(ServicesTest, HaveTheirOtherSpellings)
{
   TestTime time(1);
   core.answer("queryGALT", TestTime::encoded(2));
   EXPECT_TRUE(rti.queryGALT(time));
   EXPECT_EQ(time.get(), 2U);
   EXPECT_FALSE(rti.queryLITS(time));
   EXPECT_EQ(time.get(), 2U);
   core.answer("queryLITS", TestTime::encoded(3));
   EXPECT_TRUE(rti.queryLITS(time));
   EXPECT_EQ(time.get(), 3U);
   core.answer("queryLogicalTime", TestTime::encoded(4));
   rti.queryLogicalTime(time);
   EXPECT_EQ(time.get(), 4U);
   TestInterval interval(1);
   core.answer("queryLookahead", TestInterval::encoded(5));
   rti.queryLookahead(interval);
   EXPECT_EQ(interval.get(), 5U);
   core.answer("getTransportationTypeHandle_S", jint{2});
   EXPECT_EQ(rti.getTransportationType(L"HLAbestEffort"), BEST_EFFORT);
   core.answer("getTransportationTypeName_TTH", u"HLAreliable");
   EXPECT_EQ(rti.getTransportationName(RELIABLE), L"HLAreliable");
}

TEST(LibraryTest, TellsItsNameAndVersion)
{
   EXPECT_EQ(rtiName(), L"Tovu Evolved");
   EXPECT_EQ(rtiVersion(), L"5.3.2.0");
}

} // namespace
} // namespace contract
