// The basic elements: what they look like, where they keep their value, how decoding fails.
#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/BasicDataElements.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace rti1516e;

// A text's count says how much is there, everything else lacks octets when it is cut off.
template <class Element, class Value>
void expectRow(Value const& value, std::string const& hexadecimal, unsigned int boundary, std::uint32_t hash)
{
   SCOPED_TRACE(std::string(typeid(Element).name()) + " " + hexadecimal);
   Octets const encoded = octets(hexadecimal);
   Element const element(value);
   EXPECT_EQ(element.get(), value);
   expectEncoding(element, encoded, boundary);
   EXPECT_EQ(element.hash(), static_cast<Integer64>(hash));
   Element decoded;
   expectDecoding(decoded, encoded, indexOutOfBounds);
   EXPECT_EQ(decoded.get(), value) << "changed by a failed decode";
}

constexpr std::uint32_t mark = 0xDEADBEEF;

TEST(BasicElements, Octets)
{
   expectRow<HLAASCIIchar>('A', "41", 1, 0x41 ^ mark);
   expectRow<HLAbyte>('\x80', "80", 1, 0xFFFFFF80 ^ mark);
   expectRow<HLAoctet>('\0', "00", 1, mark);
   expectRow<HLAoctetPairBE>(OctetPair('\x12', '\x34'), "12 34", 2, 0x1234 ^ mark);
   expectRow<HLAoctetPairBE>(OctetPair('\xFF', '\x80'), "ff 80", 2, 0xFFFFFE80 ^ mark);
   expectRow<HLAoctetPairLE>(OctetPair('\x12', '\x34'), "34 12", 2, 0x1234 ^ mark);
   expectRow<HLAboolean>(true, "00 00 00 01", 4, 1 ^ mark);
   expectRow<HLAboolean>(false, "00 00 00 00", 4, mark);
}

TEST(BasicElements, Integers)
{
   expectRow<HLAinteger16BE>(Integer16{0x0102}, "01 02", 2, 0x0102 ^ mark);
   expectRow<HLAinteger16BE>(Integer16{-2}, "ff fe", 2, 0xFFFFFFFE ^ mark);
   expectRow<HLAinteger16LE>(Integer16{0x0102}, "02 01", 2, 0x0102 ^ mark);
   expectRow<HLAinteger32BE>(0x01020304, "01 02 03 04", 4, 0x01020304 ^ mark);
   expectRow<HLAinteger32BE>(std::numeric_limits<int>::min(), "80 00 00 00", 4, 0x80000000 ^ mark);
   expectRow<HLAinteger32LE>(0x01020304, "04 03 02 01", 4, 0x01020304 ^ mark);
   expectRow<HLAinteger64BE>(0x0102030405060708LL, "01 02 03 04 05 06 07 08", 8, 0x05060708 ^ mark);
   expectRow<HLAinteger64BE>(0x0F02030405060708LL, "0f 02 03 04 05 06 07 08", 8, 0x05060708 ^ mark);
   expectRow<HLAinteger64LE>(-2LL, "fe ff ff ff ff ff ff ff", 8, 0xFFFFFFFE ^ mark);
}

TEST(BasicElements, Floats)
{
   expectRow<HLAfloat32BE>(1.5F, "3f c0 00 00", 4, 1 ^ mark);
   expectRow<HLAfloat32LE>(-2.75F, "00 00 30 c0", 4, 0xFFFFFFFE ^ mark);
   expectRow<HLAfloat64BE>(-1e10, "c2 02 a0 5f 20 00 00 00", 8, 0xABF41C00 ^ mark);
   expectRow<HLAfloat64LE>(0.1, "9a 99 99 99 99 99 b9 3f", 8, mark);
   // Out of the range of 64 bits, where there is no integer to cut down.
   double const infinity = std::numeric_limits<double>::infinity();
   expectRow<HLAfloat64BE>(infinity, "7f f0 00 00 00 00 00 00", 8, mark);
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
}

TEST(BasicElements, Texts)
{
   expectRow<HLAASCIIstring>(std::string(), "00 00 00 00", 4, 0x811C9DC5);
   expectRow<HLAASCIIstring>(std::string("abc"), "00 00 00 03 61 62 63", 4, 0x439C2F4B);
   expectRow<HLAASCIIstring>(std::string("\0\x80", 2), "00 00 00 02 00 80", 4, 0xEE89684D);
   expectRow<HLAunicodeChar>(L'\xFFFD', "ff fd", 2, 0xFFFD ^ mark);
   expectRow<HLAunicodeString>(std::wstring(), "00 00 00 00", 4, 0x811C9DC5);
   expectRow<HLAunicodeString>(std::wstring(L"a\0\x20ac", 3), "00 00 00 03 00 61 00 00 20 ac", 4, 0x659C4402);
   expectRow<HLAunicodeString>(std::wstring(L"\x1F600!"), "00 00 00 03 d8 3d de 00 00 21", 4, 0x1F6450D3);
   expectRow<HLAunicodeString>(std::wstring(L"\x10FFFF"), "00 00 00 02 db ff df ff", 4, 0xD2B88D5F);
   // Lone surrogates, in the wrong order, and one before a pair.
   expectRow<HLAunicodeString>(std::wstring(L"\xDE00\xD83D"), "00 00 00 02 de 00 d8 3d", 4, 0x11B2B1F0);
   expectRow<HLAunicodeString>(std::wstring(L"\xD83D\x1F600"), "00 00 00 03 d8 3d d8 3d de 00", 4,
                               0x54671461);
}

TEST(BasicElements, WideCharactersThatAreNone)
{
   HLAunicodeString text(std::wstring{L'a', static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)});
   expectEncoding(text, octets("00 00 00 03 00 61 ff fd ff fd"), 4);
   HLAunicodeChar const character(static_cast<wchar_t>(0x10000));
   EXPECT_EQ(character.getEncodedLength(), 2U);
   EXPECT_NE(failureOf([&] { character.encode(); }).find(L"U+FFFF"), std::wstring::npos);
   Octets buffer(3, 'b');
   EXPECT_NE(failureOf([&] { character.encodeInto(buffer); }), L"none");
   EXPECT_EQ(buffer, Octets(3, 'b'));
}

TEST(BasicElements, OnlyOneIsTrue)
{
   for (auto const* const encoded : {"00 00 00 02", "ff ff ff ff", "01 00 00 00"}) {
      HLAboolean boolean(true);
      boolean.decode(dataOf(octets(encoded)));
      EXPECT_FALSE(boolean.get()) << encoded;
   }
}

// The count is compared with the octets from itself on before what it counts is looked for.
TEST(BasicElements, TextsTooShortForTheirCount)
{
   struct
   {
      char const* encoded;
      std::wstring ascii;
      std::wstring unicode;
   } const cases[] = {
      {"00 00 00", indexOutOfBounds, indexOutOfBounds},
      {"00 00 00 01", indexOutOfBounds, indexOutOfBounds},
      {"00 00 00 05", arrayIndexOutOfBounds, arrayIndexOutOfBounds},
      {"ff ff ff ff 61 62 63", arrayIndexOutOfBounds, arrayIndexOutOfBounds},
      {"00 00 00 08 61 62 63", arrayIndexOutOfBounds, arrayIndexOutOfBounds},
      {"00 00 00 07 61 62 63", indexOutOfBounds, indexOutOfBounds},
      {"00 00 00 02 61 62 63", L"none", indexOutOfBounds},
   };
   for (auto const& each : cases) {
      SCOPED_TRACE(each.encoded);
      Octets const encoded = octets(each.encoded);
      HLAASCIIstring narrow("kept");
      HLAunicodeString wide(L"kept");
      EXPECT_EQ(failureOf([&] { narrow.decodeFrom(encoded, 0); }), each.ascii);
      EXPECT_EQ(failureOf([&] { wide.decodeFrom(encoded, 0); }), each.unicode);
      EXPECT_EQ(narrow.get(), each.ascii == L"none" ? "ab" : "kept");
      EXPECT_EQ(wide.get(), L"kept");
   }
}

template <class Element>
class BasicStorage : public testing::Test
{
protected:
   using Value = decltype(Element().get());

   static Value sample(int number)
   {
      if constexpr (std::is_same_v<Value, OctetPair>) {
         return OctetPair(static_cast<char>(number), 'x');
      } else if constexpr (std::is_class_v<Value>) {
         return Value(30, static_cast<typename Value::value_type>('0' + number));
      } else {
         return static_cast<Value>(number);
      }
   }

   // Told apart even as booleans.
   Value const zero = Value(), one = sample(1);
};

#define ALSO_ELEMENT(Name, Value) , Name
template <class, class... Elements>
using TypesBehindFirst = testing::Types<Elements...>;
using AllElements = TypesBehindFirst<void RTI_FOR_EACH_BASIC_ELEMENT(ALSO_ELEMENT)>;
#undef ALSO_ELEMENT
TYPED_TEST_SUITE(BasicStorage, AllElements, );

TYPED_TEST(BasicStorage, OwnValue)
{
   TypeParam element;
   EXPECT_EQ(element.get(), this->zero);
   element.set(this->one);
   EXPECT_EQ(element.get(), this->one);
   TypeParam const copy(element);
   element = this->zero;
   EXPECT_EQ(static_cast<decltype(element.get())>(element), this->zero);
   EXPECT_EQ(copy.get(), this->one);
   element = copy;
   TypeParam const& itself = element;
   element = itself;
   EXPECT_EQ(element.get(), this->one);
}

TYPED_TEST(BasicStorage, VariableOfTheCaller)
{
   auto variable = this->one;
   TypeParam element(&variable);
   EXPECT_EQ(element.get(), this->one);
   variable = this->zero;
   EXPECT_EQ(element.get(), this->zero);
   EXPECT_EQ(element.hash(), TypeParam().hash());

   TypeParam const copy(element);
   auto const clone = element.clone();
   element.decode(TypeParam(this->one).encode());
   EXPECT_EQ(variable, this->one) << "decoding writes into the variable";
   EXPECT_EQ(copy.get(), this->zero);
   EXPECT_EQ(octetsOf(clone->encode()), octetsOf(copy.encode()));

   element.set(this->zero);
   EXPECT_EQ(element.get(), this->zero);
   EXPECT_EQ(variable, this->one) << "setting does not";
   element.setDataPointer(&variable);
   EXPECT_EQ(element.get(), this->one);
   element.setDataPointer(nullptr);
   EXPECT_EQ(element.get(), this->zero) << "the own value is back";

   element.setDataPointer(&variable);
   TypeParam const& itself = element;
   element = itself;
   variable = this->zero;
   EXPECT_EQ(element.get(), this->one) << "assignment lets go of the variable, and keeps its value";
}

TYPED_TEST(BasicStorage, TypeIsThatOfTheClassAlone)
{
   TypeParam const element;
   int same = 0;
#define COMPARE(Name, Value) same += element.isSameTypeAs(Name()) ? 1 : 0;
   RTI_FOR_EACH_BASIC_ELEMENT(COMPARE)
#undef COMPARE
   EXPECT_EQ(same, 1);
   EXPECT_TRUE(element.isSameTypeAs(*element.clone()));
}

} // namespace
