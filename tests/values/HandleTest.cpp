#include "src/values/HandleAccess.h"
#include "tests/values/Octets.h"

#include <RTI/Handle.h>

#include <cstdint>
#include <functional>
#include <sstream>
#include <type_traits>
#include <utility>

namespace {

using namespace rti1516e;
using contract::Bytes;

struct
{
   std::uint32_t number;
   long hash;
} const rows[] = {
   {0, 0},
   {12, 444},
   {0x01020304, 625635220},
   {0x7FFFFFFF, 2147483611},
   {0x80000000, INT32_MIN},
   {0xFFFFFFFF, -37},
};

// What holds of every handle.
template <class Handle, class Row>
void expectHandle(Handle const& handle, Row const& row, std::wstring const& text, Octets const& encoded,
                  std::wstring const& failure)
{
   std::wostringstream stream;
   stream << handle;
   EXPECT_EQ(stream.str(), text);
   EXPECT_EQ(handle.toString(), text);
   EXPECT_EQ(handle.isValid(), row.number != 0);
   EXPECT_EQ(handle.hash(), row.hash);
   EXPECT_EQ(std::hash<Handle>()(handle), static_cast<std::size_t>(row.hash));
   expectEncoding(handle, encoded, {"CouldNotEncode", failure});
   Handle const decoded = HandleAccess::decode<Handle>(dataOf(encoded));
   EXPECT_EQ(decoded, handle);
   EXPECT_EQ(octetsOf(decoded.encode()), encoded);
}

template <class Handle, class Implementation>
void areTheirNumber()
{
   struct Derived : Handle // reaches what is for derived classes alone
   {
      explicit Derived(Implementation* implementation) : Handle(implementation) {}
      using Handle::getImplementation;
   };
   std::wstring const kind = std::is_same_v<Handle, FederateHandle> ? L"FederateHandle<" : L"HandleKind<";
   for (auto const& row : rows) {
      SCOPED_TRACE(row.number);
      auto const handle = HandleAccess::make<Handle>(row.number);
      Octets const encoded = octets(Bytes().int32(row.number));
      expectHandle(handle, row, kind + std::to_wstring(static_cast<std::int32_t>(row.number)) + L">", encoded,
                   L"Buffer needs to be at least 4 bytes!");
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

// They are told apart by their number, and in order as if it had a sign.
TEST(MessageRetractionHandles, TravelWithTheirFurtherBytes)
{
   MessageRetractionHandle previous;
   for (auto const& row : rows) {
      for (Bytes const& extra : {Bytes(), Bytes("78"), Bytes("610062")}) {
         SCOPED_TRACE(testing::Message() << row.number << " and " << extra.size());
         auto const length = static_cast<std::uint32_t>(extra.size());
         MessageRetractionHandle handle = HandleAccess::retractionHandle(row.number, extra.data(), length);
         Octets const encoded = octets(Bytes().int32(row.number).counted(extra));
         expectHandle(handle, row, L"MessageRetractionHandle<" + std::to_wstring(row.number) + L">", encoded,
                      L"Buffer needs to be atleast 4 bytes!");
         for (auto const& other : rows) {
            auto const right = HandleAccess::retractionHandle(other.number, nullptr, 0);
            EXPECT_EQ(handle == right, row.number == other.number);
            EXPECT_EQ(handle != right, row.number != other.number);
            EXPECT_EQ(handle < right, std::int32_t(row.number) < std::int32_t(other.number));
         }
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
}

} // namespace
