// Bytes that tests write down and compare.
#pragma once

#include <RTI/VariableLengthData.h>

#include <vector>

using Bytes = std::vector<unsigned char>;

inline Bytes bytesOf(rti1516e::VariableLengthData const& data)
{
   auto const* const bytes = static_cast<unsigned char const*>(data.data());
   return Bytes(bytes, bytes + data.size());
}
