#include "src/messages/EnumCodes.h"

#include "src/jvm/Assertion.h"

namespace tovu1516e {

void failCode(Unit unit, int line) noexcept
{
   failAssertion("false",
                 unit == Unit::Encoder ? "gen/cpp_handwritten/Encoder" : "gen/cpp_handwritten/Decoder", line);
}

} // namespace tovu1516e
