#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAopaqueData.h>

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace rti1516e;

std::wstring const tooShort = L"HLAopaqueData cannot decode (indata too short)";
std::wstring const insufficient = L"Insufficient external storage";
std::size_t const largest = std::numeric_limits<std::size_t>::max();

TEST(OpaqueData, Encoding)
{
   HLAopaqueData data("\x01\x02\x03", 3);
   expectEncoding(data, octets("00000003 010203"), 4);
   expectDecoding(data, octets("00000002 0405"), tooShort);
   EXPECT_EQ(data.dataLength(), 2U);
   EXPECT_EQ(data.bufferLength(), 2U);
   expectDecoding(data, octets("00000000"), tooShort);
   expectEncoding(HLAopaqueData(), octets("00000000"), 4);
   // In an array, each is aligned; alone, the index is taken as it is.
   expectEncoding(HLAfixedArray(HLAopaqueData("a", 1), 2), octets("00000001 61 000000 00000001 61"), 4);
   EXPECT_EQ(data.decodeFrom(octets("ff 00000001 62"), 1), 6U);
   EXPECT_EQ(*static_cast<char const*>(data), 'b');
}

TEST(OpaqueData, UsesTheBufferOfTheCaller)
{
   char buffer[8] = "abcdefg";
   char* pointer = buffer;
   HLAopaqueData data(&pointer, 8, 2);
   pointer = nullptr; // is asked for the buffer once
   EXPECT_EQ(data.get(), buffer);
   expectEncoding(data, octets("00000002 6162"), 4);
   buffer[0] = 'A';
   HLAopaqueData const copy(data);
   data.decode(dataOf(octets("00000003 616263")));
   EXPECT_STREQ(buffer, "abcdefg");
   EXPECT_EQ(data.dataLength(), 3U);
   EXPECT_EQ(data.bufferLength(), 8U);
   expectEncoding(copy, octets("00000002 4162"), 4);
   EXPECT_EQ(copy.bufferLength(), 2U);

   data.set("xyz", 3);
   data.set(data.get() + 1, 2);
   expectEncoding(data, octets("00000002 797a"), 4);
   EXPECT_STREQ(buffer, "abcdefg");
   pointer = buffer;
   data.setDataPointer(&pointer, 8, 0);
   expectDecoding(data, octets("00000008 6869 6a6b6c6d6e6f"), tooShort);
   EXPECT_EQ(std::string(buffer, 8), "hijklmno");
}

TEST(OpaqueData, FailuresLeaveItAsItWas)
{
   struct
   {
      char const* encoded;
      std::size_t index;
      std::wstring owning;
      std::wstring borrowing;
   } const cases[] = {
      {"", 0, tooShort, tooShort},
      {"000000", 0, tooShort, tooShort},
      {"00000000", 1, tooShort, tooShort},
      {"00000000", largest, tooShort, tooShort},
      {"00000000", largest - 3, tooShort, tooShort},
      {"ffffffff 00", 0, arrayIndexOutOfBounds, arrayIndexOutOfBounds},
      {"00000002 61", 0, arrayIndexOutOfBounds, arrayIndexOutOfBounds},
      {"0000000a 62626262626262626262", 0, L"none", insufficient},
   };
   for (auto const& each : cases) {
      SCOPED_TRACE(each.encoded);
      Octets const encoded = octets(each.encoded);
      char buffer[] = "external";
      char* pointer = buffer;
      HLAopaqueData borrowed(&pointer, 8, 5);
      HLAopaqueData owned("own", 3);
      EXPECT_EQ(failureOf([&] { owned.decodeFrom(encoded, each.index); }), each.owning);
      EXPECT_EQ(failureOf([&] { borrowed.decodeFrom(encoded, each.index); }), each.borrowing);
      expectEncoding(owned, each.owning == L"none" ? encoded : octets("00000003 6f776e"), 4);
      EXPECT_STREQ(buffer, "external");
      EXPECT_EQ(borrowed.dataLength(), 5U);
   }

   char* nothing = nullptr;
   char* something = const_cast<char*>("a");
   HLAopaqueData data("kept", 4);
   EXPECT_NE(failureOf([&] { data.set(nullptr, 1); }), L"none");
   EXPECT_NE(failureOf([&] { data.set("a", std::size_t{1} << 32); }), L"none");
   EXPECT_NE(failureOf([&] { data.setDataPointer(nullptr, 0, 0); }), L"none");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&nothing, 1, 0); }), L"none");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&something, 1, 2); }), L"none");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&something, std::size_t{1} << 32, 0); }), L"none");
   expectEncoding(data, octets("00000004 6b657074"), 4);
}

} // namespace
