// What is behind a VariableLengthData. The library reads it directly: a message has many values, and size()
// and data() are calls through the interface.
#pragma once

#include <RTI/VariableLengthData.h>

#include <cstddef>

namespace rti1516e {

// Bytes that the object has copied stand right behind the record, in the same piece of memory: there is
// nothing more to release.
struct alignas(std::max_align_t) VariableLengthRecord
{
   void* data;
   unsigned int size;
   bool owns; // bytes that stand elsewhere
   void (*deleter)(void*);
};

struct VariableLengthDataAccess
{
   static void const* data(VariableLengthData const& data) noexcept
   {
      return data._record == nullptr ? nullptr : data._record->data;
   }

   static unsigned int size(VariableLengthData const& data) noexcept
   {
      return data._record == nullptr ? 0 : data._record->size;
   }
};

} // namespace rti1516e
