// What the elements allocate, and what they do when they cannot.
#include "tests/values/CountedMemory.h"
#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace rti1516e;

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

TEST(Memory, IsNotLostInWantOfIt)
{
   HLAfixedRecord const record = everything();
   Octets const encoded = octetsOf(record.encode());
   memory::expectNothingLost([&] { HLAfixedRecord{record}; });
   memory::expectNothingLost([&] { everything(); });
   memory::expectNothingLost([&] {
      Octets buffer;
      record.encodeInto(buffer);
   });
   memory::expectNothingLost([&] {
      HLAvariableArray array(static_cast<DataElement const&>(record));
      array.addElement(record);
      array.set(0, record);
   });
   for (std::size_t i = 0; i < record.size(); ++i) {
      memory::expectNothingLost([&] { record[i].clone(); });
   }
}

// Each operation fails at each of its allocations in turn, and leaves the element as it was.
TEST(Memory, WantOfItLeavesElementsAsTheyWere)
{
   HLAfixedRecord const record = everything();
   struct Elements
   {
      explicit Elements(HLAfixedRecord const& record) : array(static_cast<DataElement const&>(record))
      {
         fields.appendElement(record);
         array.addElement(record);
         variant.addVariant(HLAoctet('k'), record);
      }
      std::vector<Octets> encoded() const
      {
         return {octetsOf(fields.encode()), octetsOf(array.encode()), octetsOf(variant.encode())};
      }

      HLAfixedRecord fields;
      HLAvariableArray array;
      HLAvariantRecord variant{HLAoctet('k')};
   };
   std::function<void(Elements&)> const operations[] = {
      [&](Elements& to) { to.fields.appendElement(record); },
      [&](Elements& to) { to.fields.set(0, record); },
      [&](Elements& to) { to.fields.set(0, to.fields[0]); },
      [&](Elements& to) { to.array.addElement(record); },
      [&](Elements& to) { to.array.set(0, record); },
      [&](Elements& to) { to.variant.setDiscriminant(record); },
      [&](Elements& to) { to.variant.addVariant(HLAoctet('n'), record); },
      [&](Elements& to) { to.variant.setVariant(HLAoctet('n'), to.variant.getVariant()); },
   };
   for (auto const& operation : operations) {
      bool done = false;
      for (int n = 1; !done; ++n) {
         long const before = memory::live;
         {
            Elements elements(record);
            auto const was = elements.encoded();
            done = memory::succeedsWithout(n, [&] { operation(elements); });
            EXPECT_TRUE(done || elements.encoded() == was) << "without allocation " << n;
         }
         EXPECT_EQ(memory::live, before);
      }
   }
}

TEST(Memory, WantOfItLeavesAnEmptyArrayThatCanBeCopied)
{
   HLAASCIIstring const text(longText);
   bool done = false;
   for (int n = 1; !done; ++n) {
      HLAvariableArray array{HLAASCIIstring()};
      done = memory::succeedsWithout(n, [&] { array.addElement(text); });
      HLAvariableArray const copy(array);
      EXPECT_EQ(copy.size(), done ? 1U : 0U) << "without allocation " << n;
   }
}

TEST(Memory, WantOfItWhileDecodingLeavesTextsAndSizes)
{
   HLAvariableArray full{HLAASCIIstring(longText)};
   for (int i = 0; i < 9; ++i) {
      full.addElement(HLAASCIIstring(longText));
   }
   VariableLengthData const encoded = full.encode();
   for (int n = 1;; ++n) {
      HLAvariableArray array{HLAASCIIstring(longText)};
      array.addElement(HLAASCIIstring("kept"));
      if (memory::succeedsWithout(n, [&] { array.decode(encoded); })) {
         EXPECT_EQ(octetsOf(array.encode()), octetsOf(encoded));
         break;
      }
      // Either there was no memory for new elements, or none for a text in one.
      EXPECT_TRUE(array.size() == 1 || array.size() == 9);
      auto const first = static_cast<HLAASCIIstring const&>(array[0]).get();
      EXPECT_TRUE(first == "kept" || first == longText);
   }
}

TEST(Memory, IsNotNeededToDecodeIntoWhatIsThere)
{
   HLAfixedRecord record = everything();
   HLAvariableArray array(static_cast<DataElement const&>(record));
   array.addElement(record);
   array.addElement(record);
   VariableLengthData const data = array.encode();
   Octets const buffer = octetsOf(data);
   long const before = memory::made;
   array.decode(data);
   array.decodeFrom(buffer, 0);
   EXPECT_EQ(array.getEncodedLength(), buffer.size());
   EXPECT_EQ(memory::made, before);
}

TEST(Memory, IsTakenOnceForAnEncoding)
{
   HLAfixedRecord const record = everything();
   long before = memory::made;
   record.encode();
   EXPECT_EQ(memory::made - before, 2) << "the octets, and what VariableLengthData points to";
   Octets buffer;
   before = memory::made;
   record.encodeInto(buffer);
   HLAASCIIstring(longText).encodeInto(buffer);
   EXPECT_EQ(memory::made - before, 1 + 1 + 2) << "the buffer twice, and what the text is made of";
}

} // namespace
