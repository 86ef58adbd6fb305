// A record of the library's beside general serialisers and a loop.
#pragma once

#include "bench/Ratios.h"

#include <vector>

namespace bench {

// Registers the benchmarks, and appends how the library's times stand to the others'.
void compareRecords(std::vector<Claim>& claims);

} // namespace bench
