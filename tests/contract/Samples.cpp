#include "Samples.h"

#include "Shown.h"

#include <map>
#include <sstream>

namespace contract {
namespace {

using namespace samples;

struct Sample
{
   Bytes bytes;
   std::wstring text;
};

// By code, in the order of their uses within one message.
std::map<std::string, std::vector<Sample>> const& table()
{
   auto const infoTail = Bytes("00000016 00000002 00000006 FFFFFFFF");
   static std::map<std::string, std::vector<Sample>> const samples = {
      {"S",
       {{Bytes().text(u"Z\u00fcrich"), shown(name1)},
        {Bytes().text(u"\xD83D\xDE80 \u20ac"), shown(name2)},
        {Bytes().text(u"c"), shown(name3)}}},
      {"names",
       {{Bytes().int32(3).text(u"").text(u"Z\u00fcrich").text(u"\xD83D\xDE80 \u20ac"), shown(nameSet)}}},
      {"URL", {{Bytes().text(u"file:///a%20b.xml"), {}}}},
      {"URLX", {{Bytes().int32(3).text(u"one.xml").text(u"").text(u"Two.xml"), {}}}},
      {"BX", {{Bytes("00000004 00FF807A"), shown(tag)}}},
      {"Z", {{Bytes("00000001"), {}}}},
      {"D", {{Bytes("3FF0000000000000"), {}}, {Bytes("C004000000000000"), {}}}},
      {"CM", {{Bytes("00000001"), {}}}},
      {"RA", {{Bytes("00000004"), {}}}},
      {"SG", {{Bytes("00000003"), {}}}},
      {"OT", {{Bytes("00000001"), shown(TIMESTAMP)}, {Bytes("00000000"), shown(RECEIVE)}}},
      {"TTH", {{Bytes("00000002"), shown(BEST_EFFORT)}}},
      {"OCH", {{Bytes("00000011"), shown(objectClass)}}},
      {"ICH", {{Bytes("80000012"), shown(interactionClass)}}},
      {"OIH", {{Bytes("FEDCBA98"), shown(object)}}},
      {"AH", {{Bytes("00000014"), shown(attribute)}}},
      {"PH", {{Bytes("00000015"), {}}}},
      {"FH", {{Bytes("00000016"), shown(federate)}}},
      {"DH", {{Bytes("00000017"), {}}}},
      {"RH", {{Bytes("00000018"), {}}}},
      {"AHS", {{Bytes("00000002 00000002 80000001"), shown(attributes)}}},
      {"FHS", {{Bytes("00000002 00000003 00000004"), shown(federates)}}},
      {"DHS", {{Bytes("00000001 00000005"), {}}}},
      {"RHS", {{Bytes("00000002 00000006 FFFFFFFF"), {}}}},
      {"AHVM", {{Bytes("00000002 00000007 00000003 010203 90000000 00000000"), shown(attributeValues)}}},
      {"PHVM", {{Bytes("00000001 00000008 00000001 04"), shown(parameterValues)}}},
      {"ASRSPL",
       {{Bytes("00000002 00000002 00000002 80000001 00000002 00000006 FFFFFFFF 00000000 00000000"), {}}}},
      {"RB", {{Bytes("0000000000000005 00000000FFFFFFFF"), {}}}},
      {"LT", {{Bytes("7A0000 0102030405060708"), shown(samples::time)}}},
      {"LTI", {{Bytes("7A 0A0B"), {}}}},
      {"MRH", {{Bytes("89ABCDEF 00000002 FACE"), shown(retraction)}}},
      {"FASRI", {{Bytes("00000001 00000001").append(infoTail), L"by #00000016 in {#00000006, #ffffffff}"}}},
      {"removeInfo", {{Bytes("00000001 00000016"), L"by #00000016"}}},
      {"SPFR", {{Bytes("00000001"), shown(SYNCHRONIZATION_SET_MEMBER_NOT_JOINED)}}},
      {"SFR", {{Bytes("00000005"), shown(SAVE_ABORTED)}}},
      {"RFR", {{Bytes("00000004"), shown(RESTORE_ABORTED)}}},
      {"FHSSPX",
       {{Bytes("00000004 00000009 00000000 00000008 00000001 80000007 00000002 00000006 00000003"),
         L"{#00000009=0, #00000008=1, #80000007=2, #00000006=3}"}}},
      {"FRSX",
       {{Bytes("00000006 00000001 00000011 00000005 00000002 00000012 00000004 00000003 00000013 00000003"
               "00000004 00000014 00000002 00000005 00000015 00000001 00000006 00000016 00000000"),
         L"{#00000001->#00000011=5, #00000002->#00000012=4, #00000003->#00000013=3, #00000004->#00000014=2, "
         L"#00000005->#00000015=1, #00000006->#00000016=0}"}}},
      {"FEIS",
       {{Bytes().int32(2).text(u"Z\u00fcrich").text(u"HLAfloat64Time").text(u"\xD83D\xDE80 \u20ac").text(u""),
         L"{" + shown(name1) + L"=\"HLAfloat64Time\", " + shown(name2) + L"=\"\"}"}}},
   };
   return samples;
}

template <class Visit>
void forEach(std::vector<std::string> const& codes, Visit visit)
{
   std::map<std::string, std::size_t> uses;
   for (auto const& code : codes) {
      visit(table().at(code).at(uses[code]++));
   }
}

} // namespace

std::vector<std::string> codesOf(std::string const& methodOrNative)
{
   auto const about = [&](char const* words) { return methodOrNative.find(words) != std::string::npos; };
   std::istringstream parts(methodOrNative);
   std::string part;
   std::getline(parts, part, '_');
   std::vector<std::string> codes;
   while (std::getline(parts, part, '_')) {
      if (part == "S" && about("ultipleObjectInstanceName")) {
         codes.emplace_back("names");
      } else if (part == "FASRI" && about("removeObjectInstance")) {
         codes.emplace_back("removeInfo");
      } else if (part != "Native" && part != "FA") {
         codes.push_back(part);
      }
   }
   return codes;
}

Bytes argumentBytes(std::vector<std::string> const& codes)
{
   Bytes bytes;
   forEach(codes, [&](Sample const& sample) { bytes.append(sample.bytes); });
   return bytes;
}

std::wstring shownArguments(std::vector<std::string> const& codes)
{
   std::wstring text;
   forEach(codes, [&](Sample const& sample) { text += (text.empty() ? L"" : L", ") + sample.text; });
   return L"(" + text + L")";
}

} // namespace contract
