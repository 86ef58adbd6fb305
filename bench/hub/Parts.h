// What the processes of a measurement do. Each is told by lines what to measure, answers each with a line,
// and ends with its input.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// The time of all processes of this machine.
std::int64_t nanoseconds();

// Lines "RATE SECONDS": sends the time as often a second, or as fast as it can if that is 0, and a last value
// that tells how many there were; answers how many.
void sendAsTold(std::function<void(std::int64_t)> const& send, std::function<void()> const& flush);

// Takes in what that sends.
class Arrivals
{
public:
   void add(std::int64_t value);
   bool complete() const { return _complete; }
   // The median time on the way, and the time from the first one's sending to the last one's arrival in ns.
   std::string told();

private:
   std::vector<std::int64_t> _underway;
   std::int64_t _first = 0;
   std::int64_t _last = 0;
   bool _complete = false;
};

// Lines "go": has everything received, and answers what of it is told.
void receiveAsTold(std::function<void(Arrivals&)> const& receive);

// Lines "COUNT": does something so many times; answers the time of one in ns.
void repeatAsTold(std::function<void()> const& action);

// The parts, by name. The arguments of a part stand behind it on the command line.
using Arguments = std::vector<std::string>;
using Part = void (*)(Arguments const&);

// Bare TCP, with messages of the size that an update's have: [port]
void answerPings(Arguments const&);
void ping(Arguments const& port);
void relay(Arguments const&);
void sendToRelay(Arguments const& port);
void receiveFromRelay(Arguments const& port);

// Federates: local settings designator, and what the name of the federation ends in.
void callService(Arguments const&);
void callLookup(Arguments const&);
void sendUpdates(Arguments const&);
void receiveUpdates(Arguments const&);
void advance(Arguments const&);
void advanceUpdating(Arguments const&);
void joinMany(Arguments const&); // how many
void createAndJoin(Arguments const&);
void connectOnce(Arguments const&);

} // namespace bench
