#include "tests/support/Samples.h"

#include <map>
#include <sstream>

namespace contract {

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
   Bytes const zurich = Bytes().text(u"Z\u00fcrich");
   Bytes const rocket = Bytes().text(u"\xD83D\xDE80 \u20ac");
   // By code, in the order of their uses within one message.
   std::map<std::string, std::vector<Bytes>> const samples = {
      {"S", {zurich, rocket, Bytes().text(u"c")}},
      {"names", {Bytes().int32(3).text(u"").append(zurich).append(rocket)}},
      {"URL", {Bytes().text(u"file:///a%20b.xml")}},
      {"URLX", {Bytes().int32(3).text(u"one.xml").text(u"").text(u"Two.xml")}},
      {"BX", {Bytes("00000004 00FF807A")}},
      {"Z", {Bytes("00000001")}},
      {"D", {Bytes("3FF0000000000000"), Bytes("C004000000000000")}},
      {"CM", {Bytes("00000001")}},
      {"RA", {Bytes("00000004")}},
      {"SG", {Bytes("00000003")}},
      {"OT", {Bytes("00000001")}},
      {"TTH", {Bytes("00000002")}},
      {"OCH", {Bytes("00000011")}},
      {"ICH", {Bytes("80000012")}},
      {"OIH", {Bytes("FEDCBA98")}},
      {"AH", {Bytes("00000014")}},
      {"PH", {Bytes("00000015")}},
      {"FH", {Bytes("00000016")}},
      {"DH", {Bytes("00000017")}},
      {"RH", {Bytes("00000018")}},
      {"AHS", {Bytes("00000002 00000002 80000001")}},
      {"FHS", {Bytes("00000002 00000003 00000004")}},
      {"DHS", {Bytes("00000001 00000005")}},
      {"RHS", {Bytes("00000002 00000006 FFFFFFFF")}},
      {"AHVM", {Bytes("00000002 00000007 00000003 010203 90000000 00000000")}},
      {"PHVM", {Bytes("00000001 00000008 00000001 04")}},
      {"ASRSPL", {Bytes("00000002 00000002 00000002 80000001 00000002 00000006 FFFFFFFF 00000000 00000000")}},
      {"RB", {Bytes("0000000000000005 00000000FFFFFFFF")}},
      {"LT", {Bytes("7A0000 0102030405060708")}},
      {"LTI", {Bytes("7A 0A0B")}},
      {"MRH", {Bytes("89ABCDEF 00000002 FACE")}},
   };
   std::map<std::string, std::size_t> uses;
   Bytes bytes;
   for (auto const& code : codes) {
      bytes.append(samples.at(code).at(uses[code]++));
   }
   return bytes;
}

} // namespace contract
