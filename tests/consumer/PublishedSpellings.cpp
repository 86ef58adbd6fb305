// What federates, and time implementations of their own, write against the published interface.
#include <RTI/Enums.h>
#include <RTI/Exception.h>
#include <RTI/Handle.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>
#include <RTI/RTI1516.h>
#include <RTI/RTIambassador.h>
#include <RTI/RTIambassadorFactory.h>
#include <RTI/RangeBounds.h>
#include <RTI/SpecificConfig.h>
#include <RTI/Typedefs.h>
#include <RTI/VariableLengthData.h>
#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

using namespace rti1516e;

// The ambassador's services in the spellings in which federates call them.
bool queries(RTIambassador& ambassador);
bool queries(RTIambassador& ambassador)
{
   HLAfloat64Time time;
   HLAfloat64Interval lookahead(1.0);
   bool const known = ambassador.queryGALT(time) || ambassador.queryLITS(time);
   ambassador.queryLogicalTime(time);
   ambassador.queryLookahead(lookahead);
   TransportationType const type = ambassador.getTransportationType(L"HLAreliable");
   std::wstring const name = ambassador.getTransportationName(type);
   ambassador.enableTimeRegulation(lookahead);
   time += lookahead;
   ambassador.timeAdvanceRequest(time);
   return known && !name.empty();
}

FederateHandle join(RTIambassador& ambassador);
FederateHandle join(RTIambassador& ambassador)
{
   std::vector<std::wstring> modules(1, L"fom.xml");
   try {
      ambassador.createFederationExecution(L"execution", L"fom.xml");
      ambassador.createFederationExecution(L"execution", modules, L"HLAinteger64Time");
      ambassador.createFederationExecutionWithMIM(L"execution", modules, L"mim.xml");
   } catch (FederationExecutionAlreadyExists const&) {
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << exception << std::endl;
   }
   ambassador.joinFederationExecution(L"type", L"execution");
   ambassador.joinFederationExecution(L"name", L"type", L"execution", modules);
   return ambassador.joinFederationExecution(L"name", L"type", L"execution");
}

void exchange(RTIambassador& ambassador, ObjectInstanceHandle object);
void exchange(RTIambassador& ambassador, ObjectInstanceHandle object)
{
   AttributeHandleSet attributes;
   attributes.insert(AttributeHandle());
   AttributeHandleValueMap values;
   values[AttributeHandle()] = VariableLengthData("value", 5);
   ambassador.updateAttributeValues(object, values, VariableLengthData());
   MessageRetractionHandle const retraction =
      ambassador.updateAttributeValues(object, values, VariableLengthData(), HLAinteger64Time(3));
   std::wcout << object << retraction << object.toString() << std::endl;
   AttributeHandleSetRegionHandleSetPairVector pairs;
   pairs.push_back(AttributeHandleSetRegionHandleSetPair(attributes, RegionHandleSet()));
   ambassador.associateRegionsForUpdates(object, pairs);
   std::map<ObjectInstanceHandle, std::wstring> names;
   names[object] = L"name";
   std::unordered_map<ObjectInstanceHandle, std::wstring> quickNames(names.begin(), names.end());
   std::unordered_set<MessageRetractionHandle> retractable;
   retractable.insert(retraction);
}

// The one callback that takes a set by value.
struct ByValueFederate : NullFederateAmbassador
{
   void confirmAttributeTransportationTypeChange(ObjectInstanceHandle, AttributeHandleSet,
                                                 TransportationType) override
   {}
};

// Times as numbers and as times.
bool times(LogicalTime const& other);
bool times(LogicalTime const& other)
{
   HLAinteger64Time const integer = 5;
   HLAfloat64Time floating(1.5);
   HLAinteger64Time copy(integer);
   HLAinteger64Time const same = other;
   Integer64 const number = integer;
   floating = HLAfloat64Time(2.5);
   floating = other;
   HLAinteger64Interval difference;
   difference.setToDifference(integer, copy);
   copy.setTime(number + difference.getInterval());
   HLAinteger64TimeFactory factory;
   std::wcout << integer << difference << HLAinteger64TimeName << HLAfloat64TimeName << factory.getName();
   return integer == copy && integer == other && other == integer && integer == 5 && 5 == integer &&
          integer != copy && copy < integer && floating < 3.0 && difference == difference && same == integer;
}

namespace {

// A time implementation of a federate's own.
class StepInterval : public LogicalTimeInterval
{
public:
   StepInterval() : _steps(0) {}
   virtual ~StepInterval() {}
   virtual void setZero() { _steps = 0; }
   virtual bool isZero() const { return _steps == 0; }
   virtual void setEpsilon() { _steps = 1; }
   virtual bool isEpsilon() const { return _steps == 1; }
   virtual LogicalTimeInterval& operator=(LogicalTimeInterval const& other) { return set(steps(other)); }
   virtual LogicalTimeInterval& operator+=(LogicalTimeInterval const& o) { return set(_steps + steps(o)); }
   virtual LogicalTimeInterval& operator-=(LogicalTimeInterval const& o) { return set(_steps - steps(o)); }
   virtual bool operator>(LogicalTimeInterval const& other) const { return _steps > steps(other); }
   virtual bool operator<(LogicalTimeInterval const& other) const { return _steps < steps(other); }
   virtual bool operator==(LogicalTimeInterval const& other) const { return _steps == steps(other); }
   virtual bool operator>=(LogicalTimeInterval const& other) const { return _steps >= steps(other); }
   virtual bool operator<=(LogicalTimeInterval const& other) const { return _steps <= steps(other); }
   virtual void setToDifference(LogicalTime const&, LogicalTime const&) {}
   virtual size_t encode(void*, size_t) const { throw CouldNotEncode(L"too small"); }
   virtual VariableLengthData encode() const { return VariableLengthData(&_steps, sizeof _steps); }
   virtual size_t encodedLength() const { return sizeof _steps; }
   virtual void decode(void*, size_t) { throw CouldNotDecode(L"too small"); }
   virtual void decode(VariableLengthData const&) {}
   virtual std::wstring toString() const { return std::wstring(); }
   virtual std::wstring implementationName() const { return L"Steps"; }

private:
   static int steps(LogicalTimeInterval const& other)
   {
      return dynamic_cast<StepInterval const&>(other)._steps;
   }
   StepInterval& set(int steps)
   {
      _steps = steps;
      return *this;
   }

   int _steps;
};

} // namespace

bool enable(RTIambassadorFactory& factory, LogicalTimeInterval const& lookahead);
bool enable(RTIambassadorFactory& factory, LogicalTimeInterval const& lookahead)
{
   std::unique_ptr<RTIambassador> const ambassador(factory.createRTIambassador());
   auto const timeFactory = ambassador->getTimeFactory();
   StepInterval const steps(dynamic_cast<StepInterval const&>(lookahead)); // by the compiler's own copy
   ambassador->enableTimeRegulation(steps);
   return timeFactory.get() != nullptr;
}
