// The selector of the two standard time implementations.
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

namespace rti1516e {

std::auto_ptr<LogicalTimeFactory> HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(
   std::wstring const& implementationName)
{
   if (implementationName == HLAinteger64TimeFactory().getName()) {
      return std::auto_ptr<LogicalTimeFactory>(new HLAinteger64TimeFactory);
   }
   if (implementationName == HLAfloat64TimeFactory().getName() || implementationName.empty()) {
      return std::auto_ptr<LogicalTimeFactory>(new HLAfloat64TimeFactory);
   }
   return std::auto_ptr<LogicalTimeFactory>();
}

} // namespace rti1516e
