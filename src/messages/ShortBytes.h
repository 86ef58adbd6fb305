// A short run of bytes of a length known late, without allocation where it is as short as the encodings of
// times are.
#pragma once

#include <cstddef>
#include <memory>

namespace tovu1516e {

class ShortBytes
{
public:
   // Room for so many bytes; what was there before is lost.
   char* resize(std::size_t size)
   {
      _size = size;
      if (size > sizeof _inline) {
         _long.reset(new char[size]);
      }
      return data();
   }
   char* data() noexcept { return _size > sizeof _inline ? _long.get() : _inline; }
   std::size_t size() const noexcept { return _size; }

private:
   std::size_t _size = 0;
   char _inline[32];
   std::unique_ptr<char[]> _long;
};

} // namespace tovu1516e
