// The values of attributes, parameters and tags, encoded as the FOM has it. Decoding fails with
// rti1516e::EncoderException.
#ifndef AIRTRAFFIC_ENCODING_H
#define AIRTRAFFIC_ENCODING_H

#include "Position.h"

#include <RTI/VariableLengthData.h>
#include <RTI/encoding/EncodingConfig.h>

#include <string>

namespace airtraffic {

rti1516e::VariableLengthData encode(Position const& position);
rti1516e::VariableLengthData encode(std::wstring const& text);
rti1516e::VariableLengthData encode(rti1516e::Integer32 number);

Position decodePosition(rti1516e::VariableLengthData const& bytes);
std::wstring decodeText(rti1516e::VariableLengthData const& bytes);
rti1516e::Integer64 decodeTime(rti1516e::VariableLengthData const& bytes);
rti1516e::Integer32 decodeNumber(rti1516e::VariableLengthData const& bytes);

} // namespace airtraffic

#endif
