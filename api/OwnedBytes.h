// Copies of bytes that must not be lost unseen.
#pragma once

#include <RTI/VariableLengthData.h>

#include <new>

namespace rti1516e {

// An object left empty for want of memory would pass for one that was meant to be empty.
inline void requireSize(VariableLengthData const& data, unsigned int size)
{
   if (data.size() != size) {
      throw std::bad_alloc();
   }
}

// An object that owns a copy of the bytes.
inline VariableLengthData ownedBytes(void const* bytes, unsigned int size)
{
   VariableLengthData data(bytes, size);
   requireSize(data, size);
   return data;
}

} // namespace rti1516e
