// What is only compiled: a federate that has every callback, as federates of either age write them: with the
// exception specifications of the older dialects, or with override. Neither is abstract, whatever it derives
// from.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <type_traits>
#include <unordered_set>

#ifdef EXCEPTION_SPECIFICATIONS
#define SPECIFIED throw(rti1516e::FederateInternalError)
#define NOTHROW throw()
#else
#define SPECIFIED override
#define NOTHROW override
#endif

using namespace rti1516e;

template <class... Arguments>
void ignore(Arguments const&...)
{}

template <class Base>
struct Everything : Base
{
   Everything() {}
   virtual ~Everything() NOTHROW {}

#define CALLBACK(name, parameters, arguments) \
   virtual void name parameters SPECIFIED { ignore arguments; }
#include "tests/support/Callbacks.def"
};

// What else such authors write.
inline void send(RTIambassador& ambassador, ParameterHandle parameter)
{
   HLAinteger64Time time = 2;
   time += HLAinteger64Interval(5);
   std::unordered_set<MessageRetractionHandle> retractable;
   ParameterHandleValueMap values;
   values[parameter] = HLAunicodeString(L"Good morning").encode();
   if (time == 7 && 7 == time) {
      retractable.insert(
         ambassador.sendInteraction(InteractionClassHandle(), values, VariableLengthData(), time));
   }
}

template struct Everything<FederateAmbassador>;
template struct Everything<NullFederateAmbassador>;
static_assert(!std::is_abstract<Everything<FederateAmbassador>>::value, "a callback is missing");
