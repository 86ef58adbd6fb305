#include "Encoding.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/time/HLAinteger64Time.h>

namespace airtraffic {
namespace {

using namespace rti1516e;

// The record Position of the FOM, field by field, over the members of a position: encoding reads them and
// decoding writes them, so that the order of the fields stands in one place.
class PositionRecord
{
public:
   explicit PositionRecord(Position& position)
      : _easting(&position.easting), _northing(&position.northing), _flightLevel(&position.flightLevel)
   {
      _record.appendElementPointer(&_easting);
      _record.appendElementPointer(&_northing);
      _record.appendElementPointer(&_flightLevel);
   }

   HLAfixedRecord& operator*() { return _record; }

private:
   HLAfloat64BE _easting;
   HLAfloat64BE _northing;
   HLAinteger32BE _flightLevel;
   HLAfixedRecord _record;
};

template <class Element>
auto decoded(VariableLengthData const& bytes)
{
   Element element;
   element.decode(bytes);
   return element.get();
}

} // namespace

VariableLengthData encode(Position const& position)
{
   Position copy = position;
   return (*PositionRecord(copy)).encode();
}

VariableLengthData encode(std::wstring const& text) { return HLAunicodeString(text).encode(); }
VariableLengthData encode(Integer32 number) { return HLAinteger32BE(number).encode(); }

Position decodePosition(VariableLengthData const& bytes)
{
   Position position{};
   (*PositionRecord(position)).decode(bytes);
   return position;
}

std::wstring decodeText(VariableLengthData const& bytes) { return decoded<HLAunicodeString>(bytes); }

// The MIM's HLAlogicalTime: an array of the bytes in which the time encodes itself.
Integer64 decodeTime(VariableLengthData const& bytes)
{
   HLAopaqueData encoded;
   encoded.decode(bytes);
   HLAinteger64Time time;
   time.decode(VariableLengthData(encoded.get(), static_cast<unsigned int>(encoded.dataLength())));
   return time.getTime();
}

Integer32 decodeNumber(VariableLengthData const& bytes) { return decoded<HLAinteger32BE>(bytes); }

} // namespace airtraffic
