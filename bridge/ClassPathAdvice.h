// What to do about a class path that does not lead to the core, for the person at the console.
#pragma once

#include <string>

namespace tovu1516e {

// A line or more, each with its line end: what is wrong with the present CLASSPATH and what would be right.
std::string classPathAdvice();

} // namespace tovu1516e
