// Bytes of messages and results as the tests write them down, independent of the library's encoder.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

namespace contract {

class Bytes : public std::vector<std::uint8_t>
{
public:
   using vector::vector;

   // From pairs of hexadecimal digits; blanks are for the reader.
   explicit Bytes(std::string digits)
   {
      digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
      for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
         byte(static_cast<unsigned int>(std::stoul(digits.substr(i, 2), nullptr, 16)));
      }
   }
   Bytes(void const* data, std::size_t size)
      : vector(static_cast<std::uint8_t const*>(data), static_cast<std::uint8_t const*>(data) + size)
   {}

   Bytes& byte(unsigned int value)
   {
      push_back(static_cast<std::uint8_t>(value));
      return *this;
   }
   Bytes& int16(unsigned int value) { return byte(value >> 8 & 0xFFU).byte(value & 0xFFU); }
   Bytes& int32(std::uint32_t value) { return int16(value >> 16).int16(value & 0xFFFFU); }
   Bytes& int64(std::uint64_t value)
   {
      return int32(static_cast<std::uint32_t>(value >> 32)).int32(static_cast<std::uint32_t>(value));
   }
   Bytes& real(double value)
   {
      std::uint64_t bits;
      std::memcpy(&bits, &value, sizeof bits);
      return int64(bits);
   }

   // The compiler has made the UTF-16.
   Bytes& units(std::u16string const& value)
   {
      for (char16_t const unit : value) {
         int16(unit);
      }
      return *this;
   }
   Bytes& text(std::u16string const& value)
   {
      return int32(static_cast<std::uint32_t>(value.size())).units(value);
   }

   // With the length before them.
   Bytes& counted(Bytes const& bytes)
   {
      return int32(static_cast<std::uint32_t>(bytes.size())).append(bytes);
   }

   Bytes& append(Bytes const& bytes)
   {
      insert(end(), bytes.begin(), bytes.end());
      return *this;
   }
};

// An input from which something random is made, read from the front; what is beyond its end is zero.
class Octets
{
public:
   Octets(std::uint8_t const* octets, std::size_t size) : _next(octets), _end(octets + size) {}

   std::uint8_t octet() { return _next == _end ? std::uint8_t{0} : *_next++; }
   unsigned int below(unsigned int bound) { return octet() % bound; }
   std::uint32_t int32()
   {
      std::uint32_t value = 0;
      for (int i = 0; i < 4; ++i) {
         value = value << 8 | octet();
      }
      return value;
   }
   Bytes bytes()
   {
      Bytes bytes;
      for (unsigned int left = below(20); left > 0; --left) {
         bytes.byte(octet());
      }
      return bytes;
   }

private:
   std::uint8_t const* _next;
   std::uint8_t const* _end;
};

// For GoogleTest.
inline void PrintTo(Bytes const& bytes, std::ostream* stream)
{
   *stream << bytes.size() << " bytes: " << std::hex;
   for (unsigned int const byte : bytes) {
      *stream << byte / 16 << byte % 16;
   }
   *stream << std::dec;
}

} // namespace contract
