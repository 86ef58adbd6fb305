// Where an encoding is written.
#pragma once

#include "src/encoding/Extent.h"
#include "src/values/BigEndian.h"

#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace rti1516e {

class DataElement;

// A cursor over room that was sized before. Every piece is tested against the room all the same, which grows:
// some texts turn out longer, and elements may be lent, and nothing keeps their owner from changing them.
class Output
{
public:
   // Into memory of its own, of the expected length at first. Call data at last.
   explicit Output(std::size_t expected) : _own(new char[expected]), _data(_own.get()), _size(expected) {}
   VariableLengthData data();

   // Behind the end of a buffer, which is made longer by the expected length at first. Call finish at last.
   Output(std::vector<char>& buffer, std::size_t expected);
   void finish();

   void align(unsigned int boundary)
   {
      std::size_t const index = alignUp(_end, boundary);
      if (index != _end) {
         pad(index - _end);
      }
   }

   // Room for the next piece, which the caller fills.
   char* take(std::size_t length)
   {
      if (length > _size - _end) {
         grow(length);
      }
      char* const room = _data + _end;
      _end += length;
      return room;
   }

   // Takes back as much as was taken last.
   void giveBack(std::size_t length) noexcept { _end -= length; }

   // A count. Fails if it is above 32 bits.
   void count(std::size_t number);

   // Lets an element of a foreign class encode itself.
   void foreign(DataElement const& element);

private:
   void pad(std::size_t length);
   void grow(std::size_t length);
   void resize(std::size_t size);

   std::unique_ptr<char[]> _own;
   std::vector<char>* _buffer = nullptr; // or this
   char* _data;
   std::size_t _size;
   std::size_t _end = 0;
};

// A count as it is encoded, or EncoderException.
std::uint32_t checkedCount(std::size_t number);

} // namespace rti1516e
