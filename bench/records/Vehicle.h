// The record that the library and other serialisers encode and decode: the variables of a federate.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

struct Point
{
   double x = 0, y = 0, z = 0;
};

struct Vehicle
{
   std::string name;
   std::int32_t kind = 0;
   std::int64_t time = 0;
   float fuel = 0;
   double heading = 0;
   double position[3] = {};
   std::vector<Point> track;
};

inline bool operator==(Point const& one, Point const& other)
{
   return one.x == other.x && one.y == other.y && one.z == other.z;
}

inline bool operator==(Vehicle const& one, Vehicle const& other)
{
   return one.name == other.name && one.kind == other.kind && one.time == other.time &&
          one.fuel == other.fuel && one.heading == other.heading &&
          std::equal(one.position, one.position + 3, other.position) && one.track == other.track;
}

} // namespace bench
