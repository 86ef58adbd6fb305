// Octets that tests write down and compare, and what values and elements have in common.
#pragma once

#include "tests/support/Bytes.h"
#include "tests/support/Caught.h"

#include <RTI/VariableLengthData.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

using contract::Caught;
using contract::caughtFrom;
using Octets = std::vector<char>;

inline Octets octets(contract::Bytes const& bytes) { return Octets(bytes.begin(), bytes.end()); }

// From pairs of hexadecimal digits; blanks are for the reader.
inline Octets octets(std::string const& hexadecimal) { return octets(contract::Bytes(hexadecimal)); }

inline Octets octetsOf(rti1516e::VariableLengthData const& data)
{
   auto const* const begin = static_cast<char const*>(data.data());
   return Octets(begin, begin + data.size());
}

inline rti1516e::VariableLengthData dataOf(Octets const& encoded)
{
   return {encoded.data(), static_cast<unsigned int>(encoded.size())};
}

inline Octets joined(Octets left, Octets const& right)
{
   left.insert(left.end(), right.begin(), right.end());
   return left;
}

// A handle or a time is encoded so, into a buffer only if that is long enough.
template <class Value>
void expectEncoding(Value const& value, Octets const& encoded, Caught const& failure)
{
   EXPECT_EQ(octetsOf(value.encode()), encoded);
   EXPECT_EQ(value.encodedLength(), encoded.size());
   Octets const untouched(encoded.size() + 1, 'b');
   for (std::size_t size = 0; size <= untouched.size(); ++size) {
      Octets buffer = untouched;
      bool const fits = size >= encoded.size();
      std::size_t written = 0;
      EXPECT_EQ(caughtFrom([&] { written = value.encode(buffer.data(), size); }), fits ? Caught() : failure);
      EXPECT_EQ(written, fits ? encoded.size() : 0);
      EXPECT_EQ(buffer, fits ? joined(encoded, {'b'}) : untouched);
   }
}
