// How a test asks which exception a service answers with.
#ifndef RTI1516E_TESTS_SYSTEM_REFUSAL_H
#define RTI1516E_TESTS_SYSTEM_REFUSAL_H

#include "Text.h"
#include "tests/support/Caught.h"

#include <string>

namespace system_tests {

// The class of the exception that the call throws, or "nothing". Exceptions that the standard does not
// foresee show their message, so that a failing test tells what went wrong.
template <class Call>
std::string refusal(Call&& call)
{
   contract::Caught const caught = contract::caughtFrom(call);
   if (caught.type == "RTIinternalError") {
      return caught.type + ": " + narrow(caught.text);
   }
   return caught.type.empty() ? "nothing" : caught.type;
}

} // namespace system_tests

// That the call, which may have commas of its own, throws just this.
#define EXPECT_REFUSED(exception, ...) EXPECT_EQ(refusal([&] { __VA_ARGS__; }), exception)

#endif
