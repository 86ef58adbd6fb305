#include "Federate.h"

#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace airtraffic {

using namespace rti1516e;

namespace {

std::wstring const federation = L"Air traffic";
std::wstring const ready = L"everybody is ready";
std::wstring const over = L"everybody has seen everything";

std::chrono::seconds const patience{20};

// Others, who may be in processes of their own, come and go when they do.
template <class Refusal, class Service>
void retry(Service&& service)
{
   for (auto const deadline = std::chrono::steady_clock::now() + patience;;) {
      try {
         return service();
      } catch (Refusal const&) {
         if (std::chrono::steady_clock::now() > deadline) {
            throw;
         }
         std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
   }
}

} // namespace

Federate::Federate(std::wstring const& name, Integer64 period)
   : _name(name), _period(period), _rti(RTIambassadorFactory().createRTIambassador().release())
{
   _rti->connect(*this, HLA_EVOKED);
}

// The ambassador goes before what its callbacks use. Of a derived class they can use nothing any more, but
// none comes: nobody evokes it.
Federate::~Federate() { _rti.reset(); }

void Federate::createFederation(std::wstring const& fomModule)
{
   _rti->createFederationExecution(federation, fomModule, L"HLAinteger64Time");
}

void Federate::join()
{
   retry<FederationExecutionDoesNotExist>(
      [this] { _rti->joinFederationExecution(_name, L"air traffic", federation); });
   _rti->setAutomaticResignDirective(DELETE_OBJECTS_THEN_DIVEST);
   _fom.reset(new Vocabulary(*_rti));
}

void Federate::callTogether()
{
   for (std::wstring const& point : {ready, over}) {
      _rti->registerFederationSynchronizationPoint(point, VariableLengthData());
   }
}

void Federate::destroyFederation()
{
   retry<FederatesCurrentlyJoined>([this] { _rti->destroyFederationExecution(federation); });
}

void Federate::run()
{
   prepare();
   enableTimeManagement();
   synchronize(ready);
   while (_time < end) {
      send();
      advance();
   }
   await("the end of what is under way", [this] { return isSettled(); });
   synchronize(over);
   _rti->resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST);
}

void Federate::enableTimeManagement()
{
   _rti->enableTimeRegulation(HLAinteger64Interval(reportInterval));
   await("time regulation", [this] { return _regulating; });
   _rti->enableTimeConstrained();
   await("time constraint", [this] { return _constrained; });
}

void Federate::synchronize(std::wstring const& point)
{
   await("the announcement of a point", [&] { return _announced.count(point) != 0; });
   _rti->synchronizationPointAchieved(point);
   await("all others", [&] { return _synchronized.count(point) != 0; });
}

void Federate::advance()
{
   _arrivals.request(nextTime());
   _advancing = true;
   _rti->timeAdvanceRequest(HLAinteger64Time(nextTime()));
   await("a time advance", [this] { return !_advancing; });
}

void Federate::await(std::string const& what, std::function<bool()> const& condition)
{
   auto const deadline = std::chrono::steady_clock::now() + patience;
   while (!condition()) {
      if (std::chrono::steady_clock::now() > deadline) {
         throw std::runtime_error("waited in vain for " + what);
      }
      _rti->evokeCallback(0.1);
   }
}

RegionHandle Federate::createRegion(Area const& area)
{
   RegionHandle const region = _rti->createRegion({_fom->easting, _fom->northing});
   moveRegion(region, area);
   return region;
}

void Federate::moveRegion(RegionHandle region, Area const& area)
{
   _rti->setRangeBounds(region, _fom->easting, RangeBounds(area.west, area.east));
   _rti->setRangeBounds(region, _fom->northing, RangeBounds(area.south, area.north));
   _rti->commitRegionModifications({region});
}

AttributeHandleSetRegionHandleSetPairVector Federate::positionIn(RegionHandle region) const
{
   return {{{_fom->position}, {region}}};
}

void Federate::arrives(LogicalTime const* time, OrderType receivedOrder)
{
   _arrivals.add(time, receivedOrder);
}

void Federate::announceSynchronizationPoint(std::wstring const& label, VariableLengthData const&)
{
   _announced.insert(label);
}

void Federate::federationSynchronized(std::wstring const& label, FederateHandleSet const&)
{
   _synchronized.insert(label);
}

void Federate::timeRegulationEnabled(LogicalTime const&) { _regulating = true; }

void Federate::timeConstrainedEnabled(LogicalTime const&) { _constrained = true; }

void Federate::timeAdvanceGrant(LogicalTime const& time)
{
   _time = HLAinteger64Time(time).getTime();
   _arrivals.grant(_time);
   _advancing = false;
}

} // namespace airtraffic
