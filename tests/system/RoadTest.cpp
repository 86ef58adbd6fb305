#include "RoadTest.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

namespace system_tests {

RoadTest::RoadTest()
   : alpha(firstOnTheRoad()),
     beta(joined("beta")),
     vehicle(named(alpha->getObjectClassHandle(L"Vehicle"), "Vehicle")),
     car(named(alpha->getObjectClassHandle(L"Vehicle.Car"), "Car")),
     taxi(named(alpha->getObjectClassHandle(L"Vehicle.Car.Taxi"), "Taxi")),
     truck(named(alpha->getObjectClassHandle(L"Vehicle.Truck"), "Truck")),
     position(named(alpha->getAttributeHandle(vehicle, L"Position"), "Position")),
     speed(named(alpha->getAttributeHandle(vehicle, L"Speed"), "Speed")),
     fuel(named(alpha->getAttributeHandle(vehicle, L"Fuel"), "Fuel")),
     passengers(named(alpha->getAttributeHandle(car, L"Passengers"), "Passengers")),
     fare(named(alpha->getAttributeHandle(taxi, L"Fare"), "Fare")),
     load(named(alpha->getAttributeHandle(truck, L"Load"), "Load")),
     privilege(named(alpha->getAttributeHandle(vehicle, L"HLAprivilegeToDeleteObject"),
                     "HLAprivilegeToDeleteObject")),
     message(named(alpha->getInteractionClassHandle(L"Message"), "Message")),
     urgent(named(alpha->getInteractionClassHandle(L"Message.Urgent"), "Urgent")),
     accident(named(alpha->getInteractionClassHandle(L"Accident"), "Accident")),
     words(named(alpha->getParameterHandle(message, L"Words"), "Words")),
     level(named(alpha->getParameterHandle(urgent, L"Level"), "Level")),
     damage(named(alpha->getParameterHandle(accident, L"Damage"), "Damage")),
     lane(alpha->getDimensionHandle(L"Lane")),
     distance(alpha->getDimensionHandle(L"Distance"))
{}

Federate& RoadTest::firstOnTheRoad()
{
   create({fom("Road.xml")}, GetParam() == HLA_EVOKED ? "HLAinteger64Time" : "HLAfloat64Time");
   return joined("alpha");
}

ObjectInstanceHandle RoadTest::registered(Federate& federate, ObjectClassHandle objectClass,
                                          std::string const& alias)
{
   ObjectInstanceHandle const instance = federate->registerObjectInstance(objectClass);
   call(federate, instance, alias);
   return instance;
}

void RoadTest::shareACar()
{
   for (Federate* const federate : {&alpha, &beta}) {
      (*federate)->publishObjectClassAttributes(car, ofVehicle);
   }
   beta->subscribeObjectClassAttributes(car, ofVehicle);
   object = registered(alpha, car, "car");
   expect(beta, {"discoverObjectInstance(car, Car, car, alpha)"});
}

MessageRetractionHandle RoadTest::update(std::string const& value, int when)
{
   return alpha->updateAttributeValues(object, values({{position, value}}), bytes(""), time(when));
}

std::string RoadTest::reflected(std::string const& value, int when, std::string const& receivedOrder)
{
   return "reflectAttributeValues(car, {Position=" + value + "}, , TSO, reliable, " + std::to_string(when) +
          ", " + receivedOrder + ", retractable, by alpha)";
}

void RoadTest::regulate(Federate& federate, int lookahead)
{
   federate->enableTimeRegulation(interval(lookahead));
   expect(federate, {"timeRegulationEnabled(0)"});
}

void RoadTest::constrain(Federate& federate)
{
   federate->enableTimeConstrained();
   expect(federate, {"timeConstrainedEnabled(0)"});
}

void RoadTest::call(Federate& federate, ObjectInstanceHandle instance, std::string const& alias)
{
   names().add(instance, alias);
   names().add(federate->getObjectInstanceName(instance), alias);
}

RegionHandle RoadTest::region(Federate& federate, std::string const& alias, Ranges ranges)
{
   DimensionHandleSet dimensions;
   for (auto const& range : ranges) {
      dimensions.insert(range.first);
   }
   RegionHandle const region = federate->createRegion(dimensions);
   for (auto const& range : ranges) {
      federate->setRangeBounds(region, range.first, range.second);
   }
   federate->commitRegionModifications({region});
   names().add(region, alias);
   return region;
}

template <class Map, class Entries>
static Map mapOf(Entries const& entries)
{
   Map map;
   for (auto const& entry : entries) {
      map[entry.first] = bytes(entry.second);
   }
   return map;
}

AttributeHandleValueMap RoadTest::values(
   std::initializer_list<std::pair<AttributeHandle, std::string>> entries)
{
   return mapOf<AttributeHandleValueMap>(entries);
}

ParameterHandleValueMap RoadTest::values(
   std::initializer_list<std::pair<ParameterHandle, std::string>> entries)
{
   return mapOf<ParameterHandleValueMap>(entries);
}

Time RoadTest::time(int units) const
{
   if (GetParam() == HLA_EVOKED) {
      return Time(std::make_unique<HLAinteger64Time>(units));
   }
   return Time(std::make_unique<HLAfloat64Time>(units));
}

Interval RoadTest::interval(int units) const
{
   if (GetParam() == HLA_EVOKED) {
      return Interval(std::make_unique<HLAinteger64Interval>(units));
   }
   return Interval(std::make_unique<HLAfloat64Interval>(units));
}

} // namespace system_tests
