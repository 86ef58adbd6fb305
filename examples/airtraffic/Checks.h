#ifndef AIRTRAFFIC_CHECKS_H
#define AIRTRAFFIC_CHECKS_H

#include "Exercise.h"

namespace airtraffic {

// Compares what the federates have sent and what they have seen of each other, and prints it. Returns whether
// all of it agrees.
bool check(Exercise const& exercise);

} // namespace airtraffic

#endif
