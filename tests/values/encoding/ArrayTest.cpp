#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace {

using namespace rti1516e;

std::wstring const tooShort = L"HLAvariableArray cannot decode (indata too short)";
std::wstring const notLikePrototype = L"Element doesn't match prototype";

HLAvariableArray integers(std::initializer_list<int> values)
{
   HLAvariableArray array{HLAinteger32BE()};
   for (int const value : values) {
      array.addElement(HLAinteger32BE(value));
   }
   return array;
}

int integerAt(DataElement const& element) { return static_cast<HLAinteger32BE const&>(element).get(); }

TEST(FixedArray, Encoding)
{
   HLAfixedArray numbers(HLAinteger16BE(7), 3);
   expectEncoding(numbers, octets("0007 0007 0007"), 2);
   expectDecoding(numbers, octets("0001 0002 0003"), indexOutOfBounds);

   HLAfixedArray texts(HLAASCIIstring("ab"), 2);
   expectEncoding(texts, octets("00000002 6162 0000 00000002 6162"), 4);
   expectDecoding(texts, octets("00000001 61 000000 00000003 616263"), indexOutOfBounds);

   HLAfixedArray nothing(HLAinteger64BE(), 0);
   expectEncoding(nothing, {}, 1);
   EXPECT_EQ(nothing.decodeFrom(octets("00 00"), 1), 1U);
   EXPECT_FALSE(nothing.hasPrototypeSameTypeAs(HLAinteger64BE()));
}

TEST(VariableArray, Encoding)
{
   HLAvariableArray pair = integers({1, 2});
   expectEncoding(pair, octets("00000002 00000001 00000002"), 4);
   expectDecoding(pair, octets("00000003 00000005 00000006 00000007"), tooShort);
   ASSERT_EQ(pair.size(), 3U);
   EXPECT_EQ(integerAt(pair.get(2)), 7);
   expectDecoding(pair, octets("00000001 00000008"), tooShort);
   expectDecoding(pair, octets("00000000"), tooShort);

   HLAvariableArray wide{HLAinteger64BE()};
   expectEncoding(wide, octets("00000000"), 8);
   wide.addElement(HLAinteger64BE(1));
   expectEncoding(wide, octets("00000001 00000000 0000000000000001"), 8);
   expectDecoding(wide, octets("00000002 00000000 0000000000000002 0000000000000003"), tooShort);

   expectEncoding(HLAvariableArray{HLAoctet()}, octets("00000000"), 4);

   // Elements are not compared with the prototype, and each has its own boundary.
   HLAvariableArray mixed{HLAoctet()};
   mixed.addElement(HLAinteger64BE(1));
   mixed.addElement(HLAoctet('a'));
   mixed.addElement(HLAinteger16LE(2));
   expectEncoding(mixed, octets("00000003 00000000 0000000000000001 61 00 0200"), 8);
   mixed.set(0, HLAoctet('b'));
   expectEncoding(mixed, octets("00000003 62 61 0200"), 4);
}

TEST(VariableArray, CountStandsAtTheNextMultipleOfFour)
{
   HLAvariableArray array{HLAoctet()};
   EXPECT_EQ(array.decodeFrom(octets("ff ff ff ff 00000002 61 62"), 1), 10U);
   EXPECT_EQ(array.size(), 2U);
}

// What is refused before anything is changed, and what is found out only in an element.
TEST(VariableArray, HostileCounts)
{
   struct
   {
      char const* encoded;
      std::size_t index;
      std::wstring failure;
      std::size_t sizeAfter;
   } const cases[] = {
      {"", 0, tooShort, 2},
      {"000000", 0, tooShort, 2},
      {"00000000 000000", 4, tooShort, 2},
      {"00000000", 1, tooShort, 2},
      {"00000000", std::numeric_limits<std::size_t>::max() - 1, tooShort, 2},
      {"ffffffff 00000000", 0, tooShort, 2},
      {"80000000", 0, tooShort, 2},
      {"00000005 00000000", 0, tooShort, 2},
      {"00000004 00000009", 0, indexOutOfBounds, 4},
      {"00000003 00000009 00000008", 0, indexOutOfBounds, 3},
      {"00000001 000000", 0, indexOutOfBounds, 1},
   };
   for (auto const& each : cases) {
      SCOPED_TRACE(each.encoded);
      HLAvariableArray array = integers({1, 2});
      EXPECT_EQ(failureOf([&] { array.decodeFrom(octets(each.encoded), each.index); }), each.failure);
      ASSERT_EQ(array.size(), each.sizeAfter);
      EXPECT_EQ(integerAt(array[0]), each.sizeAfter > 2 ? 9 : 1);
   }
   // Elements without octets need none, but are not more than the octets left.
   HLAvariableArray empties{HLAfixedRecord()};
   EXPECT_EQ(failureOf([&] { empties.decodeFrom(octets("00000001"), 0); }), tooShort);
   EXPECT_EQ(empties.decodeFrom(octets("00000001 00"), 0), 4U);
   EXPECT_EQ(empties.size(), 1U);
}

// What could not be there at the least length of a constructed element is refused before anything is cloned.
TEST(VariableArray, HostileCountsOfLongElements)
{
   ForeignElement const foreign;
   HLAfixedArray const many(HLAinteger32BE(), 250);
   HLAopaqueData const opaque("something", 9);
   HLAvariableArray const list{HLAinteger64BE()};
   auto const recordOf = [](std::initializer_list<DataElement const*> fields) {
      HLAfixedRecord record;
      for (DataElement const* const field : fields) {
         record.appendElement(*field);
      }
      return record;
   };
   HLAoctet const octet;
   HLAvariantRecord variant(octet);
   variant.addVariant(octet, many);
   HLAASCIIstring const text("text");
   HLAfixedRecord const mixed = recordOf({&octet, &text, &variant, &list});
   HLAfixedRecord const withForeign = recordOf({&octet, &foreign, &many});
   HLAfixedRecord const foreignAlone = recordOf({&octet, &foreign});
   struct
   {
      DataElement const& prototype;
      std::size_t least;
   } const cases[] = {{octet, 1},  {many, 1000}, {opaque, 4},         {list, 4},        {variant, 1},
                      {mixed, 20}, {text, 4},    {withForeign, 1004}, {foreignAlone, 1}};
   for (auto const& each : cases) {
      SCOPED_TRACE(each.least);
      HLAvariableArray array(each.prototype);
      int const living = ForeignElement::live;
      Octets encoded = octets("00000003");
      encoded.resize(4 + 3 * each.least - 1);
      EXPECT_EQ(failureOf([&] { array.decodeFrom(encoded, 0); }), tooShort);
      EXPECT_EQ(array.size(), 0U);
      EXPECT_EQ(ForeignElement::live, living);
      encoded.push_back('\0');
      failureOf([&] { array.decodeFrom(encoded, 0); }); // of an element in it, if at all
      EXPECT_EQ(array.size(), 3U);
   }
   // What is there already is not measured by the prototype.
   HLAvariableArray array(many);
   array.addElement(octet);
   EXPECT_EQ(array.decodeFrom(octets("00000001 07"), 0), 5U);
}

template <class Array>
struct AnyArray;
template <>
struct AnyArray<HLAfixedArray>
{
   HLAfixedArray made{HLAinteger32BE(5), 3};
};
template <>
struct AnyArray<HLAvariableArray>
{
   HLAvariableArray made = integers({5, 5, 5});
};

template <class Array>
struct Arrays : testing::Test, AnyArray<Array>
{};
using BothArrays = testing::Types<HLAfixedArray, HLAvariableArray>;
TYPED_TEST_SUITE(Arrays, BothArrays, );

TYPED_TEST(Arrays, RefuseWhatDoesNotFit)
{
   auto& array = this->made;
   HLAinteger32BE alike;
   HLAinteger32LE unlike;
   EXPECT_EQ(failureOf([&] { array[3]; }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { array.get(3); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { array.set(3, alike); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { array.setElementPointer(3, &alike); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { array.set(3, unlike); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { array.set(0, unlike); }), notLikePrototype);
   EXPECT_EQ(failureOf([&] { array.setElementPointer(0, &unlike); }), notLikePrototype);
   EXPECT_NE(failureOf([&] { array.setElementPointer(0, nullptr); }), L"none");
   EXPECT_TRUE(array.hasPrototypeSameTypeAs(alike));
   EXPECT_FALSE(array.hasPrototypeSameTypeAs(unlike));
   EXPECT_EQ(integerAt(array[0]), 5);
}

TYPED_TEST(Arrays, OwnClonesAndBorrowTheRest)
{
   auto& array = this->made;
   int variable = 1;
   HLAinteger32BE lent(&variable);
   array.set(0, HLAinteger32BE(2));
   array.setElementPointer(1, &lent);
   array.setElementPointer(1, &lent); // by itself
   auto const copy = array.clone();
   array.set(2, array[1]);
   variable = 3;
   EXPECT_EQ(integerAt(array[0]), 2);
   EXPECT_EQ(integerAt(array[1]), 3);
   EXPECT_EQ(integerAt(array[2]), 1);
   EXPECT_EQ(integerAt(static_cast<TypeParam const&>(*copy)[1]), 1);
   array.set(0, array[0]);
   array.setElementPointer(0, const_cast<DataElement*>(&array[0]));
   EXPECT_EQ(integerAt(array[0]), 2);

   Octets encoded;
   HLAfixedArray(HLAinteger32BE(6), 9).encodeInto(encoded);
   encoded[3] = 3;
   array.decodeFrom(encoded, 0);
   EXPECT_EQ(variable, 6) << "decoding reaches what is lent";
   array.set(1, HLAinteger32BE(7));
   EXPECT_EQ(variable, 6) << "replacing does not";
   EXPECT_EQ(integerAt(lent), 6);
}

TEST(VariableArray, KeepsManyElementsInPlaceAsItGrows)
{
   HLAvariableArray array{HLAASCIIstring("p")};
   array.addElement(HLAASCIIstring("first"));
   DataElement const* const first = &array[0];
   Octets expected = octets("000003e8 00000005 6669727374 000000");
   for (int i = 1; i < 1000; ++i) {
      array.addElement(HLAASCIIstring(std::string(1, static_cast<char>(i))));
      Octets const next = {0, 0, 0, 1, static_cast<char>(i), 0, 0, 0};
      expected.insert(expected.end(), next.begin(), next.end());
   }
   expected.resize(expected.size() - 3);
   EXPECT_EQ(&array[0], first);
   expectEncoding(array, expected, 4);
   HLAvariableArray decoded{HLAASCIIstring("p")};
   for (std::uint32_t const size : {500U, 1000U, 3U, 999U, 1000U}) {
      expected[2] = static_cast<char>(size >> 8);
      expected[3] = static_cast<char>(size);
      decoded.decode(dataOf(expected));
      ASSERT_EQ(decoded.size(), size);
      EXPECT_EQ(static_cast<HLAASCIIstring const&>(decoded[0]).get(), "first");
      EXPECT_EQ(static_cast<HLAASCIIstring const&>(decoded[size - 1]).get(),
                std::string(1, static_cast<char>(size - 1)));
   }
}

TEST(FixedArray, OfMoreThanThereIsMemoryFor)
{
   EXPECT_THROW(HLAfixedArray(HLAoctet(), std::numeric_limits<std::size_t>::max()), std::bad_alloc);
   EXPECT_THROW(HLAfixedArray(HLAfixedRecord(), std::numeric_limits<std::size_t>::max() / 16),
                std::bad_alloc);
}

} // namespace
