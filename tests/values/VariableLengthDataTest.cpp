#include "tests/values/Bytes.h"

#include <RTI/VariableLengthData.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <utility>

namespace {

using rti1516e::VariableLengthData;

int released = 0;
void* lastReleased = nullptr;

void count(void* data)
{
   ++released;
   lastReleased = data;
   std::free(data);
}

// Holds three bytes that are released through count.
VariableLengthData counted()
{
   released = 0;
   auto* const bytes = static_cast<unsigned char*>(std::malloc(3));
   bytes[0] = bytes[1] = bytes[2] = 7;
   VariableLengthData data;
   data.takeDataPointer(bytes, 3, &count);
   return data;
}

Bytes const sevens = {7, 7, 7};
Bytes const abc = {'a', 'b', 'c'};

static_assert(sizeof(VariableLengthData) == sizeof(void*));

TEST(VariableLengthDatas, OwnWhatTheyAreGivenToCopy)
{
   VariableLengthData const empty;
   EXPECT_EQ(empty.data(), nullptr);
   EXPECT_EQ(empty.size(), 0U);

   char bytes[] = "abc";
   VariableLengthData data(bytes, 3);
   VariableLengthData set;
   set.setData(bytes, 3);
   bytes[0] = 'x';
   EXPECT_EQ(bytesOf(data), abc);
   EXPECT_EQ(bytesOf(set), abc);
   set.setData(set.data(), 2);
   EXPECT_EQ(bytesOf(set), (Bytes{'a', 'b'}));
   set.setData(nullptr, 0);
   EXPECT_EQ(set.size(), 0U);
   EXPECT_EQ(VariableLengthData(nullptr, 0).size(), 0U);
}

TEST(VariableLengthDatas, BorrowOnlyUntilTheyAreCopied)
{
   char bytes[] = "abc";
   VariableLengthData borrowing;
   borrowing.setDataPointer(bytes, 3);
   EXPECT_EQ(borrowing.data(), bytes);
   VariableLengthData const copy(borrowing);
   VariableLengthData assigned("other", 5);
   assigned = borrowing;
   bytes[0] = 'x';
   EXPECT_EQ(bytesOf(borrowing), (Bytes{'x', 'b', 'c'}));
   EXPECT_EQ(bytesOf(copy), abc);
   EXPECT_EQ(bytesOf(assigned), abc);
   assigned = VariableLengthData();
   EXPECT_EQ(bytesOf(copy), abc);
}

// Each way to let go of bytes releases them through their deleter, once.
TEST(VariableLengthDatas, ReleaseTakenBytesOnce)
{
   char own[] = "abc";
   void (*const ways[])(VariableLengthData&, char*) = {
      [](VariableLengthData& data, char* bytes) { data.setData(bytes, 3); },
      [](VariableLengthData& data, char* bytes) { data.setDataPointer(bytes, 3); },
      [](VariableLengthData& data, char*) {
         data.takeDataPointer(new char[3]{'a', 'b', 'c'}, 3);
      },
      [](VariableLengthData& data, char* bytes) { data = VariableLengthData(bytes, 3); },
      [](VariableLengthData& data, char* bytes) {
         VariableLengthData const other(bytes, 3);
         data = other;
      },
   };
   for (auto* const way : ways) {
      {
         VariableLengthData data = counted();
         void const* const taken = data.data();
         VariableLengthData const copy(data);
         EXPECT_EQ(released, 0);
         way(data, own);
         EXPECT_EQ(released, 1);
         EXPECT_EQ(lastReleased, taken);
         EXPECT_EQ(bytesOf(data), abc);
         EXPECT_EQ(bytesOf(copy), sevens);
      }
      EXPECT_EQ(released, 1);
   }
   {
      VariableLengthData const data = counted();
   }
   EXPECT_EQ(released, 1);
}

TEST(VariableLengthDatas, MoveTheirBytes)
{
   VariableLengthData source = counted();
   void const* const taken = source.data();
   VariableLengthData target(std::move(source));
   EXPECT_EQ(target.data(), taken);
   EXPECT_EQ(source.data(), nullptr); // NOLINT(bugprone-use-after-move): what a move leaves is the point
   EXPECT_EQ(source.size(), 0U);
   VariableLengthData const copyOfNothing(source);
   EXPECT_EQ(copyOfNothing.size(), 0U);
   source.setData("abc", 3);
   EXPECT_EQ(bytesOf(source), abc);
   EXPECT_EQ(released, 0);
   target = std::move(source);
   EXPECT_EQ(released, 1);
   EXPECT_EQ(bytesOf(target), abc);
}

TEST(VariableLengthDatas, SurviveAssignmentToThemselves)
{
   VariableLengthData data = counted();
   VariableLengthData& itself = data;
   data = std::move(itself);
   EXPECT_EQ(bytesOf(data), sevens);
   EXPECT_EQ(released, 0);
   data = itself;
   EXPECT_EQ(bytesOf(data), sevens);
   EXPECT_EQ(released, 1);
}

} // namespace
