#include "tests/support/CountedMemory.h"

#include <cstdlib>

namespace memory {

namespace {

int left = 0; // allocations up to the one that fails
bool failed = false;

void* allocate(std::size_t size) noexcept
{
   if (left != 0 && (isExempt == nullptr || !isExempt()) && --left == 0) {
      failed = true;
      return nullptr;
   }
   ++made;
   ++live;
   return std::malloc(size + (size == 0));
}

void* require(void* memory) { return memory != nullptr ? memory : throw std::bad_alloc(); }

void release(void* memory) noexcept
{
   live -= memory != nullptr;
   std::free(memory);
}

} // namespace

void failAllocation(int n)
{
   left = n;
   failed = failed && n == 0;
}

bool hasFailed() { return failed; }

} // namespace memory

// All that the library uses: a sanitizer has its own of each and does not pass them on to one another.
void* operator new(std::size_t size) { return memory::require(memory::allocate(size)); }
void* operator new[](std::size_t size) { return memory::require(memory::allocate(size)); }
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { return memory::allocate(size); }
void operator delete(void* pointer) noexcept { memory::release(pointer); }
void operator delete[](void* pointer) noexcept { memory::release(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { memory::release(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { memory::release(pointer); }
