// The integer time implementation.
#include "src/time/TimeFamily.h"

#include <RTI/time/HLAinteger64TimeFactory.h>

#include <cstdint>
#include <limits>

namespace rti1516e {
namespace {

// Times and intervals wrap around, which in the arithmetic of signed numbers is not to be had.
struct IntegerAxis
{
   static constexpr Integer64 initial = 0;
   static constexpr Integer64 final = std::numeric_limits<Integer64>::max();
   static constexpr Integer64 zero = 0;
   static constexpr Integer64 epsilon = 1;

   static Integer64 sum(Integer64 a, Integer64 b) noexcept
   {
      std::uint64_t const bits = static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b);
      return static_cast<Integer64>(bits);
   }

   static Integer64 difference(Integer64 a, Integer64 b) noexcept
   {
      std::uint64_t const bits = static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b);
      return static_cast<Integer64>(bits);
   }

   static constexpr auto later = sum;
   static constexpr auto earlier = difference;
};

} // namespace

RTI_DEFINE_TIME_FAMILY(HLAinteger64Time, HLAinteger64Interval, HLAinteger64TimeFactory, Integer64,
                       IntegerAxis)

} // namespace rti1516e
