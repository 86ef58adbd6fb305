#include "RoadTest.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

namespace system_tests {

using namespace rti1516e;

RoadTest::RoadTest()
   : alpha(firstOnTheRoad()),
     beta(joined("beta")),
     vehicle(objectClass("HLAobjectRoot.Vehicle")),
     car(objectClass("HLAobjectRoot.Vehicle.Car")),
     taxi(objectClass("HLAobjectRoot.Vehicle.Car.Taxi")),
     truck(objectClass("HLAobjectRoot.Vehicle.Truck")),
     position(attribute(vehicle, "Position")),
     speed(attribute(vehicle, "Speed")),
     fuel(attribute(vehicle, "Fuel")),
     passengers(attribute(car, "Passengers")),
     fare(attribute(taxi, "Fare")),
     load(attribute(truck, "Load")),
     privilege(attribute(vehicle, "HLAprivilegeToDeleteObject")),
     message(interactionClass("HLAinteractionRoot.Message")),
     urgent(interactionClass("HLAinteractionRoot.Message.Urgent")),
     accident(interactionClass("HLAinteractionRoot.Accident")),
     words(parameter(message, "Words")),
     level(parameter(urgent, "Level")),
     damage(parameter(accident, "Damage")),
     lane(alpha->getDimensionHandle(L"Lane")),
     distance(alpha->getDimensionHandle(L"Distance"))
{}

Federate& RoadTest::firstOnTheRoad()
{
   create({fom("Road.xml")}, GetParam() == HLA_EVOKED ? "HLAinteger64Time" : "HLAfloat64Time");
   return joined("alpha");
}

static std::string lastPart(std::string const& name) { return name.substr(name.rfind('.') + 1); }

ObjectClassHandle RoadTest::objectClass(std::string const& name)
{
   ObjectClassHandle const handle = alpha->getObjectClassHandle(wide(name));
   names().add(handle, lastPart(name));
   return handle;
}

InteractionClassHandle RoadTest::interactionClass(std::string const& name)
{
   InteractionClassHandle const handle = alpha->getInteractionClassHandle(wide(name));
   names().add(handle, lastPart(name));
   return handle;
}

AttributeHandle RoadTest::attribute(ObjectClassHandle objectClass, std::string const& name)
{
   AttributeHandle const handle = alpha->getAttributeHandle(objectClass, wide(name));
   names().add(handle, name);
   return handle;
}

ParameterHandle RoadTest::parameter(InteractionClassHandle interactionClass, std::string const& name)
{
   ParameterHandle const handle = alpha->getParameterHandle(interactionClass, wide(name));
   names().add(handle, name);
   return handle;
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
