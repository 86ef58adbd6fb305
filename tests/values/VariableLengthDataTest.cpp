#include "tests/values/Octets.h"

#include <RTI/VariableLengthData.h>

#include <utility>

namespace {

using rti1516e::VariableLengthData;

int released = 0;

// Holds three octets that are released through a deleter of their own.
VariableLengthData counted()
{
   released = 0;
   VariableLengthData data;
   data.takeDataPointer(new char[3]{'7', '7', '7'}, 3, [](void* bytes) {
      ++released;
      delete[] static_cast<char*>(bytes);
   });
   return data;
}

Octets const sevens(3, '7');
Octets const abc = {'a', 'b', 'c'};

static_assert(sizeof(VariableLengthData) == sizeof(void*));

TEST(VariableLengthDatas, OwnWhatTheyCopyAndBorrowTheRest)
{
   char bytes[] = "abc";
   VariableLengthData const made(bytes, 3);
   VariableLengthData set, borrowing, assigned("other", 5);
   EXPECT_EQ(set.data(), nullptr);
   set.setData(bytes, 3);
   borrowing.setDataPointer(bytes, 3);
   VariableLengthData const copy(borrowing);
   assigned = borrowing;
   bytes[0] = 'x';
   for (auto const* each : {&made, &std::as_const(set), &copy, &std::as_const(assigned)}) {
      EXPECT_EQ(octetsOf(*each), abc);
   }
   EXPECT_EQ(borrowing.data(), bytes);
   EXPECT_EQ(borrowing.size(), 3U);
   set.setData(set.data(), 2);
   EXPECT_EQ(octetsOf(set), (Octets{'a', 'b'}));
   EXPECT_EQ(VariableLengthData(nullptr, 0).size(), 0U);
}

// Each way to let go of bytes releases them through their deleter, once.
TEST(VariableLengthDatas, ReleaseTakenBytesOnce)
{
   static char own[] = "abc";
   VariableLengthData const other(own, 3);
   for (auto *const way : std::initializer_list<void (*)(VariableLengthData&, VariableLengthData const&)>{
           [](auto&data, auto&) { data.setData(own, 3); },
           [](auto&data, auto&) { data.setDataPointer(own, 3); },
           [](auto&data, auto&) {
              data.takeDataPointer(new char[3]{'a', 'b', 'c'}, 3);
           },
           [](auto&data, auto&) { data = VariableLengthData(own, 3); },
           [](auto&data, auto&source) { data = source; },
        }) {
      VariableLengthData data = counted();
      VariableLengthData const copy(data);
      EXPECT_EQ(released, 0);
      way(data, other);
      EXPECT_EQ(released, 1);
      EXPECT_EQ(octetsOf(data), abc);
      EXPECT_EQ(octetsOf(copy), sevens);
      data = copy;
      EXPECT_EQ(released, 1);
   }
   counted();
   EXPECT_EQ(released, 1);
}

TEST(VariableLengthDatas, MoveTheirBytesAndSurviveAssignmentToThemselves)
{
   VariableLengthData source = counted();
   void const* const taken = source.data();
   VariableLengthData target(std::move(source));
   EXPECT_EQ(target.data(), taken);
   EXPECT_EQ(source.data(), nullptr); // NOLINT(bugprone-use-after-move): what a move leaves is the point
   EXPECT_EQ(VariableLengthData(source).size(), 0U);
   source.setData("abc", 3);
   VariableLengthData& itself = target;
   target = std::move(itself);
   EXPECT_EQ(octetsOf(target), sevens);
   EXPECT_EQ(released, 0);
   target = itself;
   EXPECT_EQ(octetsOf(target), sevens);
   target = std::move(source);
   EXPECT_EQ(released, 1);
   EXPECT_EQ(octetsOf(target), abc);
}

} // namespace
