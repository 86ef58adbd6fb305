#include "bench/records/Codecs.h"
#include "vehicle.pb.h"

#include <stdexcept>
#include <vector>

namespace bench {

namespace {

class Protobuf final : public Codec
{
public:
   explicit Protobuf(Vehicle const& vehicle, bool copies) : _from(vehicle), _to(vehicle), _copies(copies)
   {
      fill();
   }

   char const* name() const override { return _copies ? "Protobuf" : "Protobuf's message"; }

   void encode() override
   {
      if (_copies) {
         fill();
      }
      _buffer.resize(_filled.ByteSizeLong());
      _filled.SerializeWithCachedSizesToArray(reinterpret_cast<std::uint8_t*>(_buffer.data()));
   }

   void decode() override
   {
      if (!_parsed.ParseFromArray(_buffer.data(), static_cast<int>(_buffer.size()))) {
         throw std::runtime_error("no vehicle");
      }
      if (_copies) {
         takeOut(_to);
      }
   }

   Vehicle decoded() const override
   {
      Vehicle vehicle = _to;
      takeOut(vehicle);
      return _copies ? _to : vehicle;
   }

private:
   void fill()
   {
      _filled.Clear(); // which keeps the memory of all that is in it
      _filled.set_name(_from.name);
      _filled.set_kind(_from.kind);
      _filled.set_time(_from.time);
      _filled.set_fuel(_from.fuel);
      _filled.set_heading(_from.heading);
      for (double const coordinate : _from.position) {
         _filled.add_position(coordinate);
      }
      for (Point const& point : _from.track) {
         protobuf::Point& added = *_filled.add_track();
         added.set_x(point.x);
         added.set_y(point.y);
         added.set_z(point.z);
      }
   }

   void takeOut(Vehicle& vehicle) const
   {
      vehicle.name = _parsed.name();
      vehicle.kind = _parsed.kind();
      vehicle.time = _parsed.time();
      vehicle.fuel = _parsed.fuel();
      vehicle.heading = _parsed.heading();
      for (int i = 0; i < 3; ++i) {
         vehicle.position[i] = _parsed.position(i);
      }
      vehicle.track.resize(static_cast<std::size_t>(_parsed.track_size()));
      auto next = vehicle.track.begin();
      for (protobuf::Point const& point : _parsed.track()) {
         *next++ = {point.x(), point.y(), point.z()};
      }
   }

   Vehicle _from, _to;
   bool _copies;
   protobuf::Vehicle _filled, _parsed;
   std::vector<char> _buffer;
};

} // namespace

MadeCodec codecOfProtobuf(Vehicle const& vehicle) { return std::make_unique<Protobuf>(vehicle, true); }

MadeCodec codecOfProtobufMessage(Vehicle const& vehicle)
{
   return std::make_unique<Protobuf>(vehicle, false);
}

} // namespace bench
