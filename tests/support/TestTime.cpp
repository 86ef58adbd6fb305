#include "tests/support/TestTime.h"

namespace rti1516e {

std::auto_ptr<LogicalTimeFactory> LogicalTimeFactoryFactory::makeLogicalTimeFactory(std::wstring const& name)
{
   contract::Faults::at("makeLogicalTimeFactory");
   if (name == L"TestTime") {
      return std::auto_ptr<LogicalTimeFactory>(new contract::TestTimeFactory);
   }
   return HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(name);
}

} // namespace rti1516e
