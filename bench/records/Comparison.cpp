#include "bench/records/Comparison.h"

#include "bench/records/Codecs.h"

#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

Vehicle vehicleOf(std::size_t points)
{
   Vehicle vehicle{"second platoon, vehicle 4711", 7, 1234567890123, 0.75F, 271.5, {1.5, -2.5, 3.5}, {}};
   for (std::size_t i = 0; i < points; ++i) {
      auto const number = static_cast<double>(i);
      vehicle.track.push_back({number, number / 2, -number});
   }
   return vehicle;
}

template <class Operation>
void measure(std::string const& name, Operation operation)
{
   benchmark::RegisterBenchmark(name.c_str(), [operation](benchmark::State& state) {
      for (auto _ : state) {
         operation();
         benchmark::ClobberMemory();
      }
   });
}

// A codec that the library's is compared with, and the bound of that, if any.
struct Peer
{
   MadeCodec (*make)(Vehicle const&);
   double bound;
};

constexpr Peer peers[] = {
   {codecByHand, 0},
#ifdef HAS_PROTOBUF
   {codecOfProtobuf, 1},    {codecOfProtobufMessage, 0},
#endif
#ifdef HAS_CAPNPROTO
   {codecOfCapnProto, 1},   {codecOfCapnProtoSegment, 0},
#endif
#ifdef HAS_FLATBUFFERS
   {codecOfFlatBuffers, 0},
#endif
};

std::string measureCodec(MadeCodec made, Vehicle const& vehicle)
{
   std::shared_ptr<Codec> const codec = std::move(made);
   codec->encode();
   codec->decode();
   if (!(codec->decoded() == vehicle)) {
      std::fprintf(stderr, "%s does not decode what it encodes\n", codec->name());
      std::abort();
   }
   std::string const name = codec->name() + (", points: " + std::to_string(vehicle.track.size()));
   measure("encode " + name, [codec] { codec->encode(); });
   measure("decode " + name, [codec] { codec->decode(); });
   return name;
}

} // namespace

void compareRecords(std::vector<Claim>& claims)
{
   for (std::size_t const points : {0, 10, 100}) {
      Vehicle const vehicle = vehicleOf(points);
      std::string const library = measureCodec(codecOfElements(vehicle), vehicle);
      for (Peer const& peer : peers) {
         std::string const other = measureCodec(peer.make(vehicle), vehicle);
         for (std::string const direction : {"encode ", "decode "}) {
            claims.push_back({direction + library, direction + other, peer.bound});
         }
      }
   }
}

} // namespace bench
