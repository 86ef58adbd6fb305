// Want of memory at each allocation of an operation in turn: nothing is lost, and what was there stays. And
// how much the elements allocate. A program of its own, for it replaces operator new.
#include "src/values/HandleAccess.h"
#include "tests/support/CountedMemory.h"
#include "tests/values/Bytes.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace rti1516e;
using memory::live;
using memory::succeedsWithout;

std::string const longText(99, 't');

HLAfixedRecord everything()
{
   HLAfixedRecord record;
#define APPEND(Name, Value) record.appendElement(Name());
   RTI_FOR_EACH_BASIC_ELEMENT(APPEND)
#undef APPEND
   record.set(1, HLAASCIIstring(longText));
   HLAvariableArray array{HLAASCIIstring("prototype")};
   array.addElement(HLAASCIIstring(longText));
   array.addElement(HLAASCIIstring(longText));
   record.appendElement(array);
   record.appendElement(HLAfixedArray(HLAinteger32BE(1), 3));
   record.appendElement(HLAopaqueData("opaque", 6));
   HLAvariantRecord variant{HLAboolean(true)};
   variant.addVariant(HLAboolean(true), HLAunicodeString(std::wstring(99, L'w')));
   variant.addVariant(HLAboolean(false), HLAfixedRecord());
   record.appendElement(variant);
   return record;
}

template <class Factory>
std::vector<std::function<void()>> operationsOfTimes()
{
   static Factory factory;
   static auto const time = factory.makeLogicalTime(1);
   static auto const interval = factory.makeLogicalTimeInterval(1);
   static auto const data = time->encode();
   static char bytes[8] = {};
   using Time = std::remove_reference_t<decltype(*time)>;
   using Interval = std::remove_reference_t<decltype(*interval)>;
   return {
      [] { Time(); },
      [] { Time{*time}; },
      [] { Time(static_cast<LogicalTime const&>(*time)); },
      [] { Interval(3); },
      [] { Interval(static_cast<LogicalTimeInterval const&>(*interval)); },
      [] { time->encode(); },
      [] { time->toString(); },
      [] { factory.makeFinal(); },
      [] { factory.makeEpsilon(); },
      [] { factory.decodeLogicalTime(bytes, 8); },
      [] { factory.decodeLogicalTime(data); },
      [] { factory.decodeLogicalTimeInterval(data); },
      [] { HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(factory.getName()); },
   };
}

// Each makes everything that it needs and lets go of it again.
TEST(WantOfMemory, LosesNothing)
{
   HLAfixedRecord const record = everything();
   auto const handle = HandleAccess::retractionHandle(7, "extra", 5);
   auto const encodedHandle = handle.encode();
   std::vector<std::function<void()>> operations = {
      [&] { MessageRetractionHandle const copy(handle); },
      [&] { static_cast<void>(handle.encode()); },
      [&] { HandleAccess::decode<MessageRetractionHandle>(encodedHandle); },
      [&] { HLAfixedRecord{record}; },
      [] { everything(); },
      [&] {
         std::vector<char> buffer;
         record.encodeInto(buffer);
      },
      [&] {
         HLAvariableArray array(static_cast<DataElement const&>(record));
         array.addElement(record);
         array.set(0, record);
      },
   };
   for (std::size_t i = 0; i < record.size(); ++i) {
      operations.emplace_back([&record, i] { record[i].clone(); });
   }
   for (auto const& times :
        {operationsOfTimes<HLAinteger64TimeFactory>(), operationsOfTimes<HLAfloat64TimeFactory>()}) {
      operations.insert(operations.end(), times.begin(), times.end());
   }
   for (std::size_t i = 0; i < operations.size(); ++i) {
      SCOPED_TRACE(i);
      memory::expectNothingLost(operations[i]);
   }
}

// What operations work upon, and how it looks.
struct Values
{
   explicit Values(HLAfixedRecord const& from) : record(from), array(static_cast<DataElement const&>(from))
   {
      fields.appendElement(record);
      array.addElement(record);
      variant.addVariant(HLAoctet('k'), record);
      texts.addElement(HLAASCIIstring("kept"));
   }
   std::vector<Bytes> encoded() const
   {
      return {bytesOf(data),           bytesOf(handle.encode()),  bytesOf(fields.encode()),
              bytesOf(array.encode()), bytesOf(variant.encode()), bytesOf(texts.encode())};
   }

   HLAfixedRecord const& record;
   VariableLengthData data{"old", 3};
   MessageRetractionHandle handle = HandleAccess::retractionHandle(8, "x", 1);
   HLAfixedRecord fields;
   HLAvariableArray array;
   HLAvariantRecord variant{HLAoctet('k')};
   HLAvariableArray texts{HLAASCIIstring(longText)};
};

TEST(WantOfMemory, LeavesWhatWasThereAsItWas)
{
   HLAfixedRecord const record = everything();
   VariableLengthData const fresh("new!", 4);
   auto const handle = HandleAccess::retractionHandle(7, "extra", 5);
   std::function<void(Values&)> const operations[] = {
      [&](Values& to) { to.data.setData(fresh.data(), 4); },
      [&](Values& to) { to.data = fresh; },
      [&](Values& to) { to.data = VariableLengthData(fresh.data(), 4); },
      [&](Values& to) { to.handle = handle; },
      [&](Values& to) { to.fields.appendElement(record); },
      [&](Values& to) { to.fields.set(0, record); },
      [&](Values& to) { to.fields.set(0, to.fields[0]); },
      [&](Values& to) { to.array.addElement(record); },
      [&](Values& to) { to.array.set(0, record); },
      [&](Values& to) { to.texts.addElement(HLAASCIIstring(longText)); },
      [&](Values& to) { to.variant.setDiscriminant(record); },
      [&](Values& to) { to.variant.addVariant(HLAoctet('n'), record); },
      [&](Values& to) { to.variant.setVariant(HLAoctet('n'), to.variant.getVariant()); },
   };
   for (auto const& operation : operations) {
      bool done = false;
      for (int n = 1; !done; ++n) {
         long const before = live;
         {
            Values values(record);
            auto const was = values.encoded();
            done = succeedsWithout(n, [&] { operation(values); });
            EXPECT_TRUE(done || values.encoded() == was) << "without allocation " << n;
         }
         EXPECT_EQ(live, before);
      }
   }
}

TEST(WantOfMemory, ReleasesTakenBytesOnce)
{
   static int released;
   released = 0;
   char bytes[] = "abc";
   VariableLengthData data("old", 3);
   succeedsWithout(1, [&] { data.takeDataPointer(bytes, 3, [](void*) { ++released; }); });
   EXPECT_EQ(released, 1);
   EXPECT_EQ(data.data(), nullptr);
   succeedsWithout(1, [&] { data.setDataPointer(bytes, 3); });
   EXPECT_EQ(data.data(), nullptr);
   EXPECT_EQ(released, 1);
}

TEST(WantOfMemory, LeavesAnEmptyArrayThatCanBeCopied)
{
   HLAASCIIstring const text(longText);
   bool done = false;
   for (int n = 1; !done; ++n) {
      HLAvariableArray array{HLAASCIIstring()};
      done = succeedsWithout(n, [&] { array.addElement(text); });
      HLAvariableArray const copy(array);
      EXPECT_EQ(copy.size(), done ? 1U : 0U) << "without allocation " << n;
   }
}

TEST(WantOfMemory, WhileDecodingLeavesTextsAndSizes)
{
   HLAvariableArray full{HLAASCIIstring(longText)};
   for (int i = 0; i < 9; ++i) {
      full.addElement(HLAASCIIstring(longText));
   }
   VariableLengthData const encoded = full.encode();
   bool done = false;
   for (int n = 1; !done; ++n) {
      HLAvariableArray array{HLAASCIIstring(longText)};
      array.addElement(HLAASCIIstring("kept"));
      done = succeedsWithout(n, [&] { array.decode(encoded); });
      // Either there was no memory for new elements, or none for a text in one.
      EXPECT_TRUE(array.size() == 9 || (array.size() == 1 && !done));
      auto const first = static_cast<HLAASCIIstring const&>(array[0]).get();
      EXPECT_TRUE(first == longText || (first == "kept" && !done));
   }
}

TEST(Memory, IsTakenOnceForAnEncodingAndNotForDecodingIntoWhatIsThere)
{
   HLAfixedRecord record = everything();
   HLAvariableArray array(static_cast<DataElement const&>(record));
   array.addElement(record);
   long before = memory::made;
   VariableLengthData const data = array.encode();
   EXPECT_EQ(memory::made - before, 2) << "the octets, and what VariableLengthData points to";
   std::vector<char> buffer;
   before = memory::made;
   array.encodeInto(buffer);
   EXPECT_EQ(memory::made - before, 1);
   before = memory::made;
   array.decode(data);
   array.decodeFrom(buffer, 0);
   EXPECT_EQ(array.getEncodedLength(), buffer.size());
   EXPECT_EQ(memory::made, before);
}

} // namespace
