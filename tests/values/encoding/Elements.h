// What tests expect of every data element.
#pragma once

#include "tests/values/Octets.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

inline std::wstring const indexOutOfBounds = L"Index is out of bounds";
inline std::wstring const arrayIndexOutOfBounds = L"Array index out of bounds";
inline std::wstring const arrayTooShort = L"HLAvariableArray cannot decode (indata too short)";
inline std::wstring const opaqueTooShort = L"HLAopaqueData cannot decode (indata too short)";

// The message of the EncoderException that the operation throws; empty if there is none.
template <class Operation>
std::wstring failureOf(Operation operation)
{
   Caught const caught = caughtFrom(operation);
   EXPECT_TRUE(caught.type.empty() || caught.type == "EncoderException") << caught;
   return caught.text;
}

// All ways to encode the element, and all that is told of it, agree.
inline void expectEncoding(rti1516e::DataElement const& element, Octets const& encoded, unsigned int boundary)
{
   EXPECT_EQ(octetsOf(element.encode()), encoded);
   rti1516e::VariableLengthData data("old", 3);
   element.encode(data);
   EXPECT_EQ(octetsOf(data), encoded);
   EXPECT_EQ(element.getEncodedLength(), encoded.size());
   EXPECT_EQ(element.getOctetBoundary(), boundary);
   EXPECT_EQ(octetsOf(element.clone()->encode()), encoded);
   for (std::size_t const before : {0U, 5U, 16U}) {
      Octets expected(before, 'b');
      Octets buffer = expected;
      expected.resize((before + boundary - 1) / boundary * boundary);
      element.encodeInto(buffer);
      EXPECT_EQ(buffer, joined(expected, encoded));
   }
}

// And all ways to decode it, whatever was there before, also from within other octets; any less of it fails.
inline void expectBothWays(rti1516e::DataElement const& element, Octets const& encoded, unsigned int boundary)
{
   expectEncoding(element, encoded, boundary);
   auto const decoded = element.clone();
   decoded->decodeFrom(Octets(encoded.size()), 0);
   decoded->decode(dataOf(encoded));
   EXPECT_EQ(octetsOf(decoded->encode()), encoded);
   decoded->decodeFrom(Octets(encoded.size()), 0);
   Octets const within = joined(joined(Octets(16, 'b'), encoded), Octets(3, 'a'));
   EXPECT_EQ(decoded->decodeFrom(within, 16), 16 + encoded.size());
   EXPECT_EQ(octetsOf(decoded->encode()), encoded);
   for (Octets less = encoded; !less.empty();) {
      less.pop_back();
      std::wstring const failure = failureOf([&] { decoded->decodeFrom(less, 0); });
      EXPECT_TRUE(failure == indexOutOfBounds || failure == arrayIndexOutOfBounds ||
                  failure == arrayTooShort || failure == opaqueTooShort);
      EXPECT_EQ(failure, failureOf([&] { decoded->decode(dataOf(less)); }));
   }
   EXPECT_TRUE(encoded.empty() || failureOf([&] { decoded->decodeFrom(encoded, encoded.size()); }) != L"");
}

// The array or record with these elements added.
template <class List, class... Elements>
List listOf(List list, Elements const&... elements)
{
   if constexpr (std::is_same_v<List, rti1516e::HLAfixedRecord>) {
      (list.appendElement(elements), ...);
   } else {
      (list.addElement(elements), ...);
   }
   return list;
}

// Alternatives of 8 octets under 1 and of one octet under 2.
inline rti1516e::HLAvariantRecord wideOrNarrow(int discriminant)
{
   using namespace rti1516e;
   HLAvariantRecord record{HLAinteger32BE()};
   record.addVariant(HLAinteger32BE(1), HLAinteger64BE(5));
   record.addVariant(HLAinteger32BE(2), HLAoctet('o'));
   record.setDiscriminant(HLAinteger32BE(discriminant));
   return record;
}
