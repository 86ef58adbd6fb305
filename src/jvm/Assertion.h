// Programming errors that must never happen: the process ends and says where.
#pragma once

namespace tovu1516e {

// Writes expression, unit and line to the standard error stream and aborts, in every build.
[[noreturn]] void failAssertion(char const* expression, char const* unit, int line) noexcept;

} // namespace tovu1516e
