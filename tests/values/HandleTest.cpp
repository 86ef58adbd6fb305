#include "src/values/HandleAccess.h"
#include "tests/values/Bytes.h"

#include <RTI/Exception.h>
#include <RTI/Handle.h>

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using namespace rti1516e;

template <class Handle>
void expectTextHashAndEncoding(Handle const& handle, std::wstring const& text, long hash,
                               Bytes const& encoded, std::wstring const& failure)
{
   EXPECT_EQ(handle.toString(), text);
   std::wostringstream stream;
   stream << handle;
   EXPECT_EQ(stream.str(), text);
   EXPECT_EQ(handle.hash(), hash);
   EXPECT_EQ(std::hash<Handle>()(handle), static_cast<std::size_t>(hash));

   auto const length = encoded.size();
   EXPECT_EQ(handle.encodedLength(), length);
   EXPECT_EQ(bytesOf(handle.encode()), encoded);
   Bytes buffer(length + 1, 0xAA);
   try {
      handle.encode(buffer.data(), length - 1);
      ADD_FAILURE() << "wrote into too small a buffer";
   } catch (CouldNotEncode const& exception) {
      EXPECT_EQ(exception.what(), failure);
   }
   EXPECT_EQ(buffer, Bytes(length + 1, 0xAA));
   EXPECT_EQ(handle.encode(buffer.data(), length), length);
   EXPECT_EQ(buffer.back(), 0xAA);
   buffer.pop_back();
   EXPECT_EQ(buffer, encoded);
   EXPECT_EQ(handle.encode(Bytes(100).data(), 100), length);
}

// A handle class together with what only classes derived from it can reach.
template <class H, class I>
struct Kind : H
{
   using Handle = H;
   explicit Kind(I* implementation) : H(implementation) {}
   explicit Kind(VariableLengthData const& encodedValue) : H(encodedValue) {}
   using H::getImplementation;
};

template <class Kind>
struct Handles : testing::Test
{};
using Kinds = testing::Types<
   Kind<FederateHandle, FederateHandleImplementation>,
   Kind<ObjectClassHandle, ObjectClassHandleImplementation>,
   Kind<InteractionClassHandle, InteractionClassHandleImplementation>,
   Kind<ObjectInstanceHandle, ObjectInstanceHandleImplementation>,
   Kind<AttributeHandle, AttributeHandleImplementation>, Kind<ParameterHandle, ParameterHandleImplementation>,
   Kind<DimensionHandle, DimensionHandleImplementation>, Kind<RegionHandle, RegionHandleImplementation>>;
TYPED_TEST_SUITE(Handles, Kinds, );

TYPED_TEST(Handles, AreTheirNumber)
{
   struct
   {
      std::uint32_t number;
      Bytes encoded;
      std::wstring text;
      long hash;
   } const rows[] = {
      {0, {0, 0, 0, 0}, L"<0>", 0},
      {12, {0, 0, 0, 12}, L"<12>", 444},
      {0x01020304, {1, 2, 3, 4}, L"<16909060>", 625635220},
      {0x7FFFFFFF, {0x7F, 255, 255, 255}, L"<2147483647>", 2147483611},
      {0x80000000, {0x80, 0, 0, 0}, L"<-2147483648>", -2147483647 - 1},
      {0xFFFFFFFF, {255, 255, 255, 255}, L"<-1>", -37},
   };
   using Handle = typename TypeParam::Handle;
   std::wstring const kind = std::is_same_v<Handle, FederateHandle> ? L"FederateHandle" : L"HandleKind";
   for (auto const& row : rows) {
      SCOPED_TRACE(row.number);
      Handle const handle = HandleAccess::make<Handle>(row.number);
      EXPECT_EQ(handle.isValid(), row.number != 0);
      expectTextHashAndEncoding(handle, kind + row.text, row.hash, row.encoded,
                                L"Buffer needs to be at least 4 bytes!");

      Bytes longer = row.encoded;
      longer.push_back(0xAA);
      EXPECT_EQ(TypeParam(VariableLengthData(longer.data(), 5)), handle);
      TypeParam const derived(VariableLengthData(row.encoded.data(), 4));
      EXPECT_EQ(derived, handle);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(derived.getImplementation()), row.number);
      EXPECT_EQ(TypeParam(derived.getImplementation()), handle);

      for (auto const& other : rows) {
         Handle const otherHandle = HandleAccess::make<Handle>(other.number);
         EXPECT_EQ(handle == otherHandle, row.number == other.number);
         EXPECT_EQ(handle != otherHandle, row.number != other.number);
         EXPECT_EQ(handle < otherHandle, row.number < other.number);
      }
   }
   EXPECT_EQ(Handle(), HandleAccess::make<Handle>(0));
}

TYPED_TEST(Handles, AreNotMadeFromTooFewBytes)
{
   for (unsigned int size = 0; size < 4; ++size) {
      EXPECT_THROW(TypeParam(VariableLengthData("\1\2\3", size)), CouldNotDecode);
   }
   EXPECT_THROW(TypeParam{VariableLengthData()}, CouldNotDecode);
}

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
      expectTextHashAndEncoding(handle, L"MessageRetractionHandle<" + row.text + L">", row.hash, row.encoded,
                                L"Buffer needs to be atleast 4 bytes!");

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
