// Big-endian numbers in byte buffers, as every encoding of the interface has them.
#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

namespace rti1516e {

// The bytes of an unsigned number, most significant first; compiles to one load or store and a byte swap.
template <class Unsigned>
inline void storeBigEndian(void* to, Unsigned value) noexcept
{
   static_assert(std::is_unsigned_v<Unsigned>);
   unsigned char bytes[sizeof(Unsigned)];
   for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
      bytes[i] = static_cast<unsigned char>(value >> (8 * (sizeof(Unsigned) - 1 - i)));
   }
   std::memcpy(to, bytes, sizeof bytes);
}

template <class Unsigned>
inline Unsigned loadBigEndian(void const* from) noexcept
{
   static_assert(std::is_unsigned_v<Unsigned>);
   unsigned char bytes[sizeof(Unsigned)];
   std::memcpy(bytes, from, sizeof bytes);
   Unsigned value = 0;
   for (unsigned char const byte : bytes) {
      value = static_cast<Unsigned>(static_cast<Unsigned>(value << 8 * (sizeof(Unsigned) > 1)) | byte);
   }
   return value;
}

} // namespace rti1516e
