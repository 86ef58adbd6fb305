// By what the core finds the ambassador that a callback is for.
#pragma once

#include <cstdint>

namespace tovu1516e {

// Names a callback context to the core. Never 0.
struct CallbackToken
{
   std::uint32_t value;
};

} // namespace tovu1516e
