// Two federates that lead a whole life in a federation of their own, on one thread: they find each other,
// send and receive, fail, and go. Half of their callbacks throw.
#pragma once

#include <atomic>
#include <string>

namespace soak {

// What has happened so far, of all threads.
struct Tally
{
   std::atomic<long> services{0};
   std::atomic<long> refusals{0}; // services that ended in an exception, as they should have
   std::atomic<long> callbacks{0};
   std::atomic<long> throws{0}; // callbacks that threw
   std::atomic<long> ambassadors{0};

   long operations() const { return services + callbacks; }
};

// Throws what a service throws that should not have.
void leadALife(std::wstring const& federation, std::wstring const& fomModule, int rounds, Tally& tally);

} // namespace soak
