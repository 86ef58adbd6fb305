#include "src/values/HandleAccess.h"
#include "tests/values/Octets.h"

#include <RTI/Handle.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <sstream>
#include <type_traits>
#include <utility>

namespace {

using namespace rti1516e;

template <class Handle>
void expectHandle(Handle const& handle, std::wstring const& text, long hash, Octets const& encoded,
                  std::wstring const& failure)
{
   std::wostringstream stream;
   stream << handle;
   EXPECT_EQ(stream.str(), text);
   EXPECT_EQ(handle.toString(), text);
   EXPECT_EQ(handle.hash(), hash);
   EXPECT_EQ(std::hash<Handle>()(handle), static_cast<std::size_t>(hash));
   expectEncoding(handle, encoded, {"CouldNotEncode", failure});
   Handle const decoded = HandleAccess::decode<Handle>(dataOf(encoded));
   EXPECT_EQ(decoded, handle);
   EXPECT_EQ(octetsOf(decoded.encode()), encoded);
}

template <class Handle, class Implementation>
void areTheirNumber()
{
   struct
   {
      std::uint32_t number;
      char const* encoded;
      std::wstring text;
      long hash;
   } const rows[] = {
      {0, "00000000", L"<0>", 0},
      {12, "0000000c", L"<12>", 444},
      {0x01020304, "01020304", L"<16909060>", 625635220},
      {0x7FFFFFFF, "7fffffff", L"<2147483647>", 2147483611},
      {0x80000000, "80000000", L"<-2147483648>", std::numeric_limits<std::int32_t>::min()},
      {0xFFFFFFFF, "ffffffff", L"<-1>", -37},
   };
   struct Derived : Handle // reaches what is for derived classes alone
   {
      explicit Derived(Implementation* implementation) : Handle(implementation) {}
      using Handle::getImplementation;
   };
   std::wstring const kind = std::is_same_v<Handle, FederateHandle> ? L"FederateHandle" : L"HandleKind";
   for (auto const& row : rows) {
      SCOPED_TRACE(row.encoded);
      auto const handle = HandleAccess::make<Handle>(row.number);
      Octets const encoded = octets(row.encoded);
      EXPECT_EQ(handle.isValid(), row.number != 0);
      expectHandle(handle, kind + row.text, row.hash, encoded, L"Buffer needs to be at least 4 bytes!");
      EXPECT_EQ(HandleAccess::decode<Handle>(dataOf(joined(encoded, {'a'}))), handle);
      auto* const number = reinterpret_cast<Implementation*>(std::uintptr_t{row.number});
      EXPECT_EQ(Derived(number), handle);
      EXPECT_EQ(Derived(number).getImplementation(), number);
      for (auto const& other : rows) {
         auto const right = HandleAccess::make<Handle>(other.number);
         EXPECT_EQ(handle == right, row.number == other.number);
         EXPECT_EQ(handle != right, row.number != other.number);
         EXPECT_EQ(handle < right, row.number < other.number);
      }
   }
   EXPECT_FALSE(Handle().isValid());
   for (unsigned int size = 0; size < 4; ++size) {
      EXPECT_THROW(HandleAccess::decode<Handle>(VariableLengthData("\1\2\3", size)), CouldNotDecode);
   }
}

TEST(Handles, AreTheirNumber)
{
#define CHECK_HANDLE(Name) areTheirNumber<Name, Name##Implementation>();
   RTI_FOR_EACH_HANDLE(CHECK_HANDLE)
#undef CHECK_HANDLE
}

TEST(MessageRetractionHandles, TravelWithTheirFurtherBytes)
{
   struct
   {
      std::uint32_t number;
      std::string extra;
      char const* encoded;
      std::wstring text;
      long hash;
   } const rows[] = {
      // in the order of their numbers, as signed ones
      {0x80000000, "", "80000000 00000000", L"2147483648", std::numeric_limits<std::int32_t>::min()},
      {0xFFFFFFFF, "", "ffffffff 00000000", L"4294967295", -37},
      {0, "", "00000000 00000000", L"0", 0},
      {0, "x", "00000000 00000001 78", L"0", 0},
      {12, "", "0000000c 00000000", L"12", 444},
      {0x01020304, {"a\0b", 3}, "01020304 00000003 610062", L"16909060", 625635220},
   };
   MessageRetractionHandle previous = HandleAccess::retractionHandle(0x80000000, nullptr, 0);
   for (auto const& row : rows) {
      SCOPED_TRACE(row.encoded);
      MessageRetractionHandle handle = HandleAccess::retractionHandle(
         row.number, row.extra.data(), static_cast<std::uint32_t>(row.extra.size()));
      Octets const encoded = octets(row.encoded);
      EXPECT_EQ(handle.isValid(), row.number != 0);
      expectHandle(handle, L"MessageRetractionHandle<" + row.text + L">", row.hash, encoded,
                   L"Buffer needs to be atleast 4 bytes!");
      EXPECT_EQ(previous < handle, previous != handle);
      EXPECT_FALSE(handle < previous);
      previous = handle;
      MessageRetractionHandle const& itself = handle;
      handle = itself;
      MessageRetractionHandle const copy(handle);
      MessageRetractionHandle const moved(std::move(handle));
      EXPECT_FALSE(handle.isValid()); // NOLINT(bugprone-use-after-move): what a move leaves is the point
      for (MessageRetractionHandle const* each : {&std::as_const(previous), &copy, &moved}) {
         EXPECT_EQ(octetsOf(each->encode()), encoded);
      }
   }
}

} // namespace
