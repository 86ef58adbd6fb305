#include <RTI/LogicalTimeFactory.h>

namespace rti1516e {

// A federation whose time implementation has no name has the default one of HLAlogicalTimeFactoryFactory.
std::auto_ptr<LogicalTimeFactory> LogicalTimeFactoryFactory::makeLogicalTimeFactory(
   std::wstring const& implementationName)
{
   return HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(implementationName);
}

} // namespace rti1516e
