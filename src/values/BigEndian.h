// Numbers in byte buffers: big-endian, as nearly every encoding of the interface has them, and little-endian.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace rti1516e {

enum class ByteOrder
{
   big,
   little
};

// Written out octet by octet instead of in a loop: compilers make one load or store and a byte swap of it, at
// every level of optimisation.
template <ByteOrder order, class Unsigned, std::size_t... octet>
inline void storeOctets(unsigned char* to, Unsigned value, std::index_sequence<octet...>) noexcept
{
   constexpr std::size_t last = sizeof(Unsigned) - 1;
   ((to[octet] = static_cast<unsigned char>(value >> 8 * (order == ByteOrder::big ? last - octet : octet))),
    ...);
}

template <ByteOrder order, class Unsigned, std::size_t... octet>
inline Unsigned loadOctets(unsigned char const* from, std::index_sequence<octet...>) noexcept
{
   constexpr std::size_t last = sizeof(Unsigned) - 1;
   return static_cast<Unsigned>(
      (... | static_cast<Unsigned>(static_cast<Unsigned>(from[octet])
                                   << 8 * (order == ByteOrder::big ? last - octet : octet))));
}

template <ByteOrder order, class Unsigned>
inline void store(void* to, Unsigned value) noexcept
{
   static_assert(std::is_unsigned_v<Unsigned>);
   storeOctets<order>(static_cast<unsigned char*>(to), value, std::make_index_sequence<sizeof(Unsigned)>());
}

template <ByteOrder order, class Unsigned>
inline Unsigned load(void const* from) noexcept
{
   static_assert(std::is_unsigned_v<Unsigned>);
   return loadOctets<order, Unsigned>(static_cast<unsigned char const*>(from),
                                      std::make_index_sequence<sizeof(Unsigned)>());
}

template <class Unsigned>
inline void storeBigEndian(void* to, Unsigned value) noexcept
{
   store<ByteOrder::big>(to, value);
}

template <class Unsigned>
inline Unsigned loadBigEndian(void const* from) noexcept
{
   return load<ByteOrder::big, Unsigned>(from);
}

} // namespace rti1516e
