#include "src/encoding/Output.h"

#include "src/encoding/Failure.h"

#include <RTI/encoding/DataElement.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

namespace rti1516e {

namespace {

constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();

} // namespace

[[gnu::flatten]] // all of the vector's in one piece
Output::Output(std::vector<char>& buffer, std::size_t expected)
   : _buffer(&buffer)
{
   std::size_t const end = buffer.size();
   if (expected > largest - end) {
      failure::raise(failure::tooLong);
   }
   _size = end + expected;
   buffer.resize(_size);
   _data = buffer.data();
}

VariableLengthData Output::data(std::size_t end)
{
   std::uint32_t const length = checkedCount(end);
   if (end > _size) {
      resize(end); // padding in front of nothing
   }
   VariableLengthData data;
   data.takeDataPointer(_own.release(), length);
   return data;
}

void Output::resize(std::size_t size)
{
   if (size > largest) {
      failure::raise(failure::tooLong);
   }
   if (_buffer != nullptr) {
      _buffer->resize(size);
      _data = _buffer->data();
   } else {
      std::unique_ptr<char[]> resized(new char[size]());
      std::copy_n(_data, std::min(_size, size), resized.get());
      _own = std::move(resized);
      _data = _own.get();
   }
   _size = size;
}

void Output::grow(std::size_t end) { resize(std::max(end, std::min(_size + _size / 2, largest))); }

std::size_t Output::foreign(std::size_t index, DataElement const& element)
{
   if (_buffer == nullptr) {
      failure::raise(failure::changedMeanwhile);
   }
   finish(index);
   element.encodeInto(*_buffer);
   std::size_t const end = _buffer->size();
   resize(end);
   return end;
}

} // namespace rti1516e
