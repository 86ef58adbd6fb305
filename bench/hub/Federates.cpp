#include "bench/hub/Parts.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <cstring>
#include <iostream>
#include <memory>

namespace bench {
namespace {

using namespace rti1516e;

std::wstring wide(std::string const& text) { return {text.begin(), text.end()}; }

class Federate : private NullFederateAmbassador
{
public:
   // A member of a federation that may have to be made first: {designator, end of the federation's name}
   explicit Federate(Arguments const& arguments) : _federation(L"Measured " + wide(arguments.at(1)))
   {
      _rti->connect(*this, HLA_EVOKED, wide(arguments.at(0)));
      try {
         _rti->createFederationExecution(_federation, L"" FOMS "/Meeting.xml", L"HLAinteger64Time");
      } catch (FederationExecutionAlreadyExists const&) {
         // another one was first
      }
      _rti->joinFederationExecution(L"measured", _federation);
      _person = _rti->getObjectClassHandle(L"HLAobjectRoot.Person");
      _place = _rti->getAttributeHandle(_person, L"Place");
   }

   ~Federate() override
   {
      _rti->resignFederationExecution(DELETE_OBJECTS);
      try {
         _rti->destroyFederationExecution(_federation);
      } catch (Exception const&) {
         // another one does
      }
      _rti->disconnect();
   }

   RTIambassador* operator->() { return _rti.get(); }

   void registerPerson()
   {
      _rti->publishObjectClassAttributes(_person, {_place});
      _object = _rti->registerObjectInstance(_person);
   }

   void subscribe() { _rti->subscribeObjectClassAttributes(_person, {_place}); }

   ObjectInstanceHandle object() const { return _object; }
   ObjectClassHandle person() const { return _person; }

   void update(std::int64_t value)
   {
      _values[_place] = VariableLengthData(&value, sizeof value);
      _rti->updateAttributeValues(_object, _values, _noTag);
   }

   void receive(Arrivals& arrivals)
   {
      _arrivals = &arrivals;
      _rti->evokeMultipleCallbacks(0.01, 0.1);
   }

   void takeTime()
   {
      _rti->enableTimeRegulation(HLAinteger64Interval(1));
      _rti->enableTimeConstrained();
      while (!_regulating || !_constrained) {
         _rti->evokeCallback(1);
      }
   }

   void step()
   {
      ++_next;
      _rti->timeAdvanceRequest(HLAinteger64Time(_next));
      while (_time < _next) {
         _rti->evokeCallback(1);
      }
   }

private:
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const& values,
                               VariableLengthData const&, OrderType, TransportationType,
                               SupplementalReflectInfo) override
   {
      std::int64_t value = 0;
      std::memcpy(&value, values.begin()->second.data(), sizeof value);
      if (_arrivals != nullptr) {
         _arrivals->add(value);
      }
   }
   void timeRegulationEnabled(LogicalTime const& time) override
   {
      _regulating = true;
      _next = dynamic_cast<HLAinteger64Time const&>(time).getTime();
   }
   void timeConstrainedEnabled(LogicalTime const&) override { _constrained = true; }
   void timeAdvanceGrant(LogicalTime const& time) override
   {
      _time = dynamic_cast<HLAinteger64Time const&>(time).getTime();
   }

   std::wstring const _federation;
   std::unique_ptr<RTIambassador> _rti{RTIambassadorFactory().createRTIambassador().release()};
   ObjectClassHandle _person;
   AttributeHandle _place;
   ObjectInstanceHandle _object;
   AttributeHandleValueMap _values;
   VariableLengthData const _noTag;
   Arrivals* _arrivals = nullptr;
   bool _regulating = false;
   bool _constrained = false;
   Integer64 _next = 0;
   Integer64 _time = 0;
};

void ready() { std::cout << "ready" << std::endl; }

} // namespace

void callService(Arguments const& arguments)
{
   Federate federate(arguments);
   federate.registerPerson();
   ready();
   repeatAsTold([&] { federate->getObjectInstanceName(federate.object()); });
}

void callLookup(Arguments const& arguments)
{
   Federate federate(arguments);
   ready();
   repeatAsTold([&] { federate->getAttributeHandle(federate.person(), L"Place"); });
}

void sendUpdates(Arguments const& arguments)
{
   Federate federate(arguments);
   federate.registerPerson();
   ready();
   sendAsTold([&](std::int64_t value) { federate.update(value); }, [] {});
}

void receiveUpdates(Arguments const& arguments)
{
   Federate federate(arguments);
   federate.subscribe();
   ready();
   receiveAsTold([&](Arrivals& arrivals) { federate.receive(arrivals); });
}

void advance(Arguments const& arguments)
{
   Federate federate(arguments);
   federate.takeTime();
   ready();
   repeatAsTold([&] { federate.step(); });
}

void advanceUpdating(Arguments const& arguments)
{
   Federate federate(arguments);
   federate.takeTime();
   federate.subscribe();
   federate.registerPerson();
   ready();
   repeatAsTold([&] {
      federate.update(0);
      federate.step();
   });
}

void joinMany(Arguments const& arguments)
{
   std::vector<std::unique_ptr<Federate>> federates;
   for (int left = std::stoi(arguments.at(2)); left > 0; --left) {
      federates.push_back(std::make_unique<Federate>(arguments));
   }
   ready();
   std::string end;
   std::cin >> end;
}

void createAndJoin(Arguments const& arguments)
{
   ready();
   repeatAsTold([&] { Federate const federate(arguments); });
}

void connectOnce(Arguments const& arguments)
{
   NullFederateAmbassador callbacks;
   std::unique_ptr<RTIambassador> const rti(RTIambassadorFactory().createRTIambassador().release());
   std::int64_t const start = nanoseconds();
   rti->connect(callbacks, HLA_EVOKED, wide(arguments.at(0)));
   std::cout << nanoseconds() - start << std::endl;
   rti->disconnect();
}

} // namespace bench
