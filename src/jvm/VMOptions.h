// The options a new Java VM is created with, as environment variables and the option file ask for them.
#pragma once

#include <string>
#include <vector>

namespace tovu1516e {

// In the order they are passed. The first five are always there, empty where they are switched off.
std::vector<std::string> vmOptions();

} // namespace tovu1516e
