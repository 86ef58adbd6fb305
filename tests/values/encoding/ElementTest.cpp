// What the elements look like, octet by octet.
#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Elements.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <typeinfo>

namespace {

using namespace rti1516e;

template <class Element, class Value>
void expectRow(Value const& value, std::string const& hexadecimal, unsigned int boundary, std::uint32_t hash)
{
   SCOPED_TRACE(std::string(typeid(Element).name()) + " " + hexadecimal);
   Octets encoded = octets(hexadecimal);
   Element const element(value);
   EXPECT_EQ(element.get(), value);
   EXPECT_EQ(element.hash(), static_cast<Integer64>(hash));
   expectBothWays(element, encoded, boundary);
   Element decoded;
   decoded.decode(dataOf(encoded));
   encoded.pop_back();
   EXPECT_NE(failureOf([&] { decoded.decodeFrom(encoded, 0); }), L"");
   EXPECT_EQ(decoded.get(), value) << "changed by a failed decode";
}

constexpr std::uint32_t mark = 0xDEADBEEF;

TEST(BasicElements, AreNumbers)
{
   expectRow<HLAASCIIchar>('A', "41", 1, 0x41 ^ mark);
   expectRow<HLAbyte>('\x80', "80", 1, 0xFFFFFF80 ^ mark);
   expectRow<HLAoctet>('\0', "00", 1, mark);
   expectRow<HLAoctetPairBE>(OctetPair('\x12', '\x34'), "12 34", 2, 0x1234 ^ mark);
   expectRow<HLAoctetPairBE>(OctetPair('\xFF', '\x80'), "ff 80", 2, 0xFFFFFE80 ^ mark);
   expectRow<HLAoctetPairLE>(OctetPair('\x12', '\x34'), "34 12", 2, 0x1234 ^ mark);
   expectRow<HLAboolean>(true, "00 00 00 01", 4, 1 ^ mark);
   expectRow<HLAboolean>(false, "00 00 00 00", 4, mark);
   expectRow<HLAunicodeChar>(L'\xFFFD', "ff fd", 2, 0xFFFD ^ mark);
   expectRow<HLAinteger16BE>(Integer16{0x0102}, "01 02", 2, 0x0102 ^ mark);
   expectRow<HLAinteger16BE>(Integer16{-2}, "ff fe", 2, 0xFFFFFFFE ^ mark);
   expectRow<HLAinteger16LE>(Integer16{0x0102}, "02 01", 2, 0x0102 ^ mark);
   expectRow<HLAinteger32BE>(0x01020304, "01 02 03 04", 4, 0x01020304 ^ mark);
   expectRow<HLAinteger32BE>(std::numeric_limits<int>::min(), "80 00 00 00", 4, 0x80000000 ^ mark);
   expectRow<HLAinteger32LE>(0x01020304, "04 03 02 01", 4, 0x01020304 ^ mark);
   expectRow<HLAinteger64BE>(0x0102030405060708LL, "01 02 03 04 05 06 07 08", 8, 0x05060708 ^ mark);
   expectRow<HLAinteger64LE>(-2LL, "fe ff ff ff ff ff ff ff", 8, 0xFFFFFFFE ^ mark);
   expectRow<HLAfloat32BE>(1.5F, "3f c0 00 00", 4, 1 ^ mark);
   expectRow<HLAfloat32LE>(-2.75F, "00 00 30 c0", 4, 0xFFFFFFFE ^ mark);
   expectRow<HLAfloat64BE>(-1e10, "c2 02 a0 5f 20 00 00 00", 8, 0xABF41C00 ^ mark);
   expectRow<HLAfloat64LE>(0.1, "9a 99 99 99 99 99 b9 3f", 8, mark);
   // Out of the range of 64 bits, where there is no integer to cut down.
   double const infinity = std::numeric_limits<double>::infinity();
   expectRow<HLAfloat64BE>(-infinity, "ff f0 00 00 00 00 00 00", 8, mark);
   expectRow<HLAfloat64BE>(0x1p63, "43 e0 00 00 00 00 00 00", 8, mark);
   expectRow<HLAfloat64BE>(-0x1p63, "c3 e0 00 00 00 00 00 00", 8, mark);
   expectRow<HLAfloat64BE>(0x1p62 + 0x1p31, "43 d0 00 00 00 20 00 00", 8, 0x80000000 ^ mark);
   // The bits of what is not a number survive.
   HLAfloat64BE notANumber;
   notANumber.decode(dataOf(octets("7f f0 00 00 00 00 12 34")));
   EXPECT_TRUE(std::isnan(notANumber.get()));
   EXPECT_EQ(notANumber.hash(), Integer64{mark});
   EXPECT_EQ(octetsOf(notANumber.encode()), octets("7f f0 00 00 00 00 12 34"));
   for (auto const* const encoded : {"00 00 00 02", "ff ff ff ff", "01 00 00 00"}) {
      HLAboolean boolean(true);
      boolean.decode(dataOf(octets(encoded)));
      EXPECT_FALSE(boolean.get()) << encoded;
   }
}

TEST(BasicElements, AreTexts)
{
   using namespace std::string_literals;
   expectRow<HLAASCIIstring>("abc"s, "00 00 00 03 61 62 63", 4, 0x439C2F4B);
   expectRow<HLAASCIIstring>("\0\x80"s, "00 00 00 02 00 80", 4, 0xEE89684D);
   expectRow<HLAunicodeString>(L""s, "00 00 00 00", 4, 0x811C9DC5);
   expectRow<HLAunicodeString>(L"a\0\x20ac"s, "00 00 00 03 00 61 00 00 20 ac", 4, 0x659C4402);
   expectRow<HLAunicodeString>(L"\x1F600!"s, "00 00 00 03 d8 3d de 00 00 21", 4, 0x1F6450D3);
   expectRow<HLAunicodeString>(L"\x10FFFF"s, "00 00 00 02 db ff df ff", 4, 0xD2B88D5F);
   // Lone surrogates, in the wrong order, and one before a pair.
   expectRow<HLAunicodeString>(L"\xDE00\xD83D"s, "00 00 00 02 de 00 d8 3d", 4, 0x11B2B1F0);
   expectRow<HLAunicodeString>(L"\xD83D\x1F600"s, "00 00 00 03 d8 3d d8 3d de 00", 4, 0x54671461);
   // Characters that are none, and one that is too wide.
   expectEncoding(HLAunicodeString({L'a', static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)}),
                  octets("00 00 00 03 00 61 ff fd ff fd"), 4);
   HLAunicodeChar const wide(static_cast<wchar_t>(0x10000));
   EXPECT_NE(failureOf([&] { wide.encode(); }).find(L"U+FFFF"), std::wstring::npos);
   Octets buffer(3, 'b');
   EXPECT_NE(failureOf([&] { wide.encodeInto(buffer); }), L"");
   EXPECT_EQ(buffer, Octets(3, 'b'));
}

TEST(ConstructedElements, AlignWhatTheyConsistOf)
{
   HLAvariableArray const bytes{HLAoctet()}, longs{HLAinteger64BE()}, texts{HLAASCIIstring("p")};
   struct
   {
      DataElement const& element;
      char const* encoded;
      unsigned int boundary;
   } const rows[] = {
      {HLAopaqueData("\1\2\3", 3), "00000003 010203", 4},
      {HLAopaqueData(), "00000000", 4},
      {HLAfixedArray(HLAopaqueData("a", 1), 2), "00000001 61 000000 00000001 61", 4},
      {HLAfixedArray(HLAinteger16BE(7), 3), "0007 0007 0007", 2},
      {HLAfixedArray(HLAinteger64BE(), 0), "", 1},
      {bytes, "00000000", 4},
      {longs, "00000000", 8},
      {listOf(longs, HLAinteger64BE(1)), "00000001 00000000 0000000000000001", 8},
      {listOf(texts, HLAASCIIstring("ab"), HLAASCIIstring()), "00000002 00000002 6162 0000 00000000", 4},
      {listOf(HLAfixedRecord(), HLAoctet('a'), HLAinteger64LE(2), HLAinteger16BE(3)),
       "61 00000000000000 0200000000000000 0003", 8},
      {wideOrNarrow(1), "00000001 00000000 0000000000000005", 8},
      {wideOrNarrow(2), "00000002 00000000 6f", 8},
      {HLAvariantRecord(HLAinteger16BE(3)), "0003", 2},
   };
   for (auto const& row : rows) {
      SCOPED_TRACE(row.encoded);
      expectBothWays(row.element, octets(row.encoded), row.boundary);
   }
   // What is not mapped has its padding, which is not asked for again.
   expectEncoding(wideOrNarrow(3), octets("00000003 00000000"), 8);
   EXPECT_EQ(wideOrNarrow(1).decodeFrom(octets("00000003"), 0), 4U);
   // Elements are not compared with the prototype, and each has its own boundary.
   HLAvariableArray mixed = listOf(bytes, HLAinteger64BE(1), HLAoctet('a'), HLAinteger16LE(2));
   expectEncoding(mixed, octets("00000003 00000000 0000000000000001 61 00 0200"), 8);
   mixed.set(0, HLAoctet('b'));
   expectEncoding(mixed, octets("00000003 62 61 0200"), 4);
   // A count stands at the next multiple of four, but that of opaque data where it is said to be.
   EXPECT_EQ(mixed.decodeFrom(octets("ff ff ff ff 00000000"), 1), 8U);
   EXPECT_EQ(HLAopaqueData().decodeFrom(octets("ff 00000001 62"), 1), 6U);
}

TEST(ConstructedElements, KeepManyElementsInPlaceAsTheyGrow)
{
   HLAvariableArray array{HLAASCIIstring("p")};
   Octets expected(4);
   for (char i = 0; i < 100; ++i) {
      array.addElement(HLAASCIIstring({i}));
      expected = joined(expected, {0, 0, 0, 1, i, 0, 0, 0});
   }
   DataElement const* const first = &array[0];
   for (int const size : {50, 100, 3, 99, 100}) {
      expected[3] = static_cast<char>(size);
      array.decode(dataOf(expected));
      EXPECT_EQ(&array[0], first);
      expectEncoding(array, Octets(expected.begin(), expected.begin() + 8 * size + 1), 4);
   }
}

// Fields stand behind one another as if each had been encoded alone, also when some have been replaced by
// others of their class, which may be longer.
TEST(ConstructedElements, HaveAnyFieldsAfterAnyOthers)
{
   HLAfixedArray const arrays[] = {
      {HLAinteger16BE(4), 3}, {HLAinteger64LE(5), 1}, {HLAoctet('b'), 70'000}, {HLAASCIIstring("d"), 2}};
   HLAASCIIstring const text("abc");
   HLAinteger16BE const two(1);
   HLAfloat32LE const four(2);
   HLAinteger64BE const eight(3);
   DataElement const* const others[] = {&text, &two, &four, &eight};
   std::mt19937 random(3);
   for (int n = 0; n < 100; ++n) {
      HLAfixedRecord record;
      for (auto left = random() % 300; left > 0; --left) {
         auto const chosen = random() % 64;
         record.appendElement(chosen < 8 ? arrays[chosen % 2] : *others[chosen == 8 ? 0 : chosen % 3 + 1]);
      }
      for (bool const replaces : {false, true}) {
         Octets expected;
         unsigned int boundary = 1;
         for (std::size_t i = 0; i < record.size(); ++i) {
            if (replaces && record.hasElementSameTypeAs(i, arrays[0])) {
               record.set(i, arrays[random() % 50 == 0 ? 2 : random() % 2 * 3]);
            }
            unsigned int const own = record[i].getOctetBoundary();
            expected.resize((expected.size() + own - 1) / own * own);
            expected = joined(expected, octetsOf(record[i].encode()));
            boundary = std::max(boundary, own);
         }
         expectEncoding(record, expected, boundary);
         record.decode(dataOf(expected));
         expectEncoding(record, expected, boundary);
      }
   }
}

// However deep an element lies, it is measured and encoded as often as if it lay on top.
TEST(ConstructedElements, AreMeasuredOnceForAllLevels)
{
   ForeignElement leaf;
   HLAfixedRecord levels[50];
   levels[0].appendElementPointer(&leaf);
   for (std::size_t i = 1; i < std::size(levels); ++i) {
      levels[i].appendElementPointer(&levels[i - 1]);
   }
   for (HLAfixedRecord* record : {&levels[0], &levels[49]}) {
      ForeignElement::measured = ForeignElement::encoded = 0;
      Octets const encoded = octetsOf(record->encode());
      EXPECT_LE(ForeignElement::measured, 2);
      EXPECT_EQ(ForeignElement::encoded, 1);
      EXPECT_EQ(record->getEncodedLength(), encoded.size());
      record->decodeFrom(encoded, 0);
      EXPECT_LE(ForeignElement::measured, 5);
   }
}

} // namespace
