// Keeps the calling thread from being cancelled: what must not be left half-way ends, and the thread after
// it.
#pragma once

#include <pthread.h>

namespace tovu1516e {

class UncancellableScope
{
public:
   UncancellableScope() noexcept { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &_before); }
   ~UncancellableScope() { pthread_setcancelstate(_before, nullptr); }
   UncancellableScope(UncancellableScope const&) = delete;
   UncancellableScope& operator=(UncancellableScope const&) = delete;

private:
   int _before = PTHREAD_CANCEL_ENABLE;
};

} // namespace tovu1516e
