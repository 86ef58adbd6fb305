// Encodings that tests write down and compare.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

using Octets = std::vector<char>;

inline Octets octets(std::string const& hexadecimal)
{
   contract::Bytes const bytes(hexadecimal);
   return Octets(bytes.data(), bytes.data() + bytes.size());
}

inline Octets octetsOf(rti1516e::VariableLengthData const& data)
{
   auto const* const begin = static_cast<char const*>(data.data());
   return Octets(begin, begin + data.size());
}

inline rti1516e::VariableLengthData dataOf(Octets const& encoded)
{
   return {encoded.data(), static_cast<unsigned int>(encoded.size())};
}

// The message of the EncoderException that the operation throws, or "none".
template <class Operation>
std::wstring failureOf(Operation operation)
{
   try {
      operation();
   } catch (rti1516e::EncoderException const& exception) {
      return exception.what();
   }
   return L"none";
}

inline std::wstring const indexOutOfBounds = L"Index is out of bounds";
inline std::wstring const arrayIndexOutOfBounds = L"Array index out of bounds";

// All ways to encode an element, and all that is told of it, agree.
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
      expected.insert(expected.end(), encoded.begin(), encoded.end());
      element.encodeInto(buffer);
      EXPECT_EQ(buffer, expected);
   }
}

// All ways to decode it do, also from within other octets; decoding any less of it fails.
inline void expectDecoding(rti1516e::DataElement& element, Octets const& encoded, std::wstring const& cutOff)
{
   element.decode(dataOf(encoded));
   EXPECT_EQ(octetsOf(element.encode()), encoded);
   EXPECT_EQ(element.decodeFrom(encoded, 0), encoded.size());
   Octets within(16, 'b');
   within.insert(within.end(), encoded.begin(), encoded.end());
   within.insert(within.end(), 3, 'a');
   EXPECT_EQ(element.decodeFrom(within, 16), 16 + encoded.size());
   EXPECT_EQ(octetsOf(element.encode()), encoded);
   for (std::size_t length = 0; length < encoded.size(); ++length) {
      Octets const less(encoded.begin(), encoded.begin() + static_cast<std::ptrdiff_t>(length));
      std::wstring const failure = failureOf([&] { element.decodeFrom(less, 0); });
      EXPECT_TRUE(failure == cutOff || failure == arrayIndexOutOfBounds || failure == indexOutOfBounds);
      EXPECT_EQ(failure, failureOf([&] { element.decode(dataOf(less)); }));
   }
   EXPECT_NE(failureOf([&] { element.decodeFrom(encoded, encoded.size()); }), L"none");
   EXPECT_NE(failureOf([&] { element.decodeFrom(encoded, std::string::npos); }), L"none");
}
