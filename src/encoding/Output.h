// Where an encoding is written.
#pragma once

#include "src/encoding/Extent.h"
#include "src/encoding/Failure.h"
#include "src/values/BigEndian.h"

#include <RTI/VariableLengthData.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
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

// Cleared room that was sized before, so that padding is there already. Every piece is tested against the
// room all the same, which grows: some texts turn out longer, and elements may be lent, and nothing keeps
// their owner from changing them. As with an input, who writes is given the index where to, and returns the
// index behind, which so never leaves the processor.
class Output
{
public:
   // Into memory of its own, of the expected length at first, from index 0. Call data with the last index. It
   // is cleared if there may be padding.
   Output(std::size_t expected, bool mayBePadded)
      : _own(mayBePadded ? new char[expected]() : new char[expected]), _data(_own.get()), _size(expected)
   {}
   VariableLengthData data(std::size_t end);

   // From the end of a buffer, which is made longer by the expected length at first. Call finish with the
   // last index.
   Output(std::vector<char>& buffer, std::size_t expected);
   void finish(std::size_t end)
   {
      if (end != _size) {
         resize(end);
      }
   }

   // Room for so many octets, of which memory holds as many, and which the caller fills.
   char* at(std::size_t index, std::size_t length)
   {
      if (index + length > _size) {
         grow(index + length);
      }
      return _data + index;
   }

   // Room for octets whose boundary is their number, and for more behind them. Moves the index behind the
   // former.
   template <unsigned int length>
   char* aligned(std::size_t& index, std::size_t behind = 0)
   {
      index = alignInMemory(index, length) + length;
      return at(index, behind) - length;
   }

   // A count and as many octets. Fails if the count is above 32 bits.
   std::size_t counted(std::size_t index, char const* octets, std::size_t number)
   {
      std::uint32_t const count = checkedCount(number);
      char* const to = aligned<4>(index, number);
      storeBigEndian(to, count);
      std::copy_n(octets, number, to + 4);
      return index + number;
   }

   // Lets an element of a foreign class encode itself.
   std::size_t foreign(std::size_t index, DataElement const& element);

private:
   [[gnu::cold]] void grow(std::size_t end);
   void resize(std::size_t size);

   std::unique_ptr<char[]> _own;
   std::vector<char>* _buffer = nullptr; // or this
   char* _data;
   std::size_t _size;
};

} // namespace rti1516e
