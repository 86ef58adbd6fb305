#ifndef AIRTRAFFIC_FEDERATE_H
#define AIRTRAFFIC_FEDERATE_H

#include "Arrivals.h"
#include "MessageForms.h"
#include "Scenario.h"
#include "Vocabulary.h"

#include <RTI/RTI1516.h>

#include <functional>
#include <memory>
#include <set>
#include <string>

namespace airtraffic {

// What all federates of the example have in common. Each regulates time and is constrained by it, and evokes
// its callbacks: so everything of it runs on one thread, the one that calls run.
class Federate : private MessageForms
{
public:
   // Advances by so many seconds at a time.
   Federate(std::wstring const& name, rti1516e::Integer64 period);
   ~Federate() override;
   Federate(Federate const&) = delete;
   Federate& operator=(Federate const&) = delete;

   // One federate creates the federation execution, which the others wait for to join, and calls them
   // together afterwards; one destroys it when all have run. Who is lost meanwhile takes his aircraft with
   // him.
   void createFederation(std::wstring const& fomModule);
   void join();
   void callTogether();
   void destroyFederation();

   // The federate's life in the federation, in step with the others, until it resigns.
   void run();

   std::wstring const& name() const { return _name; }
   Arrivals const& arrivals() const { return _arrivals; }

protected:
   // Publishes, subscribes and reserves.
   virtual void prepare() = 0;

   // Sends what is to hold at the next time.
   virtual void send() = 0;

   // Whether nothing is under way any more when the time is over.
   virtual bool isSettled() const { return true; }

   rti1516e::RTIambassador& rti() { return *_rti; }
   Vocabulary const& fom() const { return *_fom; }
   rti1516e::Integer64 time() const { return _time; }
   rti1516e::Integer64 nextTime() const { return _time + _period; }

   // Evokes callbacks until they have brought about what is awaited, but not for ever.
   void await(std::string const& what, std::function<bool()> const& condition);

   // Where Position is sent or wanted.
   rti1516e::RegionHandle createRegion(Area const& area);
   void moveRegion(rti1516e::RegionHandle region, Area const& area);
   rti1516e::AttributeHandleSetRegionHandleSetPairVector positionIn(rti1516e::RegionHandle region) const;

private:
   void enableTimeManagement();
   void synchronize(std::wstring const& point);
   void advance();

   void arrives(rti1516e::LogicalTime const* time, rti1516e::OrderType receivedOrder) override;
   void announceSynchronizationPoint(std::wstring const& label,
                                     rti1516e::VariableLengthData const& tag) override;
   void federationSynchronized(std::wstring const& label, rti1516e::FederateHandleSet const& failed) override;
   void timeRegulationEnabled(rti1516e::LogicalTime const& time) override;
   void timeConstrainedEnabled(rti1516e::LogicalTime const& time) override;
   void timeAdvanceGrant(rti1516e::LogicalTime const& time) override;

   std::wstring const _name;
   rti1516e::Integer64 const _period;
   std::set<std::wstring> _announced;
   std::set<std::wstring> _synchronized;
   bool _regulating = false;
   bool _constrained = false;
   bool _advancing = false;
   rti1516e::Integer64 _time = 0;
   Arrivals _arrivals;
   std::unique_ptr<rti1516e::RTIambassador> _rti;
   std::unique_ptr<Vocabulary const> _fom;
};

} // namespace airtraffic

#endif
