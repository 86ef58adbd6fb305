#include "src/encoding/Output.h"

#include "src/encoding/Failure.h"

#include <RTI/encoding/DataElement.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace rti1516e {

namespace {

constexpr std::size_t largest = std::numeric_limits<std::ptrdiff_t>::max();

} // namespace

Output::Output(std::vector<char>& buffer, std::size_t expected)
   : _buffer(&buffer), _data(nullptr), _size(0), _end(buffer.size())
{
   if (expected > largest - _end) {
      failure::raise(failure::tooLong);
   }
   resize(_end + expected);
}

void Output::finish()
{
   if (_end != _size) {
      resize(_end);
   }
}

VariableLengthData Output::data()
{
   std::uint32_t const length = checkedCount(_end);
   VariableLengthData data;
   data.takeDataPointer(_own.release(), length);
   return data;
}

void Output::resize(std::size_t size)
{
   if (_buffer != nullptr) {
      _buffer->resize(size);
      _data = _buffer->data();
   } else {
      std::unique_ptr<char[]> resized(new char[size]);
      std::memcpy(resized.get(), _data, _end);
      _own = std::move(resized);
      _data = _own.get();
   }
   _size = size;
}

void Output::pad(std::size_t length) { std::memset(take(length), 0, length); }

void Output::grow(std::size_t length)
{
   if (length > largest - _end) {
      failure::raise(failure::tooLong);
   }
   resize(std::max(_end + length, std::min(_size + _size / 2, largest)));
}

void Output::count(std::size_t number) { storeBigEndian(take(4), checkedCount(number)); }

void Output::foreign(DataElement const& element)
{
   if (_buffer == nullptr) {
      failure::raise(failure::changedMeanwhile);
   }
   finish();
   element.encodeInto(*_buffer);
   _end = _buffer->size();
   resize(_end);
}

std::uint32_t checkedCount(std::size_t number)
{
   if (number > std::numeric_limits<std::uint32_t>::max()) {
      failure::raise(failure::tooLong);
   }
   return static_cast<std::uint32_t>(number);
}

} // namespace rti1516e
