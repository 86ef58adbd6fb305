// Numbers in byte buffers: big-endian, as nearly every encoding of the interface has them, and little-endian.
#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

namespace rti1516e {

enum class ByteOrder
{
   big,
   little
};

// The order of the octets turned round. Compilers make one instruction of it, at every level of optimisation.
template <class Unsigned, std::size_t... octet>
constexpr Unsigned turned(Unsigned value, std::index_sequence<octet...>) noexcept
{
   constexpr std::size_t last = sizeof(Unsigned) - 1;
   return static_cast<Unsigned>(
      (... | static_cast<Unsigned>(static_cast<Unsigned>(value >> 8 * octet & 0xFF) << 8 * (last - octet))));
}

// A number of this machine as one of the given order, or the other way round.
template <ByteOrder order, class Unsigned>
inline Unsigned ordered(Unsigned value) noexcept
{
   static_assert(std::is_unsigned_v<Unsigned>);
   constexpr ByteOrder ofMachine =
      __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? ByteOrder::big : ByteOrder::little;
   return order == ofMachine ? value : turned(value, std::make_index_sequence<sizeof(Unsigned)>());
}

// The octets are moved as one number: written singly, not every compiler puts them together in every place.
template <ByteOrder order, class Unsigned>
inline void store(void* to, Unsigned value) noexcept
{
   Unsigned const octets = ordered<order>(value);
   std::memcpy(to, &octets, sizeof octets);
}

template <ByteOrder order, class Unsigned>
inline Unsigned load(void const* from) noexcept
{
   Unsigned octets;
   std::memcpy(&octets, from, sizeof octets);
   return ordered<order>(octets);
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
