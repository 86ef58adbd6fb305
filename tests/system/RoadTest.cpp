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
   ObjectInstanceHandle const object = federate->registerObjectInstance(objectClass);
   call(federate, object, alias);
   return object;
}

void RoadTest::call(Federate& federate, ObjectInstanceHandle object, std::string const& alias)
{
   names().add(object, alias);
   names().add(federate->getObjectInstanceName(object), alias);
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
