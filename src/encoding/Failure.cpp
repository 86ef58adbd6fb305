#include "src/encoding/Failure.h"

#include <RTI/Exception.h>

namespace rti1516e {

void failure::raise(wchar_t const* message) { throw EncoderException(message); }

} // namespace rti1516e
