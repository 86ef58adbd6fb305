// The ground of the scenarios on the road of fom/Road.xml.
#ifndef RTI1516E_TESTS_SYSTEM_ROADTEST_H
#define RTI1516E_TESTS_SYSTEM_ROADTEST_H

#include "FederationTest.h"

#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeInterval.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace system_tests {

// A point or a distance on the time axis of the federation, whichever time implementation that has.
template <class Base>
class OfEitherTime
{
public:
   explicit OfEitherTime(std::unique_ptr<Base> value) : _value(std::move(value)) {}
   operator Base const&() const { return *_value; }

private:
   std::unique_ptr<Base> _value;
};
using Time = OfEitherTime<LogicalTime>;
using Interval = OfEitherTime<LogicalTimeInterval>;

// Two federates on the road. The scenarios in the evoked model have integer times, the others floating-point
// times, so that both implementations are met.
class RoadTest : public FederationTest
{
protected:
   RoadTest();

   ObjectInstanceHandle registered(Federate& federate, ObjectClassHandle objectClass,
                                   std::string const& alias);

   // Has alpha register the object, a car of which beta is told. Both publish what it has as a vehicle.
   void shareACar();

   // An update of that car, and what beta makes of it.
   MessageRetractionHandle update(std::string const& value, int when);
   static std::string reflected(std::string const& value, int when, std::string const& receivedOrder = "TSO");

   // Of a federate at time 0.
   void regulate(Federate& federate, int lookahead);
   static void constrain(Federate& federate);

   // What the federates call an object instance that one of them registered.
   void call(Federate& federate, ObjectInstanceHandle instance, std::string const& alias);

   // A region with a range in each of its dimensions, committed.
   using Ranges = std::initializer_list<std::pair<DimensionHandle, RangeBounds>>;
   RegionHandle region(Federate& federate, std::string const& alias, Ranges ranges);

   static AttributeHandleValueMap values(
      std::initializer_list<std::pair<AttributeHandle, std::string>> entries);
   static ParameterHandleValueMap values(
      std::initializer_list<std::pair<ParameterHandle, std::string>> entries);

   Time time(int units) const;
   Interval interval(int units) const;

   Federate& alpha;
   Federate& beta;

   ObjectClassHandle const vehicle, car, taxi, truck;
   AttributeHandle const position, speed, fuel, passengers, fare, load, privilege;
   InteractionClassHandle const message, urgent, accident;
   ParameterHandle const words, level, damage;
   DimensionHandle const lane, distance;

   ObjectInstanceHandle object;

   AttributeHandleSet const ofVehicle{position, speed, fuel};

private:
   Federate& firstOnTheRoad();

   template <class Handle>
   Handle named(Handle const& handle, std::string const& name)
   {
      names().add(handle, name);
      return handle;
   }
};

} // namespace system_tests

#endif
