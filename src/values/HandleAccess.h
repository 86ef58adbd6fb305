// How the library itself makes handles and looks into them.
#pragma once

#include <RTI/Handle.h>

#include <cstddef>
#include <cstdint>

namespace rti1516e {

// Whether a type is one of the handles that are a number alone.
template <class T>
inline constexpr bool isHandle = false;
#define RTI_IS_HANDLE(Handle) \
   template <>                \
   inline constexpr bool isHandle<Handle> = true;
RTI_FOR_EACH_HANDLE(RTI_IS_HANDLE)
#undef RTI_IS_HANDLE

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

   // From its parts, and from its encoding. Of bytes that are fewer than they claim to be only the number is
   // taken; fewer than the number's give a handle that names nothing.
   static MessageRetractionHandle retractionHandle(std::uint32_t number, void const* extra,
                                                   std::uint32_t extraLength);
   static MessageRetractionHandle decodeRetractionHandle(void const* bytes, std::size_t length);
};

} // namespace rti1516e
