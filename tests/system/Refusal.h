// How a test asks which exception a service answers with.
#ifndef RTI1516E_TESTS_SYSTEM_REFUSAL_H
#define RTI1516E_TESTS_SYSTEM_REFUSAL_H

#include "Text.h"

#include <RTI/Exception.h>

#include <string>

namespace system_tests {

std::string className(Exception const& exception);

// The class of the exception that the call throws, or "nothing". Exceptions that the standard does not
// foresee show their message, so that a failing test tells what went wrong.
template <class Call>
std::string refusal(Call&& call)
{
   try {
      call();
      return "nothing";
   } catch (RTIinternalError const& error) {
      return "RTIinternalError: " + narrow(error.what());
   } catch (Exception const& exception) {
      return className(exception);
   }
}

} // namespace system_tests

// That the call, which may have commas of its own, throws just this.
#define EXPECT_REFUSED(exception, ...) EXPECT_EQ(refusal([&] { __VA_ARGS__; }), exception)

#endif
