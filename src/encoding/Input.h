// What an encoding is read from.
#pragma once

#include "src/encoding/Failure.h"
#include "src/values/BigEndian.h"

#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace rti1516e {

// The octets of a buffer, or those of a VariableLengthData, which are not copied unless a foreign class wants
// them in a buffer.
class Input
{
public:
   explicit Input(std::vector<char> const& buffer) noexcept
      : _data(buffer.data()), _size(buffer.size()), _buffer(&buffer)
   {}
   explicit Input(VariableLengthData const& data) noexcept
      : _data(static_cast<char const*>(data.data())), _size(data.size())
   {}

   std::size_t size() const noexcept { return _size; }

   // Those from the index on.
   std::size_t left(std::size_t index) const noexcept { return index < _size ? _size - index : 0; }

   // The octets at the index, where there are at least so many; else fails.
   char const* at(std::size_t index, std::size_t length, wchar_t const* message) const
   {
      if (index > _size || _size - index < length) {
         failure::raise(message);
      }
      return _data + index;
   }

   std::uint32_t count(std::size_t index, wchar_t const* message) const
   {
      return loadBigEndian<std::uint32_t>(at(index, 4, message));
   }

   std::vector<char> const& buffer() const
   {
      if (_buffer == nullptr) {
         _copy = std::make_unique<std::vector<char>>(_data, _data + _size);
         _buffer = _copy.get();
      }
      return *_buffer;
   }

private:
   char const* _data;
   std::size_t _size;
   mutable std::vector<char> const* _buffer = nullptr;
   mutable std::unique_ptr<std::vector<char>> _copy;
};

} // namespace rti1516e
