#include "src/messages/Encoder.h"

namespace tovu1516e {

void Encoder<std::wstring>::write(ByteWrapper& to, std::wstring const& text) noexcept
{
   ByteWrapper units = to;
   units.advance(WordEncoder::wordSize);
   std::size_t const count = rti1516e::utf16::storeText(text, [&](std::size_t) { return units.current(); });
   to.put(static_cast<std::uint32_t>(count));
   to.advance(2 * count);
}

} // namespace tovu1516e
