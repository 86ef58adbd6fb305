#ifndef RTI_HLAfloat64Interval_h
#define RTI_HLAfloat64Interval_h

#include <RTI/LogicalTimeInterval.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

namespace rti1516e {

// A distance on the floating-point time axis: zero is 0.0, epsilon is the smallest positive normalised
// double, about 2.2e-308. It may be negative, infinite or not a number; its arithmetic is that of doubles.
//
// An argument of another time implementation ends in std::bad_cast, this object being as it was. Distinct
// objects may be used on distinct threads at once.
class RTI_EXPORT HLAfloat64Interval : public LogicalTimeInterval
{
public:
   // The zero interval.
   HLAfloat64Interval();
   HLAfloat64Interval(double value);
   HLAfloat64Interval(HLAfloat64Interval const& value);
   HLAfloat64Interval(LogicalTimeInterval const& value);
   ~HLAfloat64Interval() override;

   void setZero() override;
   bool isZero() const override;
   void setEpsilon() override;
   bool isEpsilon() const override;

   LogicalTimeInterval& operator=(LogicalTimeInterval const& value) override;
   LogicalTimeInterval& operator+=(LogicalTimeInterval const& addend) override;
   LogicalTimeInterval& operator-=(LogicalTimeInterval const& subtrahend) override;

   bool operator>(LogicalTimeInterval const& value) const override;
   bool operator<(LogicalTimeInterval const& value) const override;
   bool operator==(LogicalTimeInterval const& value) const override;
   bool operator>=(LogicalTimeInterval const& value) const override;
   bool operator<=(LogicalTimeInterval const& value) const override;

   // Both arguments are HLAfloat64Times: the distance from the second to the first.
   void setToDifference(LogicalTime const& minuend, LogicalTime const& subtrahend) override;

   // 8 bytes: the bit pattern of the double, most significant byte first. The form with a buffer returns 8,
   // or throws CouldNotDecode if the buffer is smaller, leaving it untouched.
   size_t encode(void* buffer, size_t bufferSize) const override;
   VariableLengthData encode() const override;
   size_t encodedLength() const override;

   // Take the first 8 bytes; fewer throw CouldNotDecode and leave the interval as it was.
   void decode(void* buffer, size_t bufferSize) override;
   void decode(VariableLengthData const& encodedValue) override;

   // Such as HLAfloat64Interval<1.5>, in no locale's manner and with six significant digits.
   std::wstring toString() const override;

   // "HLAfloat64Time": intervals go by the name of their time class.
   std::wstring implementationName() const override;

   virtual HLAfloat64Interval& operator=(HLAfloat64Interval const& value);
   virtual double getInterval() const;
   virtual void setInterval(double value);
   operator double() const;

   // For two intervals of this class, which C++20 compares ambiguously by the virtual operator: it finds that
   // one and its reverse. A template, so that a number is compared as a number rather than made one of the
   // intervals.
   template <typename Same>
   typename std::enable_if<std::is_same<Same, HLAfloat64Interval>::value, bool>::type operator==(
      Same const& value) const
   {
      return *this == static_cast<LogicalTimeInterval const&>(value);
   }

private:
   std::unique_ptr<double> _value;
};

} // namespace rti1516e

#endif
