#ifndef RTI_LogicalTime_h
#define RTI_LogicalTime_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <iosfwd>
#include <string>

namespace rti1516e {

class LogicalTimeInterval;

// A point on the federation's time axis. A federation's time implementation derives its own class from this
// one; the operations take times of the same implementation, and what they do with another's is the
// implementation's to say.
class RTI_EXPORT LogicalTime
{
protected:
   LogicalTime() = default;
   LogicalTime(LogicalTime const&) = default;

public:
   virtual ~LogicalTime();

   virtual void setInitial() = 0;
   virtual bool isInitial() const = 0;
   virtual void setFinal() = 0;
   virtual bool isFinal() const = 0;

   virtual LogicalTime& operator=(LogicalTime const& value) = 0;
   virtual LogicalTime& operator+=(LogicalTimeInterval const& addend) = 0;
   virtual LogicalTime& operator-=(LogicalTimeInterval const& subtrahend) = 0;

   virtual bool operator>(LogicalTime const& value) const = 0;
   virtual bool operator<(LogicalTime const& value) const = 0;
   virtual bool operator==(LogicalTime const& value) const = 0;
   virtual bool operator>=(LogicalTime const& value) const = 0;
   virtual bool operator<=(LogicalTime const& value) const = 0;

   // Writes the encoding into the caller's buffer and returns the number of bytes written.
   virtual size_t encode(void* buffer, size_t bufferSize) const = 0;

   // The encoding. The ambassador's services send exactly these bytes.
   virtual VariableLengthData encode() const = 0;

   // In bytes. The same for every time of an implementation: times in callbacks are cut out by this length.
   virtual size_t encodedLength() const = 0;

   // Takes the value from an encoding; throws CouldNotDecode if the bytes do not hold one.
   virtual void decode(void* buffer, size_t bufferSize) = 0;
   virtual void decode(VariableLengthData const& encodedValue) = 0;

   virtual std::wstring toString() const = 0;
   virtual std::wstring implementationName() const = 0;
};

RTI_EXPORT std::wostream& operator<<(std::wostream& stream, LogicalTime const& time);

} // namespace rti1516e

#endif
