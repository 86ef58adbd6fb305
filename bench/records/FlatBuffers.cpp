#include "bench/records/Codecs.h"
#include "vehicle_generated.h"

#include <stdexcept>

namespace bench {

namespace {

// Its points stand in memory as they do in its octets, and are copied as a whole.
class FlatBuffers final : public Codec
{
public:
   explicit FlatBuffers(Vehicle const& vehicle) : _from(vehicle), _to(vehicle)
   {
      static_assert(sizeof(Point) == sizeof(flatbuffer::Point));
   }

   char const* name() const override { return "FlatBuffers"; }

   void encode() override
   {
      _builder.Clear();
      auto const text = _builder.CreateString(_from.name);
      auto const track = _builder.CreateVectorOfStructs(
         reinterpret_cast<flatbuffer::Point const*>(_from.track.data()), _from.track.size());
      flatbuffer::Point const position(_from.position[0], _from.position[1], _from.position[2]);
      _builder.Finish(flatbuffer::CreateVehicle(_builder, text, _from.kind, _from.time, _from.fuel,
                                                _from.heading, &position, track));
   }

   void decode() override
   {
      flatbuffers::Verifier verifier(_builder.GetBufferPointer(), _builder.GetSize());
      if (!flatbuffer::VerifyVehicleBuffer(verifier)) {
         throw std::runtime_error("no vehicle");
      }
      flatbuffer::Vehicle const& vehicle = *flatbuffer::GetVehicle(_builder.GetBufferPointer());
      _to.name.assign(vehicle.name()->c_str(), vehicle.name()->size());
      _to.kind = vehicle.kind();
      _to.time = vehicle.time();
      _to.fuel = vehicle.fuel();
      _to.heading = vehicle.heading();
      _to.position[0] = vehicle.position()->x();
      _to.position[1] = vehicle.position()->y();
      _to.position[2] = vehicle.position()->z();
      _to.track.resize(vehicle.track()->size());
      for (unsigned int i = 0; i < vehicle.track()->size(); ++i) {
         flatbuffer::Point const& point = *vehicle.track()->Get(i);
         _to.track[i] = {point.x(), point.y(), point.z()};
      }
   }

   Vehicle decoded() const override { return _to; }

private:
   Vehicle _from, _to;
   flatbuffers::FlatBufferBuilder _builder;
};

} // namespace

MadeCodec codecOfFlatBuffers(Vehicle const& vehicle) { return std::make_unique<FlatBuffers>(vehicle); }

} // namespace bench
