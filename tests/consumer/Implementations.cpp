// What federates implement, as those of either age write it: with the exception specifications of the older
// dialects, or with override.
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

// Every callback.
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

// A time implementation of a federate's own.
class StepInterval : public LogicalTimeInterval
{
public:
   virtual void setZero() { _steps = 0; }
   virtual bool isZero() const { return _steps == 0; }
   virtual void setEpsilon() { _steps = 1; }
   virtual bool isEpsilon() const { return _steps == 1; }
   virtual LogicalTimeInterval& operator=(LogicalTimeInterval const&) { return *this; }
   virtual LogicalTimeInterval& operator+=(LogicalTimeInterval const&) { return *this; }
   virtual LogicalTimeInterval& operator-=(LogicalTimeInterval const&) { return *this; }
   virtual bool operator>(LogicalTimeInterval const&) const { return false; }
   virtual bool operator<(LogicalTimeInterval const&) const { return false; }
   virtual bool operator==(LogicalTimeInterval const&) const { return true; }
   virtual bool operator>=(LogicalTimeInterval const&) const { return true; }
   virtual bool operator<=(LogicalTimeInterval const&) const { return true; }
   virtual void setToDifference(LogicalTime const&, LogicalTime const&) {}
   virtual size_t encode(void*, size_t) const { throw CouldNotEncode(L"too small"); }
   virtual VariableLengthData encode() const { return VariableLengthData(&_steps, sizeof _steps); }
   virtual size_t encodedLength() const { return sizeof _steps; }
   virtual void decode(void*, size_t) { throw CouldNotDecode(L"too small"); }
   virtual void decode(VariableLengthData const&) {}
   virtual std::wstring toString() const { return std::wstring(); }
   virtual std::wstring implementationName() const { return L"Steps"; }

private:
   int _steps = 0;
};

} // namespace

void use(RTIambassador& ambassador, LogicalTimeInterval const& lookahead);
void use(RTIambassador& ambassador, LogicalTimeInterval const& lookahead)
{
   static Everything<FederateAmbassador> everything;
   static Everything<NullFederateAmbassador> everythingAnew;
   ambassador.connect(everything, HLA_EVOKED);
   ambassador.connect(everythingAnew, HLA_IMMEDIATE, L"settings");
   StepInterval const steps(dynamic_cast<StepInterval const&>(lookahead)); // by the compiler's own copy
   ambassador.enableTimeRegulation(steps);
}
