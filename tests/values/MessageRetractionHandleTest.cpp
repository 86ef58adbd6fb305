#include "api/HandleAccess.h"
#include "tests/values/Bytes.h"

#include <RTI/Exception.h>
#include <RTI/Handle.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>

namespace {

using namespace rti1516e;

MessageRetractionHandle made(std::uint32_t number, std::string const& extra = "")
{
   return HandleAccess::retractionHandle(number, extra.data(), static_cast<std::uint32_t>(extra.size()));
}

TEST(MessageRetractionHandles, TravelWithTheirFurtherBytes)
{
   struct
   {
      MessageRetractionHandle handle;
      Bytes encoded;
      std::wstring text;
      long hash;
   } const rows[] = {
      {MessageRetractionHandle(), {0, 0, 0, 0, 0, 0, 0, 0}, L"0", 0},
      {made(0, "x"), {0, 0, 0, 0, 0, 0, 0, 1, 'x'}, L"0", 0},
      {made(12), {0, 0, 0, 12, 0, 0, 0, 0}, L"12", 444},
      {made(0x01020304, std::string("a\0b", 3)),
       {1, 2, 3, 4, 0, 0, 0, 3, 'a', 0, 'b'},
       L"16909060",
       625635220},
      {made(0xFFFFFFFF), {255, 255, 255, 255, 0, 0, 0, 0}, L"4294967295", -37},
   };
   for (auto const& row : rows) {
      SCOPED_TRACE(row.text);
      auto const& handle = row.handle;
      EXPECT_EQ(handle.isValid(), row.text != L"0");
      EXPECT_EQ(handle.toString(), L"MessageRetractionHandle<" + row.text + L">");
      std::wostringstream stream;
      stream << handle;
      EXPECT_EQ(stream.str(), handle.toString());
      EXPECT_EQ(handle.hash(), row.hash);

      auto const length = row.encoded.size();
      EXPECT_EQ(handle.encodedLength(), length);
      EXPECT_EQ(bytesOf(handle.encode()), row.encoded);
      Bytes buffer(length + 1, 0xAA);
      try {
         handle.encode(buffer.data(), length - 1);
         ADD_FAILURE() << "wrote into too small a buffer";
      } catch (CouldNotEncode const& exception) {
         EXPECT_EQ(exception.what(), L"Buffer needs to be atleast 4 bytes!");
      }
      EXPECT_EQ(buffer, Bytes(length + 1, 0xAA));
      EXPECT_EQ(handle.encode(buffer.data(), length), length);
      EXPECT_EQ(buffer.back(), 0xAA);
      buffer.pop_back();
      EXPECT_EQ(buffer, row.encoded);

      auto const decoded = HandleAccess::decode<MessageRetractionHandle>(handle.encode());
      EXPECT_EQ(decoded, handle);
      EXPECT_EQ(bytesOf(decoded.encode()), row.encoded);
   }
}

TEST(MessageRetractionHandles, CompareTheirNumbersAsSignedOnes)
{
   EXPECT_EQ(made(7, "abc"), made(7, "d"));
   EXPECT_NE(made(7, "abc"), made(8, "abc"));
   EXPECT_EQ(made(0, "abc"), MessageRetractionHandle());
   EXPECT_LT(made(0xFFFFFFFF), made(1));
   EXPECT_LT(made(0x80000000), MessageRetractionHandle());
   EXPECT_FALSE(made(1) < made(1, "x"));
}

TEST(MessageRetractionHandles, AreCopiedWhole)
{
   MessageRetractionHandle original = made(5, "abc");
   auto const encoded = bytesOf(original.encode());
   MessageRetractionHandle const copy(original);
   MessageRetractionHandle assigned = made(6);
   assigned = original;
   MessageRetractionHandle const& itself = original;
   original = itself;
   EXPECT_EQ(bytesOf(original.encode()), encoded);
   original = MessageRetractionHandle();
   EXPECT_EQ(bytesOf(copy.encode()), encoded);
   EXPECT_EQ(bytesOf(assigned.encode()), encoded);
   MessageRetractionHandle const moved(std::move(assigned));
   EXPECT_EQ(bytesOf(moved.encode()), encoded);
   EXPECT_FALSE(assigned.isValid()); // NOLINT(bugprone-use-after-move): what a move leaves is the point
}

TEST(MessageRetractionHandles, ReadNoFurtherThanTheirBytes)
{
   struct
   {
      Bytes encoded, encodedAgain;
   } const rows[] = {
      {{}, {0, 0, 0, 0, 0, 0, 0, 0}},
      {{0, 0, 1}, {0, 0, 0, 0, 0, 0, 0, 0}},
      {{0, 0, 0, 9}, {0, 0, 0, 9, 0, 0, 0, 0}},
      {{0, 0, 0, 9, 0, 0, 0}, {0, 0, 0, 9, 0, 0, 0, 0}},
      {{0, 0, 0, 9, 0, 0, 0, 2, 'a'}, {0, 0, 0, 9, 0, 0, 0, 0}},
      {{0, 0, 0, 9, 255, 255, 255, 255, 'a'}, {0, 0, 0, 9, 0, 0, 0, 0}},
      {{0, 0, 0, 9, 0, 0, 0, 1, 'a', 'b'}, {0, 0, 0, 9, 0, 0, 0, 1, 'a'}},
   };
   for (auto const& row : rows) {
      // Bytes of exactly that length on the heap, where a sanitizer sees a step beyond them.
      VariableLengthData const data(row.encoded.data(), static_cast<unsigned int>(row.encoded.size()));
      EXPECT_EQ(bytesOf(HandleAccess::decode<MessageRetractionHandle>(data).encode()), row.encodedAgain);
   }
}

} // namespace
