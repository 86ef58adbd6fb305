// A cursor over the storage of a bridge message.
#pragma once

#include "api/BigEndian.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace rti1516e {

// Reads and writes in place and checks nothing: a writer has sized the message exactly, a reader trusts it.
class ByteWrapper
{
public:
   explicit ByteWrapper(void* base) noexcept : _current(static_cast<unsigned char*>(base)) {}

   void* current() const noexcept { return _current; }
   void advance(std::size_t count) noexcept { _current += count; }

   template <class Unsigned>
   void put(Unsigned value) noexcept
   {
      storeBigEndian(_current, value);
      _current += sizeof value;
   }

   template <class Unsigned>
   Unsigned get() noexcept
   {
      auto const value = loadBigEndian<Unsigned>(_current);
      _current += sizeof value;
      return value;
   }

   void putBytes(void const* bytes, std::size_t count) noexcept
   {
      if (count != 0) {
         std::memcpy(_current, bytes, count);
         _current += count;
      }
   }

private:
   unsigned char* _current;
};

} // namespace rti1516e
