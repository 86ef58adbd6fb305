#include "api/encoding/Output.h"

#include "api/encoding/Failure.h"

#include <RTI/encoding/DataElement.h>

#include <cstring>
#include <limits>

namespace rti1516e {

Output::Output(std::vector<char>& buffer, std::size_t expected)
   : _buffer(&buffer), _data(nullptr), _size(0), _end(buffer.size())
{
   if (expected > buffer.max_size() - _end) {
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

void Output::resize(std::size_t size)
{
   _buffer->resize(size);
   _data = _buffer->data();
   _size = size;
}

void Output::pad(std::size_t length) { std::memset(take(length), 0, length); }

void Output::grow(std::size_t length)
{
   if (_buffer == nullptr) {
      failure::raise(failure::changedMeanwhile);
   }
   if (length > _buffer->max_size() - _end) {
      failure::raise(failure::tooLong);
   }
   resize(_end + length);
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
