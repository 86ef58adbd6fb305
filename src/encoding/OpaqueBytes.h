// The body of opaque data.
#pragma once

#include "src/encoding/Extent.h"
#include "src/encoding/Input.h"
#include "src/encoding/Output.h"

#include <cstddef>
#include <cstdint>

namespace rti1516e {

// Octets that are owned, or that stand in a buffer of the caller's.
class OpaqueBytes
{
public:
   OpaqueBytes() noexcept = default;
   // Owns a copy.
   OpaqueBytes(char const* data, std::size_t length);
   // Uses the caller's buffer.
   OpaqueBytes(char** data, std::size_t bufferLength, std::size_t dataLength);
   OpaqueBytes(OpaqueBytes const& other) : OpaqueBytes(other._data, other._dataLength) {}
   OpaqueBytes& operator=(OpaqueBytes other) noexcept;
   ~OpaqueBytes();

   char const* data() const noexcept { return _data; }
   std::size_t bufferLength() const noexcept { return _bufferLength; }
   std::size_t dataLength() const noexcept { return _dataLength; }

   static constexpr unsigned int countLength = 4;
   static constexpr unsigned int boundary = countLength;
   Extent measure(Wanted wanted) const noexcept
   {
      return {countLength + (wanted == Wanted::leastLength ? 0 : std::size_t{_dataLength}), boundary, false};
   }
   std::size_t write(Output& out, std::size_t index) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   char* _data = nullptr;
   std::uint32_t _bufferLength = 0;
   std::uint32_t _dataLength = 0;
   void (*_deleter)(void*) = nullptr; // null: an array of char
   bool _owned = true;
};

} // namespace rti1516e
