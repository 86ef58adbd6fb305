#ifndef RTI_HLAfloat64Time_h
#define RTI_HLAfloat64Time_h

#include <RTI/LogicalTime.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

namespace rti1516e {

// A point on a floating-point time axis, whose unit the federation agrees on: from the initial time 0.0 to
// the final time, the largest finite double.
//
// Nothing is checked: a time may be negative, infinite or not a number, and compares as the double it is.
//
// An argument of another time implementation ends in std::bad_cast, this object being as it was. Distinct
// objects may be used on distinct threads at once.
class RTI_EXPORT HLAfloat64Time : public LogicalTime
{
public:
   // The initial time.
   HLAfloat64Time();
   HLAfloat64Time(double value);
   HLAfloat64Time(HLAfloat64Time const& value);
   HLAfloat64Time(LogicalTime const& value);
   ~HLAfloat64Time() override;

   void setInitial() override;
   bool isInitial() const override;
   void setFinal() override;
   bool isFinal() const override;

   LogicalTime& operator=(LogicalTime const& value) override;

   // Adding or subtracting an interval other than 0.0 always changes a finite time: where rounding would
   // absorb the interval, the time steps to the double whose bit pattern is one more (+=) or one less (-=)
   // than its own. For positive times that is the next later or earlier time, for negative times the other
   // way round; from the final time += steps to infinity, and from infinity to a value that is not a number.
   LogicalTime& operator+=(LogicalTimeInterval const& addend) override;
   LogicalTime& operator-=(LogicalTimeInterval const& subtrahend) override;

   bool operator>(LogicalTime const& value) const override;
   bool operator<(LogicalTime const& value) const override;
   bool operator==(LogicalTime const& value) const override;
   bool operator>=(LogicalTime const& value) const override;
   bool operator<=(LogicalTime const& value) const override;

   // 8 bytes: the bit pattern of the double, most significant byte first. The form with a buffer returns 8,
   // or throws CouldNotDecode if the buffer is smaller, leaving it untouched.
   size_t encode(void* buffer, size_t bufferSize) const override;
   VariableLengthData encode() const override;
   size_t encodedLength() const override;

   // Take the first 8 bytes; fewer throw CouldNotDecode and leave the time as it was.
   void decode(void* buffer, size_t bufferSize) override;
   void decode(VariableLengthData const& encodedValue) override;

   // Such as HLAfloat64Time<1.5>, in no locale's manner and with six significant digits.
   std::wstring toString() const override;

   // "HLAfloat64Time".
   std::wstring implementationName() const override;

   virtual HLAfloat64Time& operator=(HLAfloat64Time const& value);
   virtual double getTime() const;
   virtual void setTime(double value);
   operator double() const;

   // For two times of this class, which C++20 compares ambiguously by the virtual operator: it finds that one
   // and its reverse. A template, so that a number is compared as a number rather than made one of the times.
   template <typename Same>
   typename std::enable_if<std::is_same<Same, HLAfloat64Time>::value, bool>::type operator==(
      Same const& value) const
   {
      return *this == static_cast<LogicalTime const&>(value);
   }

private:
   std::unique_ptr<double> _value;
};

} // namespace rti1516e

#endif
