// A federate that has every callback, as federates of either age write them: with the exception
// specifications of the older dialects, or with override. Neither is abstract, whatever it derives from.
#include <RTI/Exception.h>
#include <RTI/FederateAmbassador.h>
#include <RTI/NullFederateAmbassador.h>

#include <type_traits>

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

template struct Everything<FederateAmbassador>;
template struct Everything<NullFederateAmbassador>;
static_assert(!std::is_abstract<Everything<FederateAmbassador>>::value, "a callback is missing");
