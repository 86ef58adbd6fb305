#include "Checks.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>

namespace airtraffic {
namespace {

class Table
{
public:
   Table() { std::wcout << L'\n' << std::setw(68) << L"expected" << std::setw(8) << L"found" << L'\n'; }

   void compare(std::wstring const& what, long expected, long found)
   {
      add(what, expected, found, expected == found);
   }

   // As many as expected, of which there must be some: what has not been put to the test is not right.
   void compareSome(std::wstring const& what, long expected, long found)
   {
      add(what, expected, found, expected == found && expected > 0);
   }

   bool allRight() const { return _allRight; }

private:
   void add(std::wstring const& what, long expected, long found, bool right)
   {
      std::wcout << std::left << std::setw(60) << what << std::right << std::setw(8) << expected
                 << std::setw(8) << found << (right ? L"  ok\n" : L"  WRONG\n");
      _allRight &= right;
   }

   bool _allRight = true;
};

template <class Federates, class Count>
long sum(Federates const& federates, Count count)
{
   long total = 0;
   for (auto const& each : federates) {
      total += (each.*count)();
   }
   return total;
}

long positionsSentWithin(Area const& area, Exercise const& exercise)
{
   long count = 0;
   for (Airline const& each : exercise.fleets()) {
      count += std::count_if(each.sentPositions().begin(), each.sentPositions().end(),
                             [&](Position const& position) { return area.contains(position); });
   }
   return count;
}

// A position reaches those in whose regions it was sent, and nobody else.
void checkRegions(Table& table, Exercise const& exercise)
{
   Radar const& radar = exercise.radar();
   table.compareSome(L"positions on the radar, of those sent within its coverage",
                     positionsSentWithin(radarCoverage, exercise), radar.positionsSeen());
   table.compare(L"positions on the radar from elsewhere", 0, radar.positionsElsewhere());
   for (Controller const& each : exercise.controllers()) {
      table.compareSome(L"positions seen by " + each.name() + L", of those sent within its view",
                        positionsSentWithin(each.view(), exercise), each.positionsSeen());
      table.compare(L"positions seen by " + each.name() + L" from elsewhere", 0, each.positionsElsewhere());
   }
}

// How many aircraft are under the control of the sector that they are in, and of no other.
long controlledWhereTheyAre(std::vector<Airline::Flight> const& flights, Exercise const& exercise)
{
   return std::count_if(flights.begin(), flights.end(), [&](Airline::Flight const& flight) {
      auto const& controllers = exercise.controllers();
      return flight.isFlying() &&
             std::all_of(controllers.begin(), controllers.end(), [&](Controller const& each) {
                return each.controls(flight.plan.callsign) == each.sector().area.contains(flight.position);
             });
   });
}

void checkOwnership(Table& table, Exercise const& exercise)
{
   auto const& controllers = exercise.controllers();
   auto const& fleets = exercise.fleets();
   long const crossings = sum(fleets, &Airline::crossings);
   table.compareSome(L"aircraft taken under control as they entered", sum(fleets, &Airline::entered),
                     sum(controllers, &Controller::firstContacts));
   table.compareSome(L"hand-overs offered, of aircraft that crossed a boundary", crossings,
                     sum(controllers, &Controller::offered));
   table.compare(L"hand-overs accepted", crossings, sum(controllers, &Controller::accepted));
   table.compare(L"hand-overs confirmed", crossings, sum(controllers, &Controller::confirmed));
   long flying = 0;
   long controlled = 0;
   for (Airline const& each : fleets) {
      flying += std::count_if(each.flights().begin(), each.flights().end(),
                              [](Airline::Flight const& flight) { return flight.isFlying(); });
      controlled += controlledWhereTheyAre(each.flights(), exercise);
   }
   table.compareSome(L"aircraft in the end controlled by their sector alone", flying, controlled);
}

void checkInteractions(Table& table, Exercise const& exercise)
{
   long const sent = sum(exercise.controllers(), &Controller::clearancesSent);
   table.compareSome(L"clearances received by the aircraft they are for", sent,
                     sum(exercise.fleets(), &Airline::clearancesObeyed));
   table.compareSome(L"clearances received by all who subscribe",
                     sent * static_cast<long>(exercise.fleets().size()),
                     sum(exercise.fleets(), &Airline::clearancesReceived));
}

void checkTime(Table& table, Exercise const& exercise)
{
   long messages = 0;
   long late = 0;
   long early = 0;
   long disordered = 0;
   for (Federate const* each : exercise.federates()) {
      messages += each->arrivals().count();
      late += each->arrivals().late();
      early += each->arrivals().early();
      disordered += each->arrivals().disordered();
   }
   std::wstring const ofAll = L"of " + std::to_wstring(messages) + L" messages, ";
   table.compare(ofAll + L"in the past of their receiver", 0, late);
   table.compare(ofAll + L"before their time", 0, early);
   table.compare(ofAll + L"out of order", 0, disordered);
}

} // namespace

bool check(Exercise const& exercise)
{
   Table table;
   checkRegions(table, exercise);
   checkOwnership(table, exercise);
   checkInteractions(table, exercise);
   checkTime(table, exercise);
   return table.allRight();
}

} // namespace airtraffic
