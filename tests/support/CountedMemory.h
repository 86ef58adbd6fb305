// A replacement of operator new that counts, and that fails when a test wants it to. For programs that link
// CountedMemory.cpp.
#pragma once

#include <atomic>
#include <new>

namespace memory {

inline std::atomic<long> made = 0; // allocations that have succeeded
inline std::atomic<long> live = 0; // and are not yet released

// Lets the n-th allocation from now on fail, n counting from 1; 0: none.
void failAllocation(int n);

// Whether the last one that was to fail has.
bool hasFailed();

// Tells which allocations are never refused; none unless it is set.
inline bool (*isExempt)() = nullptr;

// Whether the operation ends without a std::bad_alloc though the n-th of its allocations fails.
template <class Operation>
bool succeedsWithout(int n, Operation operation)
{
   failAllocation(n);
   bool succeeds = true;
   try {
      operation();
   } catch (std::bad_alloc const&) {
      succeeds = false;
   }
   failAllocation(0);
   return succeeds;
}

} // namespace memory
