// The floating-point time implementation.
#include "src/time/TimeFamily.h"

#include <RTI/time/HLAfloat64TimeFactory.h>

#include <limits>

namespace rti1516e {
namespace {

static_assert(std::numeric_limits<double>::is_iec559, "encodings and time steps are made of IEEE 754 bits");

struct FloatAxis
{
   static constexpr double initial = 0.0;
   static constexpr double final = std::numeric_limits<double>::max();
   static constexpr double zero = 0.0;
   static constexpr double epsilon = std::numeric_limits<double>::min();

   static double sum(double a, double b) noexcept { return a + b; }
   static double difference(double a, double b) noexcept { return a - b; }

   // A federate that adds an interval relies on its time having changed, so an interval that rounding would
   // absorb still steps to the neighbouring bit pattern.
   static double later(double present, double interval) noexcept
   {
      double const result = sum(present, interval);
      return absorbed(present, interval, result) ? time::fromBits<double>(time::bitsOf(present) + 1) : result;
   }

   static double earlier(double present, double interval) noexcept
   {
      double const result = difference(present, interval);
      return absorbed(present, interval, result) ? time::fromBits<double>(time::bitsOf(present) - 1) : result;
   }

private:
   static bool absorbed(double present, double interval, double result) noexcept
   {
      return result == present && interval != 0.0;
   }
};

} // namespace

RTI_DEFINE_TIME_FAMILY(HLAfloat64Time, HLAfloat64Interval, HLAfloat64TimeFactory, double, FloatAxis)

} // namespace rti1516e
