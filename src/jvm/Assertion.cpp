#include "src/jvm/Assertion.h"

#include <cstdio>
#include <cstdlib>

namespace tovu1516e {

void failAssertion(char const* expression, char const* unit, int line) noexcept
{
   std::fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", expression, unit, line);
   std::fflush(stderr);
   std::abort();
}

} // namespace tovu1516e
