#include "tests/faults/MemoryFaults.h"

#include "tests/faults/FakeJava.h"

#include <cstdlib>
#include <new>

namespace {

int allocationsLeft = 0;
bool failed = false;

void* allocate(std::size_t size)
{
   if (allocationsLeft != 0 && !fake::isInside() && --allocationsLeft == 0) {
      failed = true;
      return nullptr;
   }
   return std::malloc(size == 0 ? 1 : size);
}

} // namespace

void failAllocation(int n)
{
   allocationsLeft = n;
   failed = failed && n == 0;
}

bool allocationHasFailed() { return failed; }

void* operator new(std::size_t size)
{
   void* const memory = allocate(size);
   if (memory == nullptr) {
      throw std::bad_alloc();
   }
   return memory;
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
