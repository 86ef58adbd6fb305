#include "src/messages/Encoder.h"

#include "src/jvm/Assertion.h"

namespace tovu1516e {
namespace {

[[noreturn]] void failEncoding(int line) noexcept
{
   failAssertion("false", "gen/cpp_handwritten/Encoder", line);
}

// The code of an enumerator whose codes are its value plus an offset.
template <class Enum>
std::uint32_t codeWithin(Enum value, Enum first, Enum last, int offset, int line) noexcept
{
   auto const number = static_cast<int>(value);
   if (number < static_cast<int>(first) || number > static_cast<int>(last)) {
      failEncoding(line);
   }
   return static_cast<std::uint32_t>(number + offset);
}

} // namespace

using namespace rti1516e;

std::uint32_t codeOf(CallbackModel model) noexcept { return model == HLA_EVOKED ? 1 : 2; }

std::uint32_t codeOf(ResignAction action) noexcept
{
   return codeWithin(action, UNCONDITIONALLY_DIVEST_ATTRIBUTES, NO_ACTION, 0, 127);
}

std::uint32_t codeOf(TransportationType type) noexcept
{
   return codeWithin(type, RELIABLE, BEST_EFFORT, 0, 139);
}

std::uint32_t codeOf(OrderType type) noexcept { return codeWithin(type, RECEIVE, TIMESTAMP, -1, 151); }

std::uint32_t codeOf(ServiceGroup group) noexcept
{
   return codeWithin(group, FEDERATION_MANAGEMENT, SUPPORT_SERVICES, 1, 173);
}

TransportationType transportationTypeOf(std::int32_t code) noexcept
{
   if (code != RELIABLE && code != BEST_EFFORT) {
      failEncoding(247);
   }
   return static_cast<TransportationType>(code);
}

OrderType orderTypeOf(std::int32_t code) noexcept
{
   if (code != 0 && code != 1) {
      failEncoding(263);
   }
   return static_cast<OrderType>(code + 1);
}

// Nearly every text is one unit a character.
void Encoder<std::wstring>::write(ByteWrapper& to, std::wstring const& text) noexcept
{
   ByteWrapper units = to;
   units.advance(WordEncoder::wordSize);
   std::size_t count = text.size();
   if (!utf16::storeBasicPlane(text, units.current())) {
      count = utf16::length(text);
      utf16::store(text, units.current());
   }
   to.put(static_cast<std::uint32_t>(count));
   to.advance(2 * count);
}

} // namespace tovu1516e
