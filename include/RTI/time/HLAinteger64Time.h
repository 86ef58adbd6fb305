#ifndef RTI_HLAinteger64Time_h
#define RTI_HLAinteger64Time_h

#include <RTI/LogicalTime.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>

namespace rti1516e {

// A point on an integer time axis, whose unit the federation agrees on: from the initial time 0 to the final
// time, the largest 64-bit number.
//
// Nothing is checked: a time may be negative, and arithmetic past either end of the range wraps around.
//
// An argument of another time implementation ends in std::bad_cast, this object being as it was. Distinct
// objects may be used on distinct threads at once.
class RTI_EXPORT HLAinteger64Time : public LogicalTime
{
public:
   // The initial time.
   HLAinteger64Time();
   HLAinteger64Time(Integer64 value);
   HLAinteger64Time(HLAinteger64Time const& value);
   HLAinteger64Time(LogicalTime const& value);
   ~HLAinteger64Time() override;

   void setInitial() override;
   bool isInitial() const override;
   void setFinal() override;
   bool isFinal() const override;

   LogicalTime& operator=(LogicalTime const& value) override;
   LogicalTime& operator+=(LogicalTimeInterval const& addend) override;
   LogicalTime& operator-=(LogicalTimeInterval const& subtrahend) override;

   bool operator>(LogicalTime const& value) const override;
   bool operator<(LogicalTime const& value) const override;
   bool operator==(LogicalTime const& value) const override;
   bool operator>=(LogicalTime const& value) const override;
   bool operator<=(LogicalTime const& value) const override;

   // 8 bytes: the number in two's complement, most significant byte first. The form with a buffer returns 8,
   // or throws CouldNotDecode if the buffer is smaller, leaving it untouched.
   size_t encode(void* buffer, size_t bufferSize) const override;
   VariableLengthData encode() const override;
   size_t encodedLength() const override;

   // Take the first 8 bytes; fewer throw CouldNotDecode and leave the time as it was.
   void decode(void* buffer, size_t bufferSize) override;
   void decode(VariableLengthData const& encodedValue) override;

   // Such as HLAinteger64Time<42>, in no locale's manner.
   std::wstring toString() const override;

   // "HLAinteger64Time".
   std::wstring implementationName() const override;

   virtual HLAinteger64Time& operator=(HLAinteger64Time const& value);
   virtual Integer64 getTime() const;
   virtual void setTime(Integer64 value);
   operator Integer64() const;

   // For two times of this class, which C++20 compares ambiguously by the virtual operator: it finds that one
   // and its reverse. A template, so that a number is compared as a number rather than made one of the times.
   template <typename Same>
   typename std::enable_if<std::is_same<Same, HLAinteger64Time>::value, bool>::type operator==(
      Same const& value) const
   {
      return *this == static_cast<LogicalTime const&>(value);
   }

private:
   std::unique_ptr<Integer64> _value;
};

} // namespace rti1516e

#endif
