// How the library itself makes handles and looks into them.
#pragma once

#include <RTI/Handle.h>

#include <cstdint>

namespace rti1516e {

struct HandleAccess
{
   template <class H>
   static H make(std::uint32_t number) noexcept
   {
      H handle;
      handle._value = number;
      return handle;
   }

   template <class H>
   static std::uint32_t number(H const& handle) noexcept
   {
      return handle._value;
   }

   // From the bytes that encode gave.
   template <class H>
   static H decode(VariableLengthData const& encodedValue)
   {
      return H(encodedValue);
   }

   // A retraction handle has no other way in than its encoding, which is also how it travels.
   static MessageRetractionHandle retractionHandle(std::uint32_t number, void const* extra,
                                                   std::uint32_t extraLength);
};

} // namespace rti1516e
