// Which values are an element's own, which are lent to it, and what may take the place of which.
#include "tests/values/encoding/Elements.h"

#include <type_traits>

namespace {

using namespace rti1516e;

std::wstring const nonMatching = L"Non-matching type";

int integerOf(DataElement const& element) { return static_cast<HLAinteger32BE const&>(element).get(); }

template <class Value>
Value sample(int number) // told apart even as booleans
{
   if constexpr (std::is_same_v<Value, OctetPair>) {
      return OctetPair(static_cast<char>(number), 'x');
   } else if constexpr (std::is_class_v<Value>) {
      return Value(30, static_cast<typename Value::value_type>('0' + number));
   } else {
      return static_cast<Value>(number);
   }
}

template <class Element, class Value = decltype(Element().get())>
void keepsItsValueOrTheCallers()
{
   Value const zero = Value();
   Value const one = sample<Value>(1);
   Value variable = one;
   Element element(&variable);
   variable = zero;
   EXPECT_EQ(element.get(), zero);
   EXPECT_EQ(element.hash(), Element().hash());
   Element const copy(element);
   auto const clone = element.clone();
   element.decode(Element(one).encode());
   EXPECT_EQ(variable, one) << "decoding writes into the variable";
   EXPECT_EQ(copy.get(), zero);
   EXPECT_EQ(octetsOf(clone->encode()), octetsOf(copy.encode()));
   element.set(zero);
   EXPECT_EQ(static_cast<Value>(element), zero);
   EXPECT_EQ(variable, one) << "setting does not";
   element.setDataPointer(&variable);
   EXPECT_EQ(element.get(), one);
   element.setDataPointer(nullptr);
   EXPECT_EQ(element.get(), zero) << "the own value is back";

   element.setDataPointer(&variable);
   Element const& itself = element;
   element = itself;
   variable = zero;
   EXPECT_EQ(element.get(), one) << "assignment lets go of the variable, and keeps its value";
   element = zero;
   EXPECT_EQ(element.get(), zero);

   int same = 0;
#define COMPARE(Name, Value) same += element.isSameTypeAs(Name()) ? 1 : 0;
   RTI_FOR_EACH_BASIC_ELEMENT(COMPARE)
#undef COMPARE
   EXPECT_EQ(same, 1);
   EXPECT_TRUE(element.isSameTypeAs(*clone));
}

TEST(BasicElements, KeepTheirValuesOrTheCallers)
{
#define CHECK_ELEMENT(Name, Value) keepsItsValueOrTheCallers<Name>();
   RTI_FOR_EACH_BASIC_ELEMENT(CHECK_ELEMENT)
#undef CHECK_ELEMENT
}

// Of three fives, as an array or a record.
template <class List>
void ownsClonesAndBorrowsWhatFits(List list, std::wstring const& unlikeText)
{
   int variable = 1;
   HLAinteger32BE lent(&variable);
   HLAinteger32LE unlike;
   EXPECT_EQ(failureOf([&] { list.get(3); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { list.set(3, unlike); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { list.setElementPointer(3, &lent); }), arrayIndexOutOfBounds);
   EXPECT_EQ(failureOf([&] { list.set(0, unlike); }), unlikeText);
   EXPECT_EQ(failureOf([&] { list.setElementPointer(0, &unlike); }), unlikeText);
   EXPECT_NE(failureOf([&] { list.setElementPointer(0, nullptr); }), L"");
   EXPECT_EQ(integerOf(list[0]), 5);

   list.set(0, HLAinteger32BE(2));
   list.setElementPointer(1, &lent);
   list.setElementPointer(1, &lent); // by itself
   auto const copy = list.clone();
   list.set(2, list[1]);
   variable = 3;
   EXPECT_EQ(integerOf(static_cast<List const&>(*copy)[1]), 1);
   list.set(0, list[0]);
   list.setElementPointer(0, const_cast<DataElement*>(&list[0]));
   auto const encoded = list.encode();
   EXPECT_EQ(integerOf(list[0]) * 100 + integerOf(list[1]) * 10 + integerOf(list[2]), 231);
   variable = 6;
   list.decode(encoded);
   EXPECT_EQ(variable, 3) << "decoding reaches what is lent";
   list.set(1, HLAinteger32BE(7));
   EXPECT_EQ(variable, 3) << "replacing does not";
}

TEST(ArraysAndRecords, OwnClonesAndBorrowWhatFits)
{
   HLAinteger32BE five(5);
   HLAfixedArray const fixed(five, 3);
   HLAvariableArray variable = listOf(HLAvariableArray(five), five, five, five);
   HLAfixedRecord record = listOf(HLAfixedRecord(), five, five, five);
   ownsClonesAndBorrowsWhatFits(fixed, L"Element doesn't match prototype");
   ownsClonesAndBorrowsWhatFits(variable, L"Element doesn't match prototype");
   ownsClonesAndBorrowsWhatFits(record, nonMatching);
   EXPECT_TRUE(fixed.hasPrototypeSameTypeAs(five) && record.hasElementSameTypeAs(0, five));
   EXPECT_FALSE(variable.hasPrototypeSameTypeAs(HLAoctet()) || record.hasElementSameTypeAs(1, HLAoctet()));
   EXPECT_FALSE(HLAfixedArray(five, 0).hasPrototypeSameTypeAs(five));
   record.appendElementPointer(&five);
   variable.addElementPointer(&five);
   five = 6;
   EXPECT_EQ(integerOf(record[3]), 6);
   EXPECT_EQ(integerOf(variable[3]), 6);
}

TEST(OpaqueDatas, UseTheBufferOfTheCaller)
{
   char buffer[8] = "abcdefg";
   char* pointer = buffer;
   HLAopaqueData data(&pointer, 8, 2);
   pointer = nullptr; // is asked for the buffer once
   buffer[0] = 'A';
   HLAopaqueData const copy(data);
   data.decode(dataOf(octets("00000003 616263")));
   EXPECT_EQ(data.get(), buffer);
   EXPECT_STREQ(buffer, "abcdefg");
   EXPECT_EQ(data.dataLength(), 3U);
   EXPECT_EQ(data.bufferLength(), 8U);
   expectEncoding(copy, octets("00000002 4162"), 4);
   EXPECT_EQ(copy.bufferLength(), 2U);
   data.set(data.get() + 1, 2); // of its own from now on
   buffer[1] = 'B';
   expectEncoding(data, octets("00000002 6263"), 4);
   pointer = buffer;
   data.setDataPointer(&pointer, 8, 0);
   data.decode(dataOf(octets("00000008 6869 6a6b6c6d6e6f")));
   EXPECT_EQ(std::string(buffer, 8), "hijklmno");
}

TEST(VariantRecords, SelectByTheHashOfTheDiscriminant)
{
   HLAvariantRecord record = wideOrNarrow(1);
   EXPECT_TRUE(record.getVariant().isSameTypeAs(HLAinteger64BE()));
   record.setDiscriminant(HLAinteger32BE(3));
   EXPECT_EQ(failureOf([&] { record.getVariant(); }), L"Discriminant is not mapped to a value");
   record.setDiscriminant(HLAinteger16LE(2)); // of another type and equal hash
   EXPECT_TRUE(record.hasMatchingDiscriminantTypeAs(HLAinteger16LE()));
   EXPECT_FALSE(record.hasMatchingDiscriminantTypeAs(HLAinteger32BE()));
   record.setDiscriminant(record.getDiscriminant());
   expectEncoding(record, octets("0200 000000000000 6f"), 8);
   // An array does as a discriminant; all of them have one hash.
   record.addVariant(HLAfixedArray(HLAoctet(), 2), HLAboolean(true));
   record.setDiscriminant(HLAfixedArray(HLAoctet('z'), 3));
   expectEncoding(record, octets("7a7a7a 0000000000 00000001"), 8);

   EXPECT_TRUE(record.isSameTypeAs(HLAinteger32BE(2), HLAoctet()) && record.isSameTypeAs(wideOrNarrow(1)));
   EXPECT_FALSE(record.isSameTypeAs(HLAinteger32BE(1), HLAoctet()) || record.isSameTypeAs(HLAoctet()));
   EXPECT_FALSE(record.isSameTypeAs(HLAinteger32BE(9), HLAoctet()));
}

TEST(VariantRecords, ReplaceAlternatives)
{
   HLAvariantRecord record = wideOrNarrow(1);
   HLAinteger32BE const one(1);
   HLAfloat64BE unlike;
   HLAinteger64BE lent(7);
   EXPECT_EQ(failureOf([&] { record.setVariant(one, unlike); }), nonMatching);
   EXPECT_EQ(failureOf([&] { record.setVariantPointer(one, &unlike); }), nonMatching);
   EXPECT_NE(failureOf([&] { record.setVariantPointer(one, nullptr); }), L"");
   expectEncoding(record, octets("00000001 00000000 0000000000000005"), 8);
   record.setVariantPointer(one, &lent);
   record.setVariantPointer(one, &lent);
   HLAvariantRecord const copy(record);
   lent = 8;
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
   DataElement const& element = record;
   EXPECT_TRUE(HLAvariantRecord(element).hasMatchingDiscriminantTypeAs(record));
}

} // namespace
