#include "src/encoding/Output.h"

#include "src/encoding/Failure.h"

#include <RTI/encoding/DataElement.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace rti1516e {

VariableLengthData Output::data(std::size_t end)
{
   std::uint32_t const length = checkedCount(end);
   VariableLengthData data;
   data.takeDataPointer(_own.release(), length);
   return data;
}

void Output::resize(std::size_t end, std::size_t size)
{
   if (_buffer != nullptr) {
      _buffer->resize(size);
      _data = _buffer->data();
   } else {
      std::unique_ptr<char[]> resized(new char[size]);
      std::memcpy(resized.get(), _data, end);
      _own = std::move(resized);
      _data = _own.get();
   }
   _size = size;
}

void Output::pad(std::size_t index, std::size_t length) { std::memset(at(index, length), 0, length); }

void Output::grow(std::size_t index, std::size_t length)
{
   if (length > largest - index) {
      failure::raise(failure::tooLong);
   }
   resize(index, std::max(index + length, std::min(_size + _size / 2, largest)));
}

std::size_t Output::foreign(std::size_t index, DataElement const& element)
{
   if (_buffer == nullptr) {
      failure::raise(failure::changedMeanwhile);
   }
   finish(index);
   element.encodeInto(*_buffer);
   std::size_t const end = _buffer->size();
   resize(end, end);
   return end;
}

} // namespace rti1516e
