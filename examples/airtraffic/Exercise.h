#ifndef AIRTRAFFIC_EXERCISE_H
#define AIRTRAFFIC_EXERCISE_H

#include "Airline.h"
#include "Controller.h"
#include "Radar.h"

#include <deque>
#include <string>
#include <vector>

namespace airtraffic {

// All federates of the scenario, and their run through a federation of their own. What they have seen can be
// asked of them afterwards.
class Exercise
{
public:
   Exercise();

   // Runs each federate on a thread of its own. Throws what is thrown by the first that fails; the
   // others, who wait for it in vain, fail soon after.
   void run(std::wstring const& fomModule);

   Radar const& radar() const { return _radar; }
   std::deque<Controller> const& controllers() const { return _controllers; }
   std::deque<Airline> const& fleets() const { return _fleets; }
   std::vector<Federate*> const& federates() const { return _federates; }

private:
   void runTogether();

   Radar _radar;
   std::deque<Controller> _controllers;
   std::deque<Airline> _fleets;
   std::vector<Federate*> _federates;
};

} // namespace airtraffic

#endif
