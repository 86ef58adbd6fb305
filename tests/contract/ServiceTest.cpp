// What each of the services sends, returns and throws, and what the page for authors of cores says of that.
#include "tests/support/ContractTest.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <set>

namespace contract {
namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

struct Method
{
   std::string signature;
   std::vector<std::string> exceptions; // in the order in which they are tested
};

// What the page for authors of cores lists: the methods in a table, the natives as items.
struct Page
{
   Page()
   {
      static std::regex const row("\\| `(.*)` \\| `(.*)` \\| (.*) \\|"), item("- `(.*)`"), word("\\w+");
      std::ifstream page(CONTRACT_METHODS);
      std::smatch parts;
      for (std::string line; std::getline(page, line);) {
         if (std::regex_match(line, parts, item)) {
            natives.insert(parts.str(1) + " ([B)V");
         } else if (std::regex_match(line, parts, row)) {
            std::string const exceptions = parts[3];
            methods[parts[1]] = {
               parts[2], {std::sregex_token_iterator(exceptions.begin(), exceptions.end(), word), {}}};
         }
      }
   }
   std::map<std::string, Method> methods;
   std::set<std::string> natives;
};
Page const page;

class ServiceTest : public ContractTest, public testing::WithParamInterface<Service>
{
protected:
   Bytes call()
   {
      Octets octets(nullptr, 0);
      return GetParam().make(octets).call(*ambassador);
   }

   // What the service throws if the core raises an exception of a class with these bases, each by its path.
   Caught caught(std::vector<std::string> const& classes, std::optional<std::u16string> const& message)
   {
      fake::core.raises = classes;
      fake::core.message = message;
      return caughtFrom([this] { call(); });
   }

   Method const& method = page.methods.at(GetParam().method);
};

INSTANTIATE_TEST_SUITE_P(Each, ServiceTest, testing::ValuesIn(services()),
                         [](auto const& each) { return each.param.method; });

TEST_P(ServiceTest, SendsItsMessage)
{
   withRandomOctets(30, [&](Octets& octets) {
      auto const made = GetParam().make(octets);
      std::string called;
      fake::core.meanwhile = [&called] { called = fake::account.lastMethod; };
      fake::core.result = method.signature.back() == 'I' ? std::optional<Bytes>("00000001") : std::nullopt;
      fake::account.lastMessage.clear();
      made.call(*ambassador);
      EXPECT_EQ(called, GetParam().method + " " + method.signature);
      Bytes before = called.rfind("connect", 0) == 0 ? Bytes().int32(token) : Bytes();
      EXPECT_EQ(fake::account.lastMessage, before.append(made.message));
   });
}

// What the core answers, and the encoding of what becomes of it.
struct Answer
{
   std::optional<Bytes> given;
   Bytes result;
};
Answer same(char const* bytes) { return {Bytes(bytes), Bytes(bytes)}; }
Answer text(std::u16string const& units) { return {Bytes().units(units), Bytes().text(units)}; }
auto const null = std::nullopt;

// By the service where it is one service's alone, else by the type of the result.
std::map<std::string, std::vector<Answer>> const answers = {
   {"queryLogicalTime", {{someTime, someTime}, {null, {}}}},
   {"queryLookahead", {{TestInterval::encoded(6), TestInterval::encoded(6)}, {null, {}}}},
   {"queryGALT", {{someTime, Bytes("00000001").append(someTime)}, {null, Bytes("00000000")}}},
   {"queryLITS", {{someTime, Bytes("00000001").append(someTime)}, {null, Bytes("00000000")}}},
   {"getOrderType_S", {same("00000000"), same("00000001")}},
   {"getTransportationTypeHandle_S", {same("00000001"), same("00000002")}},
   {"getAutomaticResignDirective", {same("00000000"), same("00000005")}},
   {"getTimeFactory",
    {text(u"TestTime"),
     text(u"HLAinteger64Time"),
     {null, Bytes().text(u"HLAfloat64Time")},
     {Bytes(), Bytes().text(u"HLAfloat64Time")},
     {Bytes().units(u"unheard of"), {}}}},
   {"V", {{null, {}}}},
   {"I", {same("00000000"), same("01020304"), same("80000000"), same("FFFFFFFF")}},
   {"Z", {same("00000000"), same("00000001")}},
   {"J", {same("FFFFFFFFFFFFFFFE")}},
   {"D", {same("C004000000000000")}},
   {"[I",
    {{Bytes("00000003 FFFFFFFE 00000001 00000003"), Bytes("00000003 00000001 00000003 FFFFFFFE")},
     {null, Bytes("00000000")}}},
   {"[J",
    {same("0000000000000005 000000000000000A"),
     {Bytes("FFFFFFFFFFFFFFFF 00000001FFFFFFFF 0000000000000007"),
      Bytes("00000000FFFFFFFF 00000000FFFFFFFF")},
     {Bytes("0000000000000007"), Bytes("0000000000000007 0000000000000000")},
     {Bytes(), Bytes(16)},
     {null, Bytes(16)}}},
   {"[B",
    {same("80000001 00000003 AABBCC"),
     {Bytes("00000007 00000003 AA"), Bytes("00000007 00000000")},
     {Bytes("00000007 FFFFFFFF AA"), Bytes("00000007 00000000")},
     {Bytes("00000007 00000001 AABB"), Bytes("00000007 00000001 AA")},
     {Bytes("00000007 000000"), Bytes("00000007 00000000")},
     {Bytes("000007"), Bytes(8)},
     {Bytes(), Bytes(8)},
     {null, Bytes(8)}}},
   // Halves of pairs stay as they are: alone, the wrong way round, at either end.
   {"Ljava/lang/String;",
    {text(u"Z\u00fcrich"),
     text({u'a', 0, u'b'}),
     text(u"\xD83D\xDE80\xDBFF\xDFFF\xFFFF"),
     text(u"\xD83D\xD83D\xDE80x\xDE80\xD83D"),
     {null, Bytes(4)}}},
};

TEST_P(ServiceTest, ReturnsWhatTheCoreAnswers)
{
   auto const type = method.signature.substr(method.signature.find(')') + 1);
   auto const byName = answers.find(GetParam().method);
   for (auto const& answer : byName != answers.end() ? byName->second : answers.at(type)) {
      fake::core.result = answer.given;
      EXPECT_EQ(call(), answer.result);
   }
}

// Of the classes that a service lists, and that the exception is an instance of, the first is thrown. Any
// other exception is an RTIinternalError, and told of.
TEST_P(ServiceTest, ThrowsTheFirstOfItsExceptionsThatFits)
{
   auto const dotted = [](std::string text) {
      std::replace(text.begin(), text.end(), '/', '.');
      return std::wstring(text.begin(), text.end());
   };
   std::vector<std::string> fitting;
   CaptureStderr();
   for (auto name = method.exceptions.rbegin(); name != method.exceptions.rend(); ++name) {
      fitting.push_back(exceptionPath + *name);
      EXPECT_EQ(caught(fitting, u"why \xD83D\xDE80"), (Caught{*name, L"why \U0001F680"}));
      EXPECT_EQ(caught({fitting.back()}, std::nullopt), (Caught{*name, dotted(fitting.back())}));
      expectClean(1);
   }
   EXPECT_EQ(GetCapturedStderr(), "");
   std::vector<std::string> others = {"java/lang/NullPointerException"};
#define ADD(Name) others.push_back(exceptionPath + #Name);
   RTI_FOR_EACH_EXCEPTION(ADD)
#undef ADD
   for (auto const& other : others) {
      if (std::count(fitting.begin(), fitting.end(), other) == 0) {
         CaptureStderr();
         EXPECT_EQ(caught({other}, u"why"), (Caught{"RTIinternalError", dotted(other) + L": why"}));
         EXPECT_EQ(GetCapturedStderr(), "Unhandled exception\nstack trace of " + other + "\n");
      }
   }
}

using ServicesTest = ContractTest;

TEST_F(ServicesTest, AreJustTheMethodsOfTheCore)
{
   std::set<std::string> methods = {"<init> ([B)V"};
   for (auto const& [name, method] : page.methods) {
      methods.insert(name + " " + method.signature);
   }
   EXPECT_EQ(fake::account.methods, methods);
   EXPECT_EQ(fake::account.natives, page.natives);
}

TEST_F(ServicesTest, SendAwkwardValues)
{
   RTIambassador& rti = *ambassador;
   auto const character = [](unsigned int number) { return static_cast<wchar_t>(number); };
   auto const expectSent = [](char const* bytes) { EXPECT_EQ(fake::account.lastMessage, Bytes(bytes)); };
   // What is no character becomes the replacement character.
   rti.requestFederationSave({character(0x110000), character(0x80000000), character(0xFFFFFFFF)});
   expectSent("00000003 FFFD FFFD FFFD");
   // Only the low 32 bits of a bound cross.
   rti.setRangeBounds({}, {}, RangeBounds(0x1FFFFFFFF, 0x100000000));
   expectSent("00000000 00000000 00000000FFFFFFFF 0000000000000000");
   rti.subscribeInteractionClass({});
   expectSent("00000000 00000001");
   rti.subscribeObjectClassAttributes({}, {});
   expectSent("00000000 00000000 00000001 00000000");
}

TEST_F(ServicesTest, LeaveTheDivestedAttributesUntouchedWhenTheyFail)
{
   AttributeHandleSet const before = {handle<AttributeHandle>(1)};
   AttributeHandleSet divested = before;
   fake::core.raises = {exceptionPath + "AttributeNotOwned"};
   EXPECT_THROW(ambassador->attributeOwnershipDivestitureIfWanted({}, {}, divested), AttributeNotOwned);
   EXPECT_EQ(divested, before);
}

TEST_F(ServicesTest, DecodeHandles)
{
   int const calls = fake::account.calls;
   Bytes const one("FEDCBA98");
#define DECODE(Name) EXPECT_EQ(encoded(ambassador->decode##Name(data(one))), one);
   RTI_FOR_EACH_HANDLE(DECODE)
#undef DECODE
   Bytes const retraction("FEDCBA98 00000002 FACE");
   EXPECT_EQ(encoded(ambassador->decodeMessageRetractionHandle(data(retraction))), retraction);
   EXPECT_EQ(fake::account.calls, calls);
}

TEST_F(ServicesTest, HaveTheirOtherSpellings)
{
   RTIambassador& rti = *ambassador;
   TestTime time(1), galt(1), lits(1);
   TestInterval interval(1);
   fake::core.result.reset();
   EXPECT_FALSE(rti.queryGALT(time) || rti.queryLITS(time));
   EXPECT_EQ(encoded(time), TestTime::encoded(1));
   fake::core.result = someTime;
   EXPECT_TRUE(rti.queryGALT(galt) && rti.queryLITS(lits));
   rti.queryLogicalTime(time);
   EXPECT_EQ(encoded(galt, lits, time), Bytes(someTime).append(someTime).append(someTime));
   fake::core.result = TestInterval::encoded(5);
   rti.queryLookahead(interval);
   EXPECT_EQ(encoded(interval), TestInterval::encoded(5));
   fake::core.result = Bytes("00000002");
   EXPECT_EQ(rti.getTransportationType(L"HLAbestEffort"), BEST_EFFORT);
   fake::core.result = Bytes().units(u"HLAreliable");
   EXPECT_EQ(rti.getTransportationName(RELIABLE), L"HLAreliable");
   EXPECT_EQ(rtiName() + rtiVersion(), L"Tovu Evolved5.3.2.0");
}

} // namespace
} // namespace contract
