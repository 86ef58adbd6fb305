// A replacement of operator new that counts, and that fails when a test wants it to. For programs that link
// CountedMemory.cpp.
#pragma once

#include <gtest/gtest.h>
#include <limits>
#include <new>

namespace memory {

constexpr long plenty = std::numeric_limits<long>::max();
extern long allowed; // allocations that still succeed
extern long made;    // allocations that have succeeded
extern long live;    // and are not yet released

enum class Outcome
{
   done,
   badAlloc
};

template <class Operation>
Outcome runWithMemoryFor(long allocations, Operation operation)
{
   allowed = allocations;
   auto outcome = Outcome::done;
   try {
      operation();
   } catch (std::bad_alloc const&) {
      outcome = Outcome::badAlloc;
   }
   allowed = plenty;
   return outcome;
}

// The operation makes everything it needs and lets go of it again.
template <class Operation>
void expectNothingLost(Operation operation)
{
   long const before = live;
   long allocations = 0;
   while (runWithMemoryFor(allocations, operation) == Outcome::badAlloc) {
      EXPECT_EQ(live, before) << "after " << allocations << " allocations";
      ++allocations;
   }
   EXPECT_GT(allocations, 0) << "nothing was allocated at all";
   EXPECT_EQ(live, before);
}

} // namespace memory
