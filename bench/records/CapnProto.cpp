#include "bench/records/Codecs.h"
#include "vehicle.capnp.h"

#include <capnp/message.h>
#include <capnp/serialize.h>
#include <cstring>
#include <vector>

namespace bench {

namespace {

// As its documentation has it: a builder for each message, a flat array of its segments, and a reader of
// that. Or at its best, for one who knows how long the messages are: all in one segment that is kept, and
// read without the table of segments in front of it.
class CapnProto final : public Codec
{
public:
   CapnProto(Vehicle const& vehicle, bool keepsSegment)
      : _from(vehicle), _to(vehicle), _keepsSegment(keepsSegment), _segment(64 + 3 * vehicle.track.size())
   {}

   char const* name() const override { return _keepsSegment ? "Cap'n Proto's segment" : "Cap'n Proto"; }

   void encode() override
   {
      if (_keepsSegment) {
         // It wants a cleared segment, and clears it behind itself.
         capnp::MallocMessageBuilder message(kj::arrayPtr(_segment.data(), _segment.size()));
         fill(message.initRoot<capnproto::Vehicle>());
         auto const written = message.getSegmentsForOutput()[0];
         _words.resize(written.size());
         std::memcpy(_words.data(), written.begin(), written.size() * sizeof(capnp::word));
      } else {
         capnp::MallocMessageBuilder message;
         fill(message.initRoot<capnproto::Vehicle>());
         _flat = capnp::messageToFlatArray(message);
      }
   }

   void decode() override
   {
      if (_keepsSegment) {
         kj::ArrayPtr<capnp::word const> const segment(_words.data(), _words.size());
         capnp::SegmentArrayMessageReader message(kj::arrayPtr(&segment, 1));
         takeOut(message.getRoot<capnproto::Vehicle>());
      } else {
         capnp::FlatArrayMessageReader message(_flat);
         takeOut(message.getRoot<capnproto::Vehicle>());
      }
   }

   Vehicle decoded() const override { return _to; }

private:
   void fill(capnproto::Vehicle::Builder vehicle) const
   {
      vehicle.setName(kj::StringPtr(_from.name.c_str(), _from.name.size()));
      vehicle.setKind(_from.kind);
      vehicle.setTime(_from.time);
      vehicle.setFuel(_from.fuel);
      vehicle.setHeading(_from.heading);
      auto position = vehicle.getPosition();
      position.setX(_from.position[0]);
      position.setY(_from.position[1]);
      position.setZ(_from.position[2]);
      auto track = vehicle.initTrack(static_cast<unsigned int>(_from.track.size()));
      for (unsigned int i = 0; i < track.size(); ++i) {
         auto point = track[i];
         point.setX(_from.track[i].x);
         point.setY(_from.track[i].y);
         point.setZ(_from.track[i].z);
      }
   }

   void takeOut(capnproto::Vehicle::Reader vehicle)
   {
      auto const text = vehicle.getName();
      _to.name.assign(text.begin(), text.size());
      _to.kind = vehicle.getKind();
      _to.time = vehicle.getTime();
      _to.fuel = vehicle.getFuel();
      _to.heading = vehicle.getHeading();
      auto const position = vehicle.getPosition();
      _to.position[0] = position.getX();
      _to.position[1] = position.getY();
      _to.position[2] = position.getZ();
      auto const track = vehicle.getTrack();
      _to.track.resize(track.size());
      for (unsigned int i = 0; i < track.size(); ++i) {
         auto const point = track[i];
         _to.track[i] = {point.getX(), point.getY(), point.getZ()};
      }
   }

   Vehicle _from, _to;
   bool _keepsSegment;
   std::vector<capnp::word> _segment, _words;
   kj::Array<capnp::word> _flat;
};

} // namespace

MadeCodec codecOfCapnProto(Vehicle const& vehicle) { return std::make_unique<CapnProto>(vehicle, false); }

MadeCodec codecOfCapnProtoSegment(Vehicle const& vehicle)
{
   return std::make_unique<CapnProto>(vehicle, true);
}

} // namespace bench
