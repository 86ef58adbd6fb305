// What to do about a class path that does not lead to the right core, for the person at the console: a line
// or more, each with its line end.
#pragma once

#include <string>

namespace tovu1516e {

// The core was not found: what is wrong with the present CLASSPATH, and what would be right.
std::string classPathAdvice();

// A core was found, but it lacks something that the library needs.
std::string otherCoreAdvice();

} // namespace tovu1516e
