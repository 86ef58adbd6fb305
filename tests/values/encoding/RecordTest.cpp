#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <gtest/gtest.h>

namespace {

using namespace rti1516e;

std::wstring const nonMatching = L"Non-matching type";
std::wstring const notMapped = L"Discriminant is not mapped to a value";

int integerOf(DataElement const& element) { return static_cast<HLAinteger32BE const&>(element).get(); }

TEST(FixedRecord, OwnsClonesAndBorrowsTheRest)
{
   HLAinteger32BE lent(1);
   HLAfixedRecord record;
   record.appendElement(lent);
   record.appendElementPointer(&lent);
   HLAfixedRecord const copy(record);
   lent = 2;
   EXPECT_EQ(record.size(), 2U);
   EXPECT_EQ(integerOf(record.get(0)), 1);
   EXPECT_EQ(integerOf(record[1]), 2);
   EXPECT_EQ(integerOf(copy[1]), 1);
   record.set(0, record[1]);
   record.set(1, record[1]);
   lent = 3;
   EXPECT_EQ(integerOf(record[0]), 2);
   EXPECT_EQ(integerOf(record[1]), 2);
   record.setElementPointer(0, &lent);
   record.decode(dataOf(octets("00000004 00000005")));
   EXPECT_EQ(integerOf(lent), 4);

   HLAinteger32LE unlike;
   EXPECT_TRUE(record.hasElementSameTypeAs(0, lent));
   EXPECT_FALSE(record.hasElementSameTypeAs(1, unlike));
   EXPECT_EQ(failureOf([&] { record.set(1, unlike); }), nonMatching);
   EXPECT_EQ(failureOf([&] { record.setElementPointer(1, &unlike); }), nonMatching);
   EXPECT_EQ(integerOf(record[1]), 5);
}

// Alternatives of 8 octets under 1 and of one octet under 2.
HLAvariantRecord wideOrNarrow(int discriminant)
{
   HLAvariantRecord record{HLAinteger32BE()};
   record.addVariant(HLAinteger32BE(1), HLAinteger64BE(5));
   record.addVariant(HLAinteger32BE(2), HLAoctet('o'));
   record.setDiscriminant(HLAinteger32BE(discriminant));
   return record;
}

TEST(VariantRecord, PadsForTheLargestAlternative)
{
   struct
   {
      int discriminant;
      char const* encoded;
   } const cases[] = {
      {1, "00000001 00000000 0000000000000005"},
      {2, "00000002 00000000 6f"},
      {3, "00000003 00000000"},
   };
   for (auto const& [discriminant, encoded] : cases) {
      HLAvariantRecord const record = wideOrNarrow(discriminant);
      expectEncoding(record, octets(encoded), 8);
      HLAvariantRecord decoded = wideOrNarrow(0);
      EXPECT_EQ(decoded.decodeFrom(octets(encoded), 0), discriminant == 3 ? 4 : octets(encoded).size());
      EXPECT_EQ(octetsOf(decoded.encode()), octets(encoded));
   }
   HLAvariantRecord decoded = wideOrNarrow(0);
   expectDecoding(decoded, octets(cases[0].encoded), indexOutOfBounds);
   EXPECT_EQ(failureOf([&] { decoded.decode(dataOf(octets("00000001 00000000 00000000"))); }),
             indexOutOfBounds);

   HLAvariantRecord alone{HLAinteger16BE(3)};
   expectEncoding(alone, octets("0003"), 2);
   expectDecoding(alone, octets("0004"), indexOutOfBounds);
}

TEST(VariantRecord, SelectsByTheHashOfTheDiscriminant)
{
   HLAvariantRecord record = wideOrNarrow(1);
   EXPECT_TRUE(record.getVariant().isSameTypeAs(HLAinteger64BE()));
   record.setDiscriminant(HLAinteger32BE(3));
   EXPECT_EQ(failureOf([&] { record.getVariant(); }), notMapped);
   record.setDiscriminant(HLAinteger16LE(2)); // of another type and equal hash
   EXPECT_TRUE(record.getVariant().isSameTypeAs(HLAoctet()));
   EXPECT_TRUE(record.hasMatchingDiscriminantTypeAs(HLAinteger16LE()));
   EXPECT_FALSE(record.hasMatchingDiscriminantTypeAs(HLAinteger32BE()));
   record.setDiscriminant(record.getDiscriminant());
   expectEncoding(record, octets("0200 000000000000 6f"), 8);
   // An array does as a discriminant; all of them have one hash.
   record.addVariant(HLAfixedArray(HLAoctet(), 2), HLAboolean(true));
   record.setDiscriminant(HLAfixedArray(HLAoctet('z'), 3));
   expectEncoding(record, octets("7a7a7a 0000000000 00000001"), 8);

   EXPECT_TRUE(record.isSameTypeAs(HLAinteger32BE(2), HLAoctet()));
   EXPECT_FALSE(record.isSameTypeAs(HLAinteger32BE(1), HLAoctet()));
   EXPECT_FALSE(record.isSameTypeAs(HLAinteger32BE(9), HLAoctet()));
   EXPECT_TRUE(record.isSameTypeAs(wideOrNarrow(7)));
   EXPECT_FALSE(record.isSameTypeAs(HLAoctet()));
}

TEST(VariantRecord, ReplacesAlternatives)
{
   HLAvariantRecord record = wideOrNarrow(1);
   HLAinteger32BE const one(1);
   HLAfloat64BE unlike;
   EXPECT_EQ(failureOf([&] { record.setVariant(one, unlike); }), nonMatching);
   EXPECT_EQ(failureOf([&] { record.setVariantPointer(one, &unlike); }), nonMatching);
   EXPECT_NE(failureOf([&] { record.setVariantPointer(one, nullptr); }), L"none");
   expectEncoding(record, octets("00000001 00000000 0000000000000005"), 8);

   HLAinteger64BE lent(7);
   record.setVariantPointer(one, &lent);
   record.setVariantPointer(one, &lent);
   HLAvariantRecord const copy(record);
   lent = 8;
   expectEncoding(record, octets("00000001 00000000 0000000000000008"), 8);
   expectEncoding(copy, octets("00000001 00000000 0000000000000007"), 8);
   record.setVariant(one, record.getVariant());
   record.setVariant(one, record.getVariant());
   lent = 9;
   expectEncoding(record, octets("00000001 00000000 0000000000000008"), 8);

   // Under a value that selects nothing yet, anything goes; the discriminant stays.
   record.setVariant(HLAinteger32BE(4), unlike);
   EXPECT_EQ(integerOf(record.getDiscriminant()), 1);
   record.addVariant(one, HLAoctet('r'));
   record.addVariantPointer(HLAinteger32BE(2), &lent);
   expectEncoding(record, octets("00000001 00000000 72"), 8);
   record.decode(dataOf(octets("00000002 00000000 0000000000000006")));
   EXPECT_EQ(lent.get(), 6);
   // A record given as such is copied, and as an element is the discriminant.
   EXPECT_EQ(HLAvariantRecord(record).getEncodedLength(), 16U);
   EXPECT_TRUE(
      HLAvariantRecord(static_cast<DataElement const&>(record)).hasMatchingDiscriminantTypeAs(record));
}

// However deep an element lies, it is measured and encoded as often as if it lay on top.
TEST(ForeignElements, AreMeasuredOnceForAllLevels)
{
   ForeignElement leaf;
   HLAfixedRecord levels[50];
   levels[0].appendElementPointer(&leaf);
   for (std::size_t i = 1; i < std::size(levels); ++i) {
      levels[i].appendElement(HLAoctet());
      levels[i].appendElementPointer(&levels[i - 1]);
   }
   for (HLAfixedRecord const* record : {&levels[0], &levels[49]}) {
      ForeignElement::measured = ForeignElement::encoded = 0;
      Octets const encoded = octetsOf(record->encode());
      EXPECT_LE(ForeignElement::measured, 2);
      EXPECT_EQ(ForeignElement::encoded, 1);
      EXPECT_EQ(record->getEncodedLength(), encoded.size());
      EXPECT_LE(ForeignElement::measured, 4);
      const_cast<HLAfixedRecord*>(record)->decodeFrom(encoded, 0);
      EXPECT_LE(ForeignElement::measured, 5);
   }
}

} // namespace
