#include "bench/EncodingFloors.h"
#include "bench/records/Codecs.h"

#include <RTI/Exception.h>

namespace bench {

namespace {

std::size_t aligned(std::size_t index, std::size_t boundary)
{
   return (index + boundary - 1) & ~(boundary - 1);
}

class ByHand final : public Codec
{
public:
   explicit ByHand(Vehicle const& vehicle) : _from(vehicle), _to(vehicle) {}

   char const* name() const override { return "by hand"; }

   void encode() override
   {
      std::size_t const numbers = aligned(4 + _from.name.size(), 4);
      std::size_t const time = aligned(numbers + 4, 8);
      std::size_t const heading = aligned(time + 12, 8);
      std::size_t const points = aligned(heading + 32 + 4, 8);
      _buffer.clear();
      _buffer.resize(points + 24 * _from.track.size());
      char* const to = _buffer.data();
      put(to, static_cast<std::uint32_t>(_from.name.size()));
      std::memcpy(to + 4, _from.name.data(), _from.name.size());
      put(to + numbers, _from.kind);
      put(to + time, _from.time);
      put(to + time + 8, _from.fuel);
      put(to + heading, _from.heading);
      for (std::size_t i = 0; i < 3; ++i) {
         put(to + heading + 8 + 8 * i, _from.position[i]);
      }
      put(to + heading + 32, static_cast<std::uint32_t>(_from.track.size()));
      char* next = to + points;
      for (Point const& point : _from.track) {
         put(next, point.x);
         put(next + 8, point.y);
         put(next + 16, point.z);
         next += 24;
      }
   }

   void decode() override
   {
      char const* const from = _buffer.data();
      require(4);
      auto const length = get<std::uint32_t>(from);
      std::size_t const numbers = aligned(4 + std::size_t{length}, 4);
      std::size_t const time = aligned(numbers + 4, 8);
      std::size_t const heading = aligned(time + 12, 8);
      require(heading + 36);
      _to.name.assign(from + 4, length);
      _to.kind = get<std::int32_t>(from + numbers);
      _to.time = get<std::int64_t>(from + time);
      _to.fuel = get<float>(from + time + 8);
      _to.heading = get<double>(from + heading);
      for (std::size_t i = 0; i < 3; ++i) {
         _to.position[i] = get<double>(from + heading + 8 + 8 * i);
      }
      auto const count = get<std::uint32_t>(from + heading + 32);
      std::size_t const points = aligned(heading + 36, 8);
      require(count == 0 ? 0 : points + 24 * std::size_t{count});
      _to.track.resize(count);
      char const* next = from + points;
      for (Point& point : _to.track) {
         point = {get<double>(next), get<double>(next + 8), get<double>(next + 16)};
         next += 24;
      }
   }

   Vehicle decoded() const override { return _to; }

private:
   void require(std::size_t size) const
   {
      if (_buffer.size() < size) {
         throw rti1516e::EncoderException(L"too short");
      }
   }

   Vehicle _from, _to;
   std::vector<char> _buffer;
};

} // namespace

MadeCodec codecByHand(Vehicle const& vehicle) { return std::make_unique<ByHand>(vehicle); }

} // namespace bench
