// Want of memory at each allocation of an operation in turn: nothing is lost, and what was there stays. And
// how much the elements allocate. A program of its own, for it replaces operator new.
#include "src/values/HandleAccess.h"
#include "tests/support/CountedMemory.h"
#include "tests/values/encoding/Elements.h"

#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <functional>

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
   HLAvariantRecord variant{HLAboolean(true)};
   variant.addVariant(HLAboolean(true), HLAunicodeString(std::wstring(99, L'w')));
   variant.addVariant(HLAboolean(false), HLAfixedRecord());
   HLAASCIIstring const text(longText);
   return listOf(record, listOf(HLAvariableArray(HLAASCIIstring("prototype")), text, text),
                 HLAfixedArray(HLAinteger32BE(1), 3), HLAopaqueData("opaque", 6), variant);
}

// What operations work upon, and how it looks.
struct Values
{
   Values()
   {
      fields.appendElement(record);
      array.addElement(record);
      variant.addVariant(HLAoctet('k'), record);
      texts.addElement(HLAASCIIstring("kept"));
   }
   std::vector<Octets> encoded() const
   {
      return {octetsOf(data),           octetsOf(handle.encode()),  octetsOf(fields.encode()),
              octetsOf(array.encode()), octetsOf(variant.encode()), octetsOf(texts.encode()),
              octetsOf(none.encode())};
   }

   HLAfixedRecord const record = everything();
   VariableLengthData data{"old", 3};
   MessageRetractionHandle handle = HandleAccess::retractionHandle(8, "x", 1);
   HLAfixedRecord fields;
   HLAvariableArray array{static_cast<DataElement const&>(record)};
   HLAvariantRecord variant{HLAoctet('k')};
   HLAvariableArray texts{HLAASCIIstring(longText)};
   HLAvariableArray none{HLAASCIIstring()};
};

using Operations = std::vector<std::function<void(Values&)>>;

template <class Factory>
void addOperationsOfTimes(Operations& operations)
{
   static Factory factory;
   static auto const time = factory.makeLogicalTime(1);
   static auto const interval = factory.makeLogicalTimeInterval(1);
   static auto const data = time->encode();
   using Time = std::remove_reference_t<decltype(*time)>;
   using Interval = std::remove_reference_t<decltype(*interval)>;
   operations.insert(
      operations.end(),
      {[](Values&) { Time(); }, [](Values&) { Time{*time}; },
       [](Values&) { Time(static_cast<LogicalTime const&>(*time)); },
       [](Values&) { Interval(static_cast<LogicalTimeInterval const&>(*interval)); },
       [](Values&) { time->encode(); }, [](Values&) { time->toString(); },
       [](Values&) { factory.makeFinal(); }, [](Values&) { factory.makeEpsilon(); },
       [](Values&) { factory.decodeLogicalTime(data); },
       [](Values&) { factory.decodeLogicalTimeInterval(data); },
       [](Values&) { HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(factory.getName()); }});
}

TEST(WantOfMemory, LosesNothingAndLeavesWhatWasThere)
{
   VariableLengthData const fresh("new!", 4);
   auto const handle = HandleAccess::retractionHandle(7, "extra", 5);
   auto const encodedHandle = handle.encode();
   Operations operations = {
      [&](Values&) { MessageRetractionHandle const copy(handle); },
      [&](Values&) { static_cast<void>(handle.encode()); },
      [&](Values&) { HandleAccess::decode<MessageRetractionHandle>(encodedHandle); },
      [](Values&) { everything(); },
      [](Values& to) { to.record.clone(); },
      [](Values& to) { to.record.encode(); },
      [](Values& to) { to.array.clone(); },
      [&](Values& to) { to.data.setData(fresh.data(), 4); },
      [&](Values& to) { to.data = fresh; },
      [&](Values& to) { to.data = VariableLengthData(fresh.data(), 4); },
      [&](Values& to) { to.handle = handle; },
      [](Values& to) { to.fields.appendElement(to.record); },
      [](Values& to) { to.fields.set(0, to.record); },
      [](Values& to) { to.fields.set(0, to.fields[0]); },
      [](Values& to) { to.array.addElement(to.record); },
      [](Values& to) { to.array.set(0, to.record); },
      [](Values& to) { to.texts.addElement(HLAASCIIstring(longText)); },
      [](Values& to) { to.none.addElement(HLAASCIIstring(longText)); },
      [](Values& to) { to.variant.setDiscriminant(to.record); },
      [](Values& to) { to.variant.addVariant(HLAoctet('n'), to.record); },
      [](Values& to) { to.variant.setVariant(HLAoctet('n'), to.variant.getVariant()); },
   };
   addOperationsOfTimes<HLAinteger64TimeFactory>(operations);
   addOperationsOfTimes<HLAfloat64TimeFactory>(operations);
   for (std::size_t i = 0; i < operations.size(); ++i) {
      bool done = false;
      for (int n = 1; !done; ++n) {
         SCOPED_TRACE(testing::Message() << "operation " << i << " without allocation " << n);
         long const before = live;
         {
            Values values;
            auto const was = values.encoded();
            done = succeedsWithout(n, [&] { operations[i](values); });
            EXPECT_TRUE(!done || n > 1) << "nothing was allocated at all";
            EXPECT_TRUE(done || values.encoded() == was);
            EXPECT_EQ(HLAvariableArray(values.none).size(), values.none.size());
         }
         EXPECT_EQ(live, before);
      }
   }
}

TEST(WantOfMemory, ReleasesTakenBytesOnce)
{
   static int released = 0;
   char bytes[] = "abc";
   VariableLengthData data("old", 3);
   succeedsWithout(1, [&] { data.takeDataPointer(bytes, 3, [](void*) { ++released; }); });
   EXPECT_EQ(released, 1);
   EXPECT_EQ(data.data(), nullptr);
   succeedsWithout(1, [&] { data.setDataPointer(bytes, 3); });
   EXPECT_EQ(data.data(), nullptr);
   EXPECT_EQ(released, 1);
}

TEST(WantOfMemory, WhileDecodingLeavesTextsAndSizes)
{
   HLAASCIIstring const text(longText);
   auto const encoded = listOf(HLAvariableArray(text), text, text, text, text, text, text).encode();
   bool done = false;
   for (int n = 1; !done; ++n) {
      Values values;
      done = succeedsWithout(n, [&] { values.texts.decode(encoded); });
      // Either there was no memory for new elements, or none for a text in one.
      EXPECT_TRUE(values.texts.size() == 6 || (values.texts.size() == 1 && !done));
      auto const first = static_cast<HLAASCIIstring const&>(values.texts[0]).get();
      EXPECT_TRUE(first == longText || (first == "kept" && !done));
   }
}

TEST(Memory, IsTakenOnceForAnEncodingAndNotForDecodingIntoWhatIsThere)
{
   Values values;
   long before = memory::made;
   VariableLengthData const data = values.array.encode();
   EXPECT_EQ(memory::made - before, 2) << "the octets, and what VariableLengthData points to";
   std::vector<char> buffer;
   before = memory::made;
   values.array.encodeInto(buffer);
   EXPECT_EQ(memory::made - before, 1);
   before = memory::made;
   values.array.decode(data);
   values.array.decodeFrom(buffer, 0);
   EXPECT_EQ(values.array.getEncodedLength(), buffer.size());
   EXPECT_EQ(memory::made, before);
}

} // namespace
