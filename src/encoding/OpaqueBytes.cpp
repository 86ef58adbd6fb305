#include "src/encoding/OpaqueBytes.h"

#include "src/encoding/Failure.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace rti1516e {

OpaqueBytes::OpaqueBytes(char const* data, std::size_t length)
   : _bufferLength(checkedCount(length)), _dataLength(_bufferLength)
{
   if (length == 0) {
      return;
   }
   if (data == nullptr) {
      failure::raise(failure::noData);
   }
   _data = new char[length];
   std::memcpy(_data, data, length);
}

OpaqueBytes::OpaqueBytes(char** data, std::size_t bufferLength, std::size_t dataLength)
   : _bufferLength(checkedCount(bufferLength)), _dataLength(checkedCount(dataLength)), _owned(false)
{
   if (dataLength > bufferLength) {
      failure::raise(failure::dataBeyondBuffer);
   }
   if (data == nullptr || (*data == nullptr && bufferLength != 0)) {
      failure::raise(failure::noData);
   }
   _data = *data;
}

OpaqueBytes& OpaqueBytes::operator=(OpaqueBytes other) noexcept
{
   std::swap(_data, other._data);
   std::swap(_bufferLength, other._bufferLength);
   std::swap(_dataLength, other._dataLength);
   std::swap(_deleter, other._deleter);
   std::swap(_owned, other._owned);
   return *this;
}

OpaqueBytes::~OpaqueBytes()
{
   if (!_owned) {
      return;
   }
   if (_deleter != nullptr) {
      _deleter(_data);
   } else {
      delete[] _data;
   }
}

std::size_t OpaqueBytes::write(Output& out, std::size_t index) const
{
   return out.counted(index, _data, _dataLength);
}

std::size_t OpaqueBytes::read(Input const& in, std::size_t index)
{
   std::uint32_t const number = in.count(index, failure::opaqueTooShort);
   index += countLength;
   char const* const from = in.at(index, number, failure::arrayIndexOutOfBounds);
   if (!_owned && number > _bufferLength) {
      failure::raise(failure::externalTooSmall);
   }
   if (_owned && number != _bufferLength) {
      *this = OpaqueBytes(from, number);
   } else {
      std::copy_n(from, number, _data);
      _dataLength = number;
   }
   return index + number;
}

} // namespace rti1516e
