// Octets that claim to be more than they are: refused before anything is changed or cloned, or found out only
// in an element.
#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Elements.h"

#include <limits>
#include <new>

namespace {

using namespace rti1516e;

constexpr std::size_t largest = std::numeric_limits<std::size_t>::max();

// A text's count is compared with the octets from itself on before what it counts is looked for.
TEST(HostileCounts, AreRefused)
{
   HLAASCIIstring const ascii("kept");
   HLAunicodeString const unicode(L"kept");
   HLAopaqueData const opaque("kept", 4);
   auto const array = listOf(HLAvariableArray(HLAinteger32BE()), HLAinteger32BE(1), HLAinteger32BE(2));
   DataElement const* const elements[] = {&ascii, &unicode, &opaque, &array};
   auto const& index = indexOutOfBounds;
   auto const& count = arrayIndexOutOfBounds;
   struct
   {
      char const* encoded;
      std::size_t index;
      std::wstring failures[4];
   } const rows[] = {
      {"000000", 0, {index, index, opaqueTooShort, arrayTooShort}},
      {"00000000", 1, {index, index, opaqueTooShort, arrayTooShort}},
      {"00000000", largest, {index, index, opaqueTooShort, arrayTooShort}},
      {"00000000", largest - 3, {index, index, opaqueTooShort, arrayTooShort}},
      {"ffffffff 61 62 63 64", 0, {count, count, count, arrayTooShort}},
      {"80000000", 0, {count, count, count, arrayTooShort}},
      {"00000008 61 62 63", 0, {count, count, count, arrayTooShort}},
      {"00000007 61 62 63", 0, {index, index, count, arrayTooShort}},
      {"00000003 61 62 63", 0, {L"", index, L"", index}},
      {"00000003 00000009 00000008", 0, {L"", L"", L"", index}},
   };
   for (auto const& row : rows) {
      SCOPED_TRACE(row.encoded);
      for (std::size_t i = 0; i < std::size(elements); ++i) {
         auto const element = elements[i]->clone();
         std::wstring const& failure = row.failures[i];
         EXPECT_EQ(failureOf([&] { element->decodeFrom(octets(row.encoded), row.index); }), failure) << i;
         bool const isKept = failure == arrayTooShort || (failure != L"" && elements[i] != &array);
         EXPECT_EQ(octetsOf(element->encode()) == octetsOf(elements[i]->encode()), isKept) << i;
      }
   }
   // Elements without octets need none, but are not more than the octets left.
   HLAvariableArray empties{HLAfixedRecord()};
   EXPECT_EQ(failureOf([&] { empties.decodeFrom(octets("00000001"), 0); }), arrayTooShort);
   EXPECT_EQ(empties.decodeFrom(octets("00000001 00"), 0), 4U);
   EXPECT_EQ(empties.size(), 1U);
}

// What could not be there at the least length of a constructed element is refused before anything is cloned.
TEST(HostileCounts, OfLongElementsAreRefused)
{
   ForeignElement const foreign;
   HLAoctet const octet;
   HLAASCIIstring const text("text");
   HLAfixedArray const many(HLAinteger32BE(), 250);
   HLAopaqueData const opaque("something", 9);
   HLAvariableArray const list{HLAinteger64BE()};
   HLAvariantRecord variant(octet);
   variant.addVariant(octet, many);
   HLAfixedRecord const mixed = listOf(HLAfixedRecord(), octet, text, variant, list);
   HLAfixedRecord const withForeign = listOf(HLAfixedRecord(), octet, foreign, many);
   struct
   {
      DataElement const& prototype;
      std::size_t least;
   } const rows[] = {{octet, 1},   {many, 1000}, {opaque, 4}, {list, 4},
                     {variant, 1}, {mixed, 20},  {text, 4},   {withForeign, 1004}};
   for (auto const& row : rows) {
      SCOPED_TRACE(row.least);
      HLAvariableArray array(row.prototype);
      int const living = ForeignElement::live;
      Octets encoded = octets("00000003");
      encoded.resize(4 + 3 * row.least - 1);
      EXPECT_EQ(failureOf([&] { array.decodeFrom(encoded, 0); }), arrayTooShort);
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
   EXPECT_THROW(HLAfixedArray(octet, largest), std::bad_alloc);
   EXPECT_THROW(HLAfixedArray(mixed, largest / 16), std::bad_alloc);
}

TEST(OpaqueDatas, RefuseWhatIsNoBufferOrFitsInNone)
{
   char buffer[] = "external";
   char* pointer = buffer;
   char* nothing = nullptr;
   std::size_t const tooLong = std::size_t{1} << 32;
   HLAopaqueData data(&pointer, 8, 5);
   EXPECT_EQ(failureOf([&] { data.decodeFrom(octets("0000000a 62626262626262626262"), 0); }),
             L"Insufficient external storage");
   EXPECT_NE(failureOf([&] { data.set(nullptr, 1); }), L"");
   EXPECT_NE(failureOf([&] { data.set("a", tooLong); }), L"");
   EXPECT_NE(failureOf([&] { data.setDataPointer(nullptr, 0, 0); }), L"");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&nothing, 1, 0); }), L"");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&pointer, 1, 2); }), L"");
   EXPECT_NE(failureOf([&] { data.setDataPointer(&pointer, tooLong, 0); }), L"");
   EXPECT_STREQ(buffer, "external");
   expectEncoding(data, octets("00000005 65787465 72"), 4);
}

} // namespace
