// What a federation in the local core costs on top of the crossing into Java and back, and how that grows.
//
// The bare crossing is measured in the same process, with a class beside the core's: a core whose methods
// return at once has the local core's class names and cannot be loaded beside it. All federates evoke their
// callbacks on the measuring thread, so that the work is measured and not how fast the system wakes a thread.
#include "bench/Floor.h"
#include "bench/Ratios.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench {
namespace {

using namespace rti1516e;

// Makes sure that what is measured takes place: each callback that is waited for has to come.
class Federate : private NullFederateAmbassador
{
public:
   Federate() { _ambassador->connect(*this, HLA_EVOKED); }

   RTIambassador* operator->() { return _ambassador.get(); }

   void evokeReflection() { evoke(_reflections); }
   void evokeGrant() { evoke(_grants); }
   void evokeAll()
   {
      while (_ambassador->evokeCallback(0)) {
      }
   }

private:
   void evoke(std::uint64_t const& count)
   {
      std::uint64_t const before = count;
      _ambassador->evokeCallback(0);
      if (count != before + 1) {
         throw std::logic_error("a callback did not come");
      }
   }

   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType,
                               SupplementalReflectInfo) override
   {
      ++_reflections;
   }
   void timeAdvanceGrant(LogicalTime const&) override { ++_grants; }

   std::uint64_t _reflections = 0;
   std::uint64_t _grants = 0;
   std::unique_ptr<RTIambassador> _ambassador{RTIambassadorFactory().createRTIambassador().release()};
};

class Federation
{
public:
   explicit Federation(std::size_t size, std::wstring const& fom = L"Meeting.xml") : _federates(size)
   {
      _federates[0]->createFederationExecution(_name, L"" FOMS "/" + fom, L"HLAinteger64Time");
      for (Federate& each : _federates) {
         each->joinFederationExecution(L"federate", _name);
      }
   }

   ~Federation()
   {
      for (Federate& each : _federates) {
         each->resignFederationExecution(DELETE_OBJECTS);
      }
      _federates[0]->destroyFederationExecution(_name);
   }

   Federation(Federation const&) = delete;
   Federation& operator=(Federation const&) = delete;

   std::vector<Federate>& federates() { return _federates; }
   std::wstring const& name() const { return _name; }

private:
   static std::wstring uniqueName()
   {
      static int count = 0;
      return L"Federation " + std::to_wstring(++count);
   }

   std::wstring const _name = uniqueName();
   std::vector<Federate> _federates;
};

// A federation in which the first federate updates objects, one after the other, and all others reflect them.
class Updating
{
public:
   Updating(std::size_t objects, std::size_t subscribers) : _federation(1 + subscribers)
   {
      std::vector<Federate>& federates = _federation.federates();
      Federate& updater = federates[0];
      ObjectClassHandle const person = updater->getObjectClassHandle(L"HLAobjectRoot.Person");
      AttributeHandle const place = updater->getAttributeHandle(person, L"Place");
      updater->publishObjectClassAttributes(person, {place});
      while (_objects.size() < objects) {
         _objects.push_back(updater->registerObjectInstance(person));
      }
      for (std::size_t i = 1; i < federates.size(); ++i) {
         federates[i]->subscribeObjectClassAttributes(person, {place});
         federates[i].evokeAll();
      }
      _values[place] = VariableLengthData("position", 8);
   }

   void update()
   {
      std::vector<Federate>& federates = _federation.federates();
      federates[0]->updateAttributeValues(_objects[_next], _values, _noTag);
      _next = (_next + 1) % _objects.size();
      for (std::size_t i = 1; i < federates.size(); ++i) {
         federates[i].evokeReflection();
      }
   }

private:
   Federation _federation;
   std::vector<ObjectInstanceHandle> _objects;
   std::size_t _next = 0;
   AttributeHandleValueMap _values;
   VariableLengthData const _noTag;
};

// A federation of two regulating and constrained federates.
class Advancing
{
public:
   Advancing() : _federation(2)
   {
      for (Federate& each : _federation.federates()) {
         each->enableTimeRegulation(HLAinteger64Interval(1));
         each->enableTimeConstrained();
      }
      for (Federate& each : _federation.federates()) {
         each.evokeAll();
      }
   }

   void advance()
   {
      HLAinteger64Time const time(++_time);
      for (Federate& each : _federation.federates()) {
         each->timeAdvanceRequest(time);
      }
      for (Federate& each : _federation.federates()) {
         each.evokeGrant();
      }
   }

private:
   Federation _federation;
   Integer64 _time = 0;
};

// Updates of one object that wait in time-stamp order for a federate that does not ask for its time to
// advance.
class Waiting
{
public:
   explicit Waiting(Integer64 updates) : _federation(2), _updates(updates)
   {
      _person = _sender->getObjectClassHandle(L"HLAobjectRoot.Person");
      AttributeHandle const place = _sender->getAttributeHandle(_person, L"Place");
      _attributes.insert(place);
      _values[place] = VariableLengthData("position", 8);
      _sender->publishObjectClassAttributes(_person, _attributes);
      _object = _sender->registerObjectInstance(_person);
      _sender->changeAttributeOrderType(_object, _attributes, TIMESTAMP);
      _receiver->subscribeObjectClassAttributes(_person, _attributes);
      _sender->enableTimeRegulation(HLAinteger64Interval(1));
      _receiver->enableTimeConstrained();
      _sender.evokeAll();
      _receiver.evokeAll();
      for (Integer64 time = 1; time <= updates; ++time) {
         update(time);
      }
   }

   void resubscribe()
   {
      _receiver->unsubscribeObjectClass(_person);
      _receiver->subscribeObjectClassAttributes(_person, _attributes);
   }

   // One amid those that wait.
   void retractOne() { _sender->retract(update(_updates / 2)); }

private:
   MessageRetractionHandle update(Integer64 time)
   {
      return _sender->updateAttributeValues(_object, _values, _noTag, HLAinteger64Time(time));
   }

   Federation _federation;
   Federate& _sender = _federation.federates()[0];
   Federate& _receiver = _federation.federates()[1];
   Integer64 const _updates;
   ObjectClassHandle _person;
   ObjectInstanceHandle _object;
   AttributeHandleSet _attributes;
   AttributeHandleValueMap _values;
   VariableLengthData const _noTag;
};

// So many federations of two beside the one that is measured, all of them with an object.
class Beside : public Updating
{
public:
   explicit Beside(std::size_t others) : Updating(1, 1)
   {
      while (_others.size() < others) {
         _others.push_back(std::make_unique<Updating>(1, 1));
         _others.back()->update();
      }
   }

private:
   std::vector<std::unique_ptr<Updating>> _others;
};

// The objects of one federate, all of them known to another. Every action goes through as many as there are.
class Population
{
public:
   explicit Population(std::size_t size) : _objects(size)
   {
      ObjectClassHandle const aircraft = _owner->getObjectClassHandle(L"HLAobjectRoot.Aircraft");
      AttributeHandle const position = _owner->getAttributeHandle(aircraft, L"Position");
      _dimension = _owner->getDimensionHandle(L"Easting");
      _region = _owner->createRegion({_dimension});
      _owner->publishObjectClassAttributes(aircraft, {position});
      _reader->subscribeObjectClassAttributes(aircraft, {position});
      for (ObjectInstanceHandle& each : _objects) {
         each = _owner->registerObjectInstance(aircraft);
      }
      _owner->associateRegionsForUpdates(_objects[size / 2], {{{position}, {_region}}});
      _reader.evokeAll();
   }

   void deleteEach()
   {
      for (ObjectInstanceHandle const& each : _objects) {
         _owner->deleteObjectInstance(each, _noTag);
      }
      _reader.evokeAll();
   }
   void deleteEachLocally()
   {
      for (ObjectInstanceHandle const& each : _objects) {
         _reader->localDeleteObjectInstance(each);
      }
   }
   void resign()
   {
      _owner->resignFederationExecution(DELETE_OBJECTS);
      _owner->joinFederationExecution(L"federate", _federation.name());
   }
   void commitARegion()
   {
      for (std::size_t i = 0; i < _objects.size(); ++i) {
         _owner->setRangeBounds(_region, _dimension, RangeBounds(0, 1 + i % 2));
         _owner->commitRegionModifications({_region});
      }
   }

private:
   Federation _federation{2, L"AirTraffic.xml"};
   Federate& _owner = _federation.federates()[0];
   Federate& _reader = _federation.federates()[1];
   std::vector<ObjectInstanceHandle> _objects;
   DimensionHandle _dimension;
   RegionHandle _region;
   VariableLengthData const _noTag;
};

// Measures what an action on a population costs for each of its objects.
void measureEach(std::string const& name, void (Population::*action)(), std::size_t size)
{
   std::size_t const atOnce = 100000;
   benchmark::RegisterBenchmark(name.c_str(),
                                [=](benchmark::State& state) {
                                   while (
                                      state.KeepRunningBatch(static_cast<benchmark::IterationCount>(size))) {
                                      state.PauseTiming();
                                      auto population = std::make_unique<Population>(size);
                                      state.ResumeTiming();
                                      (*population.*action)();
                                      state.PauseTiming();
                                      population.reset();
                                      state.ResumeTiming();
                                   }
                                })
      ->Iterations(atOnce)
      ->Repetitions(7);
}

// Measures an action on something that is made for each run and gone after it.
template <class Subject, class... Arguments>
void measure(std::string const& name, void (Subject::*action)(), Arguments... arguments)
{
   Subject toCompile(arguments...);
   for (int i = 0; i < 30000; ++i) { // has the Java VM compile what is about to be measured
      (toCompile.*action)();
   }
   benchmark::RegisterBenchmark(name.c_str(), [action, arguments...](benchmark::State& state) {
      Subject subject(arguments...);
      for (auto _ : state) {
         (subject.*action)();
      }
   });
}

// The same on something that takes long to make: all runs share it.
template <class Subject, class Size>
void measureShared(std::string const& name, void (Subject::*action)(), Size size)
{
   auto const subject = std::make_shared<std::unique_ptr<Subject>>();
   benchmark::RegisterBenchmark(name.c_str(), [subject, action, size](benchmark::State& state) {
      if (!*subject) {
         *subject = std::make_unique<Subject>(size);
         for (int i = 0; i < 30000; ++i) {
            (**subject.*action)();
         }
      }
      for (auto _ : state) {
         (**subject.*action)();
      }
   });
}

std::vector<Claim> addBenchmarks()
{
   std::vector<Claim> claims;
   std::string const bare = "bare crossing";
   measure(bare, &RoundTrip::run);

   auto const reflectedTo = [](std::size_t count) {
      return "update reflected to " + std::to_string(count) + (count == 1 ? " federate" : " federates");
   };
   std::size_t const one = 1;
   for (std::size_t const count : {1u, 10u, 100u}) {
      measure(reflectedTo(count), &Updating::update, one, count);
   }
   claims.push_back({reflectedTo(1), bare, 10});
   claims.push_back({reflectedTo(10), reflectedTo(1), 11});
   claims.push_back({reflectedTo(100), reflectedTo(10), 13});

   std::string const advance = "time granted to each of 2 federates";
   measure(advance, &Advancing::advance);
   claims.push_back({advance, bare, 20});

   auto const ofObjects = [](std::size_t count) {
      return "update of one of " + std::to_string(count) + " objects";
   };
   for (std::size_t const count : {10u, 100u, 1000u, 10000u}) {
      measure(ofObjects(count), &Updating::update, count, one);
   }
   claims.push_back({ofObjects(100), ofObjects(10), 1.2});
   claims.push_back({ofObjects(1000), ofObjects(100), 1.2});
   // So many, each updated in its turn, outgrow the processor's second-level cache: what grows is its doing.
   claims.push_back({ofObjects(10000), ofObjects(1000), 0});

   auto const beside = [](std::size_t count) {
      return "update beside " + std::to_string(count) + " federations";
   };
   for (std::size_t const count : {2u, 20u}) {
      measure<Beside>(beside(count), &Beside::update, count);
   }
   claims.push_back({beside(20), beside(2), 1.2});

   struct
   {
      std::string name;
      void (Waiting::*action)();
   } const whileWaiting[] = {{"unsubscribe and subscribe again", &Waiting::resubscribe},
                             {"update sent and retracted", &Waiting::retractOne}};
   for (auto const& row : whileWaiting) {
      std::string fewer;
      for (Integer64 const count : {1000, 10000, 100000}) {
         std::string const name = row.name + " as " + std::to_string(count) + " wait";
         measureShared(name, row.action, count);
         if (!fewer.empty()) {
            claims.push_back({name, fewer, 1.3});
         }
         fewer = name;
      }
   }
   struct
   {
      std::string name;
      void (Population::*action)();
   } const rows[] = {{"deletion of each", &Population::deleteEach},
                     {"local deletion of each", &Population::deleteEachLocally},
                     {"resignation, for each", &Population::resign},
                     {"commit of the region of one", &Population::commitARegion}};
   for (auto const& row : rows) {
      for (int i = 0; i < 30; ++i) {
         (Population(1000).*row.action)();
      }
      auto const ofAll = [&](std::size_t count) {
         return row.name + " of " + std::to_string(count) + " objects";
      };
      for (std::size_t const count : {1000u, 10000u, 100000u}) {
         measureEach(ofAll(count), row.action, count);
      }
      claims.push_back({ofAll(10000), ofAll(1000), 1.3});
      claims.push_back({ofAll(100000), ofAll(10000), 1.3});
   }
   return claims;
}

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
   setenv("CLASSPATH", CORE_JAR ":" ROUND_TRIP_JAR, 1);
   rti1516e::RTIambassadorFactory().createRTIambassador(); // starts the Java VM
   return bench::run(argc, argv, bench::addBenchmarks());
}
