#include "bench/records/Codecs.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAvariableArray.h>

#include <deque>

namespace bench {

namespace {

using namespace rti1516e;

HLAfixedRecord pointOfItsOwn()
{
   HLAfixedRecord record;
   for (int i = 0; i < 3; ++i) {
      record.appendElement(HLAfloat64BE());
   }
   return record;
}

// A vehicle's variables with the elements that use them.
class VehicleElements
{
public:
   explicit VehicleElements(Vehicle const& vehicle) : _variables(vehicle)
   {
      for (std::size_t i = 0; i < 3; ++i) {
         _position.setElementPointer(i, &number(_variables.position[i]));
      }
      for (Point& point : _variables.track) {
         HLAfixedRecord& record = _points.emplace_back();
         for (double* const coordinate : {&point.x, &point.y, &point.z}) {
            record.appendElementPointer(&number(*coordinate));
         }
         _track.addElementPointer(&record);
      }
      for (DataElement* const field : std::initializer_list<DataElement*>{&_name, &_kind, &_time, &_fuel,
                                                                          &_heading, &_position, &_track}) {
         _record.appendElementPointer(field);
      }
   }

   VehicleElements(VehicleElements const&) = delete;
   VehicleElements& operator=(VehicleElements const&) = delete;

   Vehicle const& variables() const { return _variables; }
   HLAfixedRecord& record() { return _record; }

private:
   HLAfloat64BE& number(double& variable) { return _numbers.emplace_back(&variable); }

   Vehicle _variables;
   std::deque<HLAfloat64BE> _numbers;
   std::deque<HLAfixedRecord> _points;
   HLAASCIIstring _name{&_variables.name};
   HLAinteger32BE _kind{&_variables.kind};
   HLAinteger64BE _time{reinterpret_cast<Integer64*>(&_variables.time)};
   HLAfloat32BE _fuel{&_variables.fuel};
   HLAfloat64BE _heading{&_variables.heading};
   HLAfixedArray _position{HLAfloat64BE(), 3};
   HLAvariableArray _track{pointOfItsOwn()};
   HLAfixedRecord _record;
};

class Elements final : public Codec
{
public:
   explicit Elements(Vehicle const& vehicle) : _from(vehicle), _to(vehicle) {}

   char const* name() const override { return "elements"; }
   void encode() override
   {
      _buffer.clear();
      _from.record().encodeInto(_buffer);
   }
   void decode() override { _to.record().decodeFrom(_buffer, 0); }
   Vehicle decoded() const override { return _to.variables(); }

private:
   VehicleElements _from, _to;
   std::vector<char> _buffer;
};

} // namespace

MadeCodec codecOfElements(Vehicle const& vehicle) { return std::make_unique<Elements>(vehicle); }

} // namespace bench
