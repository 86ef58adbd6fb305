// A cursor over the storage of a bridge message.
#pragma once

#include "src/values/BigEndian.h"

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
      // Most values are a number or two, which take longer to call memcpy for than to copy.
      if (count >= 8 && count <= 16) {
         copyEnds<std::uint64_t>(bytes, count);
      } else if (count >= 4 && count < 8) {
         copyEnds<std::uint32_t>(bytes, count);
      } else if (count != 0) {
         std::memcpy(_current, bytes, count);
      }
      _current += count;
   }

private:
   // Copies one word from the start and one from the end, which may overlap.
   template <class Word>
   void copyEnds(void const* bytes, std::size_t count) noexcept
   {
      std::size_t const last = count - sizeof(Word);
      Word words[2];
      std::memcpy(&words[0], bytes, sizeof(Word));
      std::memcpy(&words[1], static_cast<unsigned char const*>(bytes) + last, sizeof(Word));
      std::memcpy(_current, &words[0], sizeof(Word));
      std::memcpy(_current + last, &words[1], sizeof(Word));
   }

   unsigned char* _current;
};

} // namespace rti1516e
