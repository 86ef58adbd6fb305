#include "bench/hub/Parts.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace bench {

std::int64_t nanoseconds()
{
   return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

void sendAsTold(std::function<void(std::int64_t)> const& send, std::function<void()> const& flush)
{
   double rate = 0;
   double seconds = 0;
   while (std::cin >> rate >> seconds) {
      std::int64_t const start = nanoseconds();
      std::int64_t const end = start + static_cast<std::int64_t>(seconds * 1e9);
      std::int64_t count = 0;
      for (std::int64_t now = start; now < end; now = nanoseconds()) {
         send(now);
         ++count;
         if (rate > 0) {
            flush();
            std::int64_t const next =
               start + static_cast<std::int64_t>(static_cast<double>(count) / rate * 1e9);
            timespec const until{next / 1000000000, next % 1000000000};
            clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
         }
      }
      send(-count);
      flush();
      std::cout << count << std::endl;
   }
}

void Arrivals::add(std::int64_t value)
{
   _last = nanoseconds();
   if (value > 0) {
      _first = _underway.empty() ? value : _first;
      _underway.push_back(_last - value);
   } else if (-value != static_cast<std::int64_t>(_underway.size())) {
      throw std::runtime_error("of " + std::to_string(-value) + " messages " +
                               std::to_string(_underway.size()) + " came");
   } else {
      _complete = true;
   }
}

std::string Arrivals::told()
{
   auto const middle = _underway.begin() + static_cast<std::ptrdiff_t>(_underway.size() / 2);
   std::nth_element(_underway.begin(), middle, _underway.end());
   return std::to_string(*middle) + " " + std::to_string(_last - _first);
}

void receiveAsTold(std::function<void(Arrivals&)> const& receive)
{
   std::string go;
   while (std::cin >> go) {
      Arrivals arrivals;
      while (!arrivals.complete()) {
         receive(arrivals);
      }
      std::cout << arrivals.told() << std::endl;
   }
}

void repeatAsTold(std::function<void()> const& action)
{
   int count = 0;
   while (std::cin >> count) {
      std::int64_t const start = nanoseconds();
      for (int i = 0; i < count; ++i) {
         action();
      }
      std::cout << static_cast<double>(nanoseconds() - start) / count << std::endl;
   }
}

} // namespace bench
