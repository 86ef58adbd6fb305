// Where an encoding is written.
#pragma once

#include "src/encoding/Extent.h"
#include "src/encoding/Failure.h"
#include "src/values/BigEndian.h"

#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace rti1516e {

class DataElement;

// A count as it is encoded, or EncoderException.
inline std::uint32_t checkedCount(std::size_t number)
{
   if (number > std::numeric_limits<std::uint32_t>::max()) {
      failure::raise(failure::tooLong);
   }
   return static_cast<std::uint32_t>(number);
}

// Room that was sized before. Every piece is tested against the room all the same, which grows: some texts
// turn out longer, and elements may be lent, and nothing keeps their owner from changing them. As with an
// input, who writes is given the index where to, and returns the index behind, which so never leaves the
// processor.
class Output
{
public:
   // Into memory of its own, of the expected length at first, from index 0. Call data with the last index.
   explicit Output(std::size_t expected) : _own(new char[expected]), _data(_own.get()), _size(expected) {}
   VariableLengthData data(std::size_t end);

   // From the end of a buffer, which is made longer by the expected length at first. Call finish with the
   // last index.
   Output(std::vector<char>& buffer, std::size_t expected) : _buffer(&buffer)
   {
      if (expected > largest - buffer.size()) {
         failure::raise(failure::tooLong);
      }
      buffer.resize(buffer.size() + expected);
      _data = buffer.data();
      _size = buffer.size();
   }
   void finish(std::size_t end)
   {
      if (end != _size) {
         resize(end, end);
      }
   }

   // Room for so many octets, which the caller fills. What is behind the index is lost if it grows.
   char* at(std::size_t index, std::size_t length)
   {
      if (length > _size - index) {
         grow(index, length);
      }
      return _data + index;
   }

   // Writes padding up to the boundary.
   std::size_t align(std::size_t index, unsigned int boundary)
   {
      std::size_t const aligned = alignInMemory(index, boundary);
      if (aligned != index) {
         if (boundary <= mostPadding && _size - index >= mostPadding) {
            std::memset(_data + index, 0, mostPadding); // what is too much is written over
         } else {
            pad(index, aligned - index);
         }
      }
      return aligned;
   }

   // Padding, and room for octets whose boundary is their number, no more than there may be of padding. Moves
   // the index behind them.
   template <unsigned int length>
   char* aligned(std::size_t& index)
   {
      static_assert(length <= mostPadding);
      std::size_t const end = alignInMemory(index, length) + length;
      if (end > _size) {
         grow(index, end - index);
      }
      char* const data = _data;
      std::memset(data + index, 0, length); // what is too much is written over
      index = end;
      return data + end - length;
   }

   // A count, behind padding. Fails if it is above 32 bits.
   std::size_t count(std::size_t index, std::size_t number)
   {
      std::uint32_t const count = checkedCount(number);
      storeBigEndian(aligned<4>(index), count);
      return index;
   }

   // Lets an element of a foreign class encode itself.
   std::size_t foreign(std::size_t index, DataElement const& element);

private:
   static constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();
   static constexpr std::size_t mostPadding = 8; // but in front of elements of foreign classes

   void pad(std::size_t index, std::size_t length);
   void grow(std::size_t index, std::size_t length);
   void resize(std::size_t end, std::size_t size);

   std::unique_ptr<char[]> _own;
   std::vector<char>* _buffer = nullptr; // or this
   char* _data;
   std::size_t _size;
};

} // namespace rti1516e
