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
using Time = OfEitherTime<rti1516e::LogicalTime>;
using Interval = OfEitherTime<rti1516e::LogicalTimeInterval>;

// Two federates on the road. The scenarios in the evoked model have integer times, the others floating-point
// times, so that both implementations are met.
class RoadTest : public FederationTest
{
protected:
   RoadTest();

   rti1516e::ObjectInstanceHandle registered(Federate& federate, rti1516e::ObjectClassHandle objectClass,
                                             std::string const& alias);

   // Has alpha register the object, a car of which beta is told. Both publish what it has as a vehicle.
   void shareACar();

   // An update of that car, and what beta makes of it.
   rti1516e::MessageRetractionHandle update(std::string const& value, int when);
   static std::string reflected(std::string const& value, int when, std::string const& receivedOrder = "TSO");

   // Of a federate at time 0.
   void regulate(Federate& federate, int lookahead);
   static void constrain(Federate& federate);

   // What the federates call an object instance that one of them registered.
   void call(Federate& federate, rti1516e::ObjectInstanceHandle instance, std::string const& alias);

   // A region with a range in each of its dimensions, committed.
   using Ranges = std::initializer_list<std::pair<rti1516e::DimensionHandle, rti1516e::RangeBounds>>;
   rti1516e::RegionHandle region(Federate& federate, std::string const& alias, Ranges ranges);

   static rti1516e::AttributeHandleValueMap values(
      std::initializer_list<std::pair<rti1516e::AttributeHandle, std::string>> entries);
   static rti1516e::ParameterHandleValueMap values(
      std::initializer_list<std::pair<rti1516e::ParameterHandle, std::string>> entries);

   Time time(int units) const;
   Interval interval(int units) const;

   Federate& alpha;
   Federate& beta;

   rti1516e::ObjectClassHandle const vehicle, car, taxi, truck;
   rti1516e::AttributeHandle const position, speed, fuel, passengers, fare, load, privilege;
   rti1516e::InteractionClassHandle const message, urgent, accident;
   rti1516e::ParameterHandle const words, level, damage;
   rti1516e::DimensionHandle const lane, distance;

   rti1516e::ObjectInstanceHandle object;

   rti1516e::AttributeHandleSet const ofVehicle{position, speed, fuel};

private:
   Federate& firstOnTheRoad();
   rti1516e::ObjectClassHandle objectClass(std::string const& name);
   rti1516e::InteractionClassHandle interactionClass(std::string const& name);
   rti1516e::AttributeHandle attribute(rti1516e::ObjectClassHandle objectClass, std::string const& name);
   rti1516e::ParameterHandle parameter(rti1516e::InteractionClassHandle interactionClass,
                                       std::string const& name);
};

} // namespace system_tests

#endif
