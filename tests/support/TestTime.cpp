#include "tests/support/TestTime.h"

namespace rti1516e {

std::auto_ptr<LogicalTimeFactory> LogicalTimeFactoryFactory::makeLogicalTimeFactory(std::wstring const& name)
{
   contract::inTime("makeLogicalTimeFactory");
   if (name == L"TestTime") {
      using contract::TestTimeFactory;
      TestTimeFactory* const given = TestTimeFactory::toBeGiven;
      return std::auto_ptr<LogicalTimeFactory>(given != nullptr ? given : new TestTimeFactory);
   }
   return HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(name);
}

} // namespace rti1516e
