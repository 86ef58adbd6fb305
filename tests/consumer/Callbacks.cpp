// A federate that has every callback, as federates of either age write them: with the exception
// specifications of the older dialects, or with override.
#include <RTI/FederateAmbassador.h>
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#ifdef EXCEPTION_SPECIFICATIONS
#define SPECIFIED throw(rti1516e::FederateInternalError)
#define NOTHROW throw()
#else
#define SPECIFIED override
#define NOTHROW override
#endif

using namespace rti1516e;

namespace {

template <class... Arguments>
void ignore(Arguments const&...)
{}

template <class Base>
class Everything : public Base
{
public:
   Everything() {}
   virtual ~Everything() NOTHROW {}

#define CALLBACK(name, parameters, arguments) \
   virtual void name parameters SPECIFIED { ignore arguments; }
#include "../support/Callbacks.def"
};

} // namespace

// Neither is abstract.
void connectBoth(RTIambassador& ambassador, RTIambassador& another);
void connectBoth(RTIambassador& ambassador, RTIambassador& another)
{
   static Everything<FederateAmbassador> everything;
   static Everything<NullFederateAmbassador> everythingAnew;
   ambassador.connect(everything, HLA_EVOKED);
   another.connect(everythingAnew, HLA_IMMEDIATE, L"settings");
}
