#include "Refusal.h"

namespace system_tests {

std::string className(Exception const& exception)
{
#define SYSTEM_TESTS_NAME(Name)                            \
   if (dynamic_cast<Name const*>(&exception) != nullptr) { \
      return #Name;                                        \
   }
   RTI_FOR_EACH_EXCEPTION(SYSTEM_TESTS_NAME)
#undef SYSTEM_TESTS_NAME
   return "an exception of no known class";
}

} // namespace system_tests
