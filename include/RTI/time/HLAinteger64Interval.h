#ifndef RTI_HLAinteger64Interval_h
#define RTI_HLAinteger64Interval_h

#include <RTI/LogicalTimeInterval.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

namespace rti1516e {

// A distance on the integer time axis: zero is 0, epsilon is 1. It may be negative; arithmetic past either
// end of the range of 64-bit numbers wraps around.
//
// An argument of another time implementation ends in std::bad_cast, this object being as it was. Distinct
// objects may be used on distinct threads at once.
class RTI_EXPORT HLAinteger64Interval : public LogicalTimeInterval
{
public:
   // The zero interval.
   HLAinteger64Interval();
   HLAinteger64Interval(Integer64 value);
   HLAinteger64Interval(HLAinteger64Interval const& value);
   HLAinteger64Interval(LogicalTimeInterval const& value);
   ~HLAinteger64Interval() override;

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

   // Both arguments are HLAinteger64Times: the distance from the second to the first.
   void setToDifference(LogicalTime const& minuend, LogicalTime const& subtrahend) override;

   // 8 bytes: the number in two's complement, most significant byte first. The form with a buffer returns 8,
   // or throws CouldNotDecode if the buffer is smaller, leaving it untouched.
   size_t encode(void* buffer, size_t bufferSize) const override;
   VariableLengthData encode() const override;
   size_t encodedLength() const override;

   // Take the first 8 bytes; fewer throw CouldNotDecode and leave the interval as it was.
   void decode(void* buffer, size_t bufferSize) override;
   void decode(VariableLengthData const& encodedValue) override;

   // Such as HLAinteger64Interval<42>, in no locale's manner.
   std::wstring toString() const override;

   // "HLAinteger64Time": intervals go by the name of their time class.
   std::wstring implementationName() const override;

   virtual HLAinteger64Interval& operator=(HLAinteger64Interval const& value);
   virtual Integer64 getInterval() const;
   virtual void setInterval(Integer64 value);
   operator Integer64() const;

   // For two intervals of this class, which C++20 compares ambiguously by the virtual operator: it finds that
   // one and its reverse. A template, so that a number is compared as a number rather than made one of the
   // intervals.
   template <typename Same>
   typename std::enable_if<std::is_same<Same, HLAinteger64Interval>::value, bool>::type operator==(
      Same const& value) const
   {
      return *this == static_cast<LogicalTimeInterval const&>(value);
   }

private:
   std::unique_ptr<Integer64> _value;
};

} // namespace rti1516e

#endif
