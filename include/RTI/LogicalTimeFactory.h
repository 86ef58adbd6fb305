#ifndef RTI_LogicalTimeFactory_h
#define RTI_LogicalTimeFactory_h

#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeInterval.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <memory>
#include <string>

RTI_AUTO_PTR_BEGIN

namespace rti1516e {

// Makes the times and intervals of one time implementation. What it makes belongs to the caller. The library
// uses an ambassador's factory on every thread that a callback arrives on, at once if need be.
class RTI_EXPORT LogicalTimeFactory
{
public:
   virtual ~LogicalTimeFactory();

   virtual std::auto_ptr<LogicalTime> makeInitial() = 0;
   virtual std::auto_ptr<LogicalTime> makeFinal() = 0;
   virtual std::auto_ptr<LogicalTimeInterval> makeZero() = 0;
   virtual std::auto_ptr<LogicalTimeInterval> makeEpsilon() = 0;

   // Throw CouldNotDecode if the bytes do not hold a value of the implementation.
   virtual std::auto_ptr<LogicalTime> decodeLogicalTime(void* buffer, size_t bufferSize) = 0;
   virtual std::auto_ptr<LogicalTime> decodeLogicalTime(VariableLengthData const& encodedLogicalTime) = 0;
   virtual std::auto_ptr<LogicalTimeInterval> decodeLogicalTimeInterval(void* buffer, size_t bufferSize) = 0;
   virtual std::auto_ptr<LogicalTimeInterval> decodeLogicalTimeInterval(
      VariableLengthData const& encodedLogicalTimeInterval) = 0;

   // The name by which a federation asks for the implementation.
   virtual std::wstring getName() const = 0;
};

// The time library's selector. It is imported from libfedtime1516e: a federate with a time implementation of
// its own deploys a library of that name that defines this one function.
class RTI_EXPORT_FEDTIME LogicalTimeFactoryFactory
{
public:
   // A new factory for the implementation of that name, or an empty pointer if the name is unknown.
   static std::auto_ptr<LogicalTimeFactory> makeLogicalTimeFactory(std::wstring const& implementationName);
};

// The selector of the two standard time implementations, for federates' own use.
class RTI_EXPORT HLAlogicalTimeFactoryFactory
{
public:
   // A new factory for "HLAinteger64Time" or "HLAfloat64Time", the latter also for an empty name; an empty
   // pointer for any other name.
   static std::auto_ptr<LogicalTimeFactory> makeLogicalTimeFactory(std::wstring const& implementationName);
};

} // namespace rti1516e

RTI_AUTO_PTR_END

#endif
