#ifndef RTI_LogicalTimeInterval_h
#define RTI_LogicalTimeInterval_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <iosfwd>
#include <string>

namespace rti1516e {

class LogicalTime;

// A distance between two points of logical time, such as a lookahead. A federation's time implementation
// derives its own class from this one; the operations take intervals of the same implementation, and what
// they do with another's is the implementation's to say.
class RTI_EXPORT LogicalTimeInterval
{
protected:
   LogicalTimeInterval() = default;
   LogicalTimeInterval(LogicalTimeInterval const&) = default;

public:
   virtual ~LogicalTimeInterval();

   virtual void setZero() = 0;
   virtual bool isZero() const = 0;

   // The smallest interval that is not zero.
   virtual void setEpsilon() = 0;
   virtual bool isEpsilon() const = 0;

   virtual LogicalTimeInterval& operator=(LogicalTimeInterval const& value) = 0;
   virtual LogicalTimeInterval& operator+=(LogicalTimeInterval const& addend) = 0;
   virtual LogicalTimeInterval& operator-=(LogicalTimeInterval const& subtrahend) = 0;

   virtual bool operator>(LogicalTimeInterval const& value) const = 0;
   virtual bool operator<(LogicalTimeInterval const& value) const = 0;
   virtual bool operator==(LogicalTimeInterval const& value) const = 0;
   virtual bool operator>=(LogicalTimeInterval const& value) const = 0;
   virtual bool operator<=(LogicalTimeInterval const& value) const = 0;

   virtual void setToDifference(LogicalTime const& minuend, LogicalTime const& subtrahend) = 0;

   // Writes the encoding into the caller's buffer and returns the number of bytes written.
   virtual size_t encode(void* buffer, size_t bufferSize) const = 0;
   virtual VariableLengthData encode() const = 0;

   // In bytes. The same for every interval of an implementation.
   virtual size_t encodedLength() const = 0;

   // Takes the value from an encoding; throws CouldNotDecode if the bytes do not hold one.
   virtual void decode(void* buffer, size_t bufferSize) = 0;
   virtual void decode(VariableLengthData const& encodedValue) = 0;

   virtual std::wstring toString() const = 0;
   virtual std::wstring implementationName() const = 0;
};

RTI_EXPORT std::wostream& operator<<(std::wostream& stream, LogicalTimeInterval const& interval);

} // namespace rti1516e

#endif
