#include "api/HandleAccess.h"
#include "tests/values/Bytes.h"

#include <RTI/Exception.h>
#include <RTI/Handle.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

using namespace rti1516e;

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
      EXPECT_EQ(handle.toString(), kind + row.text);
      std::wostringstream stream;
      stream << handle;
      EXPECT_EQ(stream.str(), handle.toString());
      EXPECT_EQ(handle.hash(), row.hash);

      EXPECT_EQ(handle.encodedLength(), 4U);
      EXPECT_EQ(bytesOf(handle.encode()), row.encoded);
      Bytes buffer(100, 0xAA);
      EXPECT_THROW(handle.encode(buffer.data(), 3), CouldNotEncode);
      EXPECT_EQ(buffer, Bytes(100, 0xAA));
      EXPECT_EQ(handle.encode(buffer.data(), 100), 4U);
      EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 5),
                (Bytes{row.encoded[0], row.encoded[1], row.encoded[2], row.encoded[3], 0xAA}));
      EXPECT_EQ(handle.encode(buffer.data() + 50, 4), 4U);

      EXPECT_EQ(TypeParam(VariableLengthData(buffer.data(), 100)), handle);
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
   try {
      Handle().encode(nullptr, 3);
      FAIL() << "wrote into too small a buffer";
   } catch (CouldNotEncode const& exception) {
      EXPECT_EQ(exception.what(), L"Buffer needs to be at least 4 bytes!");
   }
}

TYPED_TEST(Handles, AreNotMadeFromTooFewBytes)
{
   for (unsigned int size = 0; size < 4; ++size) {
      EXPECT_THROW(TypeParam(VariableLengthData("\1\2\3", size)), CouldNotDecode);
   }
   EXPECT_THROW(TypeParam{VariableLengthData()}, CouldNotDecode);
}

} // namespace
