#include "src/values/BigEndian.h"
#include "src/values/HandleAccess.h"

#include <RTI/Exception.h>

#include <ostream>
#include <utility>

namespace rti1516e {
namespace {

constexpr std::size_t encodedSize = 4;

// Hashes are computed in 32 bits and given as a signed 32-bit number, whatever the width of long.
long hashOf(std::uint32_t number) noexcept { return static_cast<std::int32_t>(number * 37U); }

std::wstring textOf(wchar_t const* kind, long long number)
{
   return std::wstring(kind) + L"<" + std::to_wstring(number) + L">";
}

// Whoever has too few bytes has not got them from a handle.
std::uint32_t decoded(VariableLengthData const& encodedValue)
{
   if (encodedValue.size() < encodedSize) {
      throw CouldNotDecode(L"A handle is encoded in 4 bytes, and these are only " +
                           std::to_wstring(encodedValue.size()));
   }
   return loadBigEndian<std::uint32_t>(encodedValue.data());
}

template <class Implementation>
std::uint32_t numberIn(Implementation const* implementation) noexcept
{
   return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(implementation));
}

} // namespace

#define RTI_DEFINE_HANDLE(HandleKind, kindText)                                                              \
   HandleKind::HandleKind(HandleKind##Implementation* implementation) noexcept                               \
      : _value(numberIn(implementation))                                                                     \
   {}                                                                                                        \
   HandleKind::HandleKind(VariableLengthData const& encodedValue) : _value(decoded(encodedValue)) {}         \
   HandleKind##Implementation* HandleKind::getImplementation() const noexcept                                \
   {                                                                                                         \
      return reinterpret_cast<HandleKind##Implementation*>(static_cast<std::uintptr_t>(_value));             \
   }                                                                                                         \
   long HandleKind::hash() const noexcept { return hashOf(_value); }                                         \
   VariableLengthData HandleKind::encode() const                                                             \
   {                                                                                                         \
      unsigned char bytes[encodedSize];                                                                      \
      storeBigEndian(bytes, _value);                                                                         \
      return VariableLengthData(bytes, encodedSize);                                                         \
   }                                                                                                         \
   size_t HandleKind::encode(void* buffer, size_t bufferSize) const                                          \
   {                                                                                                         \
      if (bufferSize < encodedSize) {                                                                        \
         throw CouldNotEncode(L"Buffer needs to be at least 4 bytes!");                                      \
      }                                                                                                      \
      storeBigEndian(buffer, _value);                                                                        \
      return encodedSize;                                                                                    \
   }                                                                                                         \
   size_t HandleKind::encodedLength() const noexcept { return encodedSize; }                                 \
   std::wstring HandleKind::toString() const { return textOf(kindText, static_cast<std::int32_t>(_value)); } \
   std::wostream& operator<<(std::wostream& stream, HandleKind const& handle)                                \
   {                                                                                                         \
      return stream << handle.toString();                                                                    \
   }

// Only federate handles name their kind; the text of the others is the same for all.
RTI_DEFINE_HANDLE(FederateHandle, L"FederateHandle")
RTI_DEFINE_HANDLE(ObjectClassHandle, L"HandleKind")
RTI_DEFINE_HANDLE(InteractionClassHandle, L"HandleKind")
RTI_DEFINE_HANDLE(ObjectInstanceHandle, L"HandleKind")
RTI_DEFINE_HANDLE(AttributeHandle, L"HandleKind")
RTI_DEFINE_HANDLE(ParameterHandle, L"HandleKind")
RTI_DEFINE_HANDLE(DimensionHandle, L"HandleKind")
RTI_DEFINE_HANDLE(RegionHandle, L"HandleKind")

} // namespace rti1516e
