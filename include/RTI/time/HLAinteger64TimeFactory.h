#ifndef RTI_HLAinteger64TimeFactory_h
#define RTI_HLAinteger64TimeFactory_h

#include <RTI/LogicalTimeFactory.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/EncodingConfig.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <cstddef>
#include <memory>
#include <string>

RTI_AUTO_PTR_BEGIN

namespace rti1516e {

// The name of this time implementation: "HLAinteger64Time". Like any variable it is there when main begins.
// Static objects of a library in the place of libfedtime1516e, which is loaded first, ask the factory's
// getName.
RTI_EXPORT extern std::wstring const HLAinteger64TimeName;

// Makes HLAinteger64Time and HLAinteger64Interval objects. What it makes belongs to the caller. It has no
// state: any number of threads may use it at once.
class RTI_EXPORT HLAinteger64TimeFactory : public LogicalTimeFactory
{
public:
   HLAinteger64TimeFactory();
   HLAinteger64TimeFactory(HLAinteger64TimeFactory const& other);
   ~HLAinteger64TimeFactory() override;

   std::auto_ptr<LogicalTime> makeInitial() override;
   std::auto_ptr<LogicalTime> makeFinal() override;
   std::auto_ptr<LogicalTimeInterval> makeZero() override;
   std::auto_ptr<LogicalTimeInterval> makeEpsilon() override;

   // Take the first 8 bytes; fewer throw CouldNotDecode.
   std::auto_ptr<LogicalTime> decodeLogicalTime(void* buffer, size_t bufferSize) override;
   std::auto_ptr<LogicalTime> decodeLogicalTime(VariableLengthData const& encodedLogicalTime) override;
   std::auto_ptr<LogicalTimeInterval> decodeLogicalTimeInterval(void* buffer, size_t bufferSize) override;
   std::auto_ptr<LogicalTimeInterval> decodeLogicalTimeInterval(
      VariableLengthData const& encodedLogicalTimeInterval) override;

   std::wstring getName() const override;

   virtual std::auto_ptr<HLAinteger64Time> makeLogicalTime(Integer64 value);
   virtual std::auto_ptr<HLAinteger64Interval> makeLogicalTimeInterval(Integer64 value);
};

} // namespace rti1516e

RTI_AUTO_PTR_END

#endif
