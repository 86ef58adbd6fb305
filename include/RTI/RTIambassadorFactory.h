#ifndef RTI_RTIambassadorFactory_h
#define RTI_RTIambassadorFactory_h

#include <RTI/RTIambassador.h>
#include <RTI/SpecificConfig.h>

#include <memory>

RTI_AUTO_PTR_BEGIN

namespace rti1516e {

// Where a federate gets its ambassadors.
class RTI_EXPORT RTIambassadorFactory
{
public:
   RTIambassadorFactory();
   RTIambassadorFactory(RTIambassadorFactory const& other);
   virtual ~RTIambassadorFactory();

   // A new ambassador, the caller's.
   //
   // The first call in a process starts the Java VM that the infrastructure runs in, or joins the one that
   // the process already runs. Several threads may call at once. The VM takes its class path from the
   // environment variable CLASSPATH, further options from TOVU1516_OPTION1 to TOVU1516_OPTION19 and from the
   // lines of the file tovu.vmoptions in the current directory. It runs until the process ends.
   //
   // An application that runs a VM of its own may destroy it (JavaVM::DestroyJavaVM), which waits until every
   // other thread that has called a service has ended. After that, and in the child of a fork, no
   // infrastructure can be reached, and the process can have no new VM.
   //
   // Throws RTIinternalError if no infrastructure can be reached, and writes the reason to the standard error
   // stream as well. Throws RTIinternalError also if the process has 4096 ambassadors already. The next call
   // tries again; but once an OpenJDK VM has refused its options, it starts the second time without its class
   // path, so that only a new process helps.
   std::auto_ptr<RTIambassador> createRTIambassador();
};

} // namespace rti1516e

RTI_AUTO_PTR_END

#endif
