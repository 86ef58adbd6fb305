// Want of memory at each allocation of an operation in turn: what was there stays, and nothing is lost. A
// program of its own, for it replaces operator new.
#include "src/values/HandleAccess.h"
#include "tests/values/Bytes.h"
#include "tests/values/CountedMemory.h"

#include <RTI/Exception.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <gtest/gtest.h>
#include <type_traits>

namespace {

using namespace rti1516e;
using memory::expectNothingLost;
using memory::live;
using memory::succeedsWithout;

Bytes const old = {'o', 'l', 'd'};
Bytes const fresh = {'n', 'e', 'w', '!'};

// A copy is one piece of memory, which is there or not.
TEST(WantOfMemory, LeavesDataAsItWas)
{
   VariableLengthData const source(fresh.data(), 4);
   void (*const ways[])(VariableLengthData&, VariableLengthData const&) = {
      [](VariableLengthData& data, VariableLengthData const& from) { data.setData(from.data(), 4); },
      [](VariableLengthData& data, VariableLengthData const& from) { data = from; },
      [](VariableLengthData& data, VariableLengthData const& from) {
         data = VariableLengthData(from.data(), 4);
      },
   };
   for (auto* const way : ways) {
      long const before = live;
      {
         VariableLengthData data(old.data(), 3);
         EXPECT_FALSE(succeedsWithout(1, [&] { way(data, source); }));
         EXPECT_EQ(bytesOf(data), old);
         EXPECT_TRUE(succeedsWithout(2, [&] { way(data, source); }));
         EXPECT_EQ(bytesOf(data), fresh);
      }
      EXPECT_EQ(live, before);
   }
}

TEST(WantOfMemory, ReleasesTakenBytesOnce)
{
   static int released;
   released = 0;
   char bytes[] = "abc";
   VariableLengthData data(old.data(), 3);
   succeedsWithout(1, [&] { data.takeDataPointer(bytes, 3, [](void*) { ++released; }); });
   EXPECT_EQ(released, 1);
   EXPECT_EQ(data.data(), nullptr);
   EXPECT_EQ(data.size(), 0U);
   succeedsWithout(1, [&] { data.setDataPointer(bytes, 3); });
   EXPECT_EQ(data.data(), nullptr);
   EXPECT_EQ(released, 1);
}

TEST(WantOfMemory, LeavesRetractionHandlesAsTheyWere)
{
   auto const source = HandleAccess::retractionHandle(7, "extra", 5);
   auto const encoded = source.encode();
   expectNothingLost([&] { MessageRetractionHandle const copy(source); });
   expectNothingLost([&] { static_cast<void>(source.encode()); });
   expectNothingLost([&] { HandleAccess::decode<MessageRetractionHandle>(encoded); });
   auto target = HandleAccess::retractionHandle(8, "x", 1);
   for (int n = 1; n <= 2; ++n) {
      EXPECT_FALSE(succeedsWithout(n, [&] { target = source; }));
      EXPECT_EQ(target, HandleAccess::retractionHandle(8, "", 0));
      EXPECT_EQ(target.encodedLength(), 9U);
   }
}

template <class Factory>
struct WantOfMemoryForTimes : testing::Test
{};
using Factories = testing::Types<HLAinteger64TimeFactory, HLAfloat64TimeFactory>;
TYPED_TEST_SUITE(WantOfMemoryForTimes, Factories, );

TYPED_TEST(WantOfMemoryForTimes, LosesNothing)
{
   TypeParam factory;
   auto const time = factory.makeLogicalTime(1);
   auto const interval = factory.makeLogicalTimeInterval(1);
   using Time = std::remove_reference_t<decltype(*time)>;
   using Interval = std::remove_reference_t<decltype(*interval)>;
   auto data = time->encode();
   char bytes[8] = {};

   expectNothingLost([] { Time(); });
   expectNothingLost([] { Time(3); });
   expectNothingLost([&] { Time{*time}; });
   expectNothingLost([&] { Time(static_cast<LogicalTime const&>(*time)); });
   expectNothingLost([] { Interval(); });
   expectNothingLost([] { Interval(3); });
   expectNothingLost([&] { Interval{*interval}; });
   expectNothingLost([&] { Interval(static_cast<LogicalTimeInterval const&>(*interval)); });
   expectNothingLost([&] { time->encode(); });
   expectNothingLost([&] { time->toString(); });
   expectNothingLost([&] { interval->implementationName(); });
   expectNothingLost([&] { factory.getName(); });
   expectNothingLost([&] { factory.makeInitial(); });
   expectNothingLost([&] { factory.makeFinal(); });
   expectNothingLost([&] { factory.makeZero(); });
   expectNothingLost([&] { factory.makeEpsilon(); });
   expectNothingLost([&] { factory.makeLogicalTime(1); });
   expectNothingLost([&] { factory.makeLogicalTimeInterval(1); });
   expectNothingLost([&] { factory.decodeLogicalTime(bytes, 8); });
   expectNothingLost([&] { factory.decodeLogicalTime(data); });
   expectNothingLost([&] { factory.decodeLogicalTimeInterval(bytes, 8); });
   expectNothingLost([&] { factory.decodeLogicalTimeInterval(data); });
   expectNothingLost([&] { HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(factory.getName()); });
}

} // namespace
