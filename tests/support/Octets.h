// An input from which something random is made, read from the front; what is beyond its end is zero.
#pragma once

#include "tests/support/Bytes.h"

#include <cstdint>

namespace contract {

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

} // namespace contract
