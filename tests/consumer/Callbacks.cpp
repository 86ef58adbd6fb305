// A federate that has every callback, as federates of either age write them: with the exception
// specifications of the older dialects, or with override.
#include <RTI/FederateAmbassador.h>
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <set>
#include <string>

using namespace rti1516e;

#ifdef EXCEPTION_SPECIFICATIONS
#define SPECIFIED throw(rti1516e::FederateInternalError)
#define NOTHROW throw()
#else
#define SPECIFIED override
#define NOTHROW override
#endif

namespace {

template <class... Arguments>
void ignore(Arguments const&...)
{}

class Everything : public FederateAmbassador
{
public:
   Everything() {}
   virtual ~Everything() NOTHROW {}

#define CALLBACK(name, parameters, arguments) \
   virtual void name parameters SPECIFIED { ignore arguments; }
#include "../support/Callbacks.def"
};

class Little : public NullFederateAmbassador
{
public:
   Little() : _reached(false) {}
   virtual ~Little() NOTHROW {}

   virtual void timeAdvanceGrant(LogicalTime const& theTime) SPECIFIED { _reached = !theTime.isInitial(); }
   virtual void connectionLost(std::wstring const& faultDescription) SPECIFIED
   {
      throw FederateInternalError(faultDescription);
   }

   bool _reached;
};

} // namespace

// Neither is abstract.
void connectBoth(RTIambassador& ambassador, RTIambassador& another);
void connectBoth(RTIambassador& ambassador, RTIambassador& another)
{
   static Everything everything;
   static Little little;
   ambassador.connect(everything, HLA_EVOKED);
   another.connect(little, HLA_IMMEDIATE, L"settings");
}
