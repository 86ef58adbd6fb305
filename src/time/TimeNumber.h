// The number behind a standard time or interval, an Integer64 or a double: how it is found behind the
// interface, its encoding and its text.
#pragma once

#include "src/values/BigEndian.h"

#include <RTI/Exception.h>
#include <RTI/VariableLengthData.h>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>
#include <type_traits>

namespace rti1516e::time {

inline constexpr std::size_t encodedSize = 8;

template <class Number>
std::uint64_t bitsOf(Number number) noexcept
{
   static_assert(sizeof(Number) == encodedSize);
   std::uint64_t bits;
   std::memcpy(&bits, &number, sizeof bits);
   return bits;
}

template <class Number>
Number fromBits(std::uint64_t bits) noexcept
{
   static_assert(sizeof(Number) == encodedSize);
   Number number;
   std::memcpy(&number, &bits, sizeof number);
   return number;
}

// Throws std::bad_cast if the value is of another time implementation.
template <class Number, class Class, class Base>
Number numberIn(Base const& value)
{
   return static_cast<Number>(dynamic_cast<Class const&>(value));
}

// Too small a buffer is reported alike whether it is to be read or to be written.
inline void requireEncodedSize(std::size_t bufferSize)
{
   if (bufferSize < encodedSize) {
      throw CouldNotDecode(L"Buffer to small!");
   }
}

template <class Number>
std::size_t encode(Number number, void* buffer, std::size_t bufferSize)
{
   requireEncodedSize(bufferSize);
   storeBigEndian(buffer, bitsOf(number));
   return encodedSize;
}

template <class Number>
VariableLengthData encode(Number number)
{
   unsigned char bytes[encodedSize];
   storeBigEndian(bytes, bitsOf(number));
   return VariableLengthData(bytes, encodedSize);
}

template <class Number>
Number decode(void const* buffer, std::size_t bufferSize)
{
   requireEncodedSize(bufferSize);
   return fromBits<Number>(loadBigEndian<std::uint64_t>(buffer));
}

// The number as a stream of the classic locale prints it.
template <class Number>
std::wstring textOf(std::wstring const& kind, Number number)
{
   char digits[32];
   std::to_chars_result result;
   if constexpr (std::is_floating_point_v<Number>) {
      result = std::to_chars(digits, std::end(digits), number, std::chars_format::general, 6);
   } else {
      result = std::to_chars(digits, std::end(digits), number);
   }
   return kind + L"<" + std::wstring(digits, result.ptr) + L">";
}

} // namespace rti1516e::time
