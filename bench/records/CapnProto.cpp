#include "bench/records/Codecs.h"
#include "vehicle.capnp.h"

#include <capnp/message.h>
#include <capnp/serialize.h>
#include <cstring>
#include <vector>

namespace bench {

namespace {

// A message of one segment, without the table of segments in front of it.
class CapnProto final : public Codec
{
public:
   explicit CapnProto(Vehicle const& vehicle)
      : _from(vehicle), _to(vehicle), _segment(64 + 3 * vehicle.track.size())
   {}

   char const* name() const override { return "Cap'n Proto"; }

   void encode() override
   {
      // It wants a cleared segment, and clears it behind itself.
      capnp::MallocMessageBuilder message(kj::ArrayPtr<capnp::word>(_segment.data(), _segment.size()));
      auto vehicle = message.initRoot<capnproto::Vehicle>();
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
      auto const written = message.getSegmentsForOutput()[0];
      _words.resize(written.size());
      std::memcpy(_words.data(), written.begin(), written.size() * sizeof(capnp::word));
   }

   void decode() override
   {
      kj::ArrayPtr<capnp::word const> const segment(_words.data(), _words.size());
      capnp::SegmentArrayMessageReader message(kj::arrayPtr(&segment, 1));
      auto const vehicle = message.getRoot<capnproto::Vehicle>();
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

   Vehicle decoded() const override { return _to; }

private:
   Vehicle _from, _to;
   std::vector<capnp::word> _segment, _words;
};

} // namespace

MadeCodec codecOfCapnProto(Vehicle const& vehicle) { return std::make_unique<CapnProto>(vehicle); }

} // namespace bench
