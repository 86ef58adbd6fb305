// A small federate as its author writes it, against the installed library alone: two ambassadors meet in a
// federation, and a greeting goes from the one to the other at a logical time.
//
// Usage: federate FOM-MODULE
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <iostream>
#include <memory>
#include <string>

using namespace rti1516e;

namespace {

class Federate : public NullFederateAmbassador
{
public:
   explicit Federate(std::wstring const& name)
      : heardAt(-1), regulating(false), _ambassador(RTIambassadorFactory().createRTIambassador().release())
   {
      _ambassador->connect(*this, HLA_EVOKED);
      try {
         _ambassador->createFederationExecution(L"Consumers", fomModule, HLAinteger64TimeName);
      } catch (FederationExecutionAlreadyExists const&) {
      }
      _ambassador->joinFederationExecution(name, L"consumer", L"Consumers");
      _greeting = _ambassador->getInteractionClassHandle(L"HLAinteractionRoot.Greeting");
      _words = _ambassador->getParameterHandle(_greeting, L"Words");
   }

   void send(std::wstring const& words)
   {
      _ambassador->publishInteractionClass(_greeting);
      _ambassador->enableTimeRegulation(HLAinteger64Interval(5));
      while (!regulating) {
         _ambassador->evokeMultipleCallbacks(0.1, 1.0);
      }
      ParameterHandleValueMap values;
      values[_words] = HLAunicodeString(words).encode();
      _ambassador->sendInteraction(_greeting, values, VariableLengthData(), HLAinteger64Time(7));
   }

   void listen() { _ambassador->subscribeInteractionClass(_greeting); }

   void await()
   {
      while (heard.empty()) {
         _ambassador->evokeMultipleCallbacks(0.1, 1.0);
      }
   }

   void leave() { _ambassador->resignFederationExecution(NO_ACTION); }
   void clear() { _ambassador->destroyFederationExecution(L"Consumers"); }

   static std::wstring fomModule;
   std::wstring heard;
   Integer64 heardAt;
   bool regulating;

private:
   virtual void timeRegulationEnabled(LogicalTime const&) { regulating = true; }

   virtual void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const& values,
                                   VariableLengthData const&, OrderType, TransportationType,
                                   LogicalTime const& time, OrderType, SupplementalReceiveInfo)
   {
      HLAunicodeString words;
      words.decode(values.begin()->second);
      heard = words.get();
      heardAt = HLAinteger64Time(time).getTime();
   }

   std::unique_ptr<RTIambassador> _ambassador;
   InteractionClassHandle _greeting;
   ParameterHandle _words;
};

std::wstring Federate::fomModule;

} // namespace

int main(int argc, char* argv[])
{
   if (argc != 2) {
      std::wcerr << L"usage: federate FOM-MODULE" << std::endl;
      return 2;
   }
   std::string const fomModule(argv[1]);
   Federate::fomModule.assign(fomModule.begin(), fomModule.end());
   try {
      Federate sender(L"sender");
      Federate receiver(L"receiver");
      receiver.listen();
      sender.send(L"Good morning");
      receiver.await();
      std::wcout << receiver.heard << L" at " << receiver.heardAt << std::endl;
      sender.leave();
      receiver.leave();
      sender.clear();
      return receiver.heard == L"Good morning" && receiver.heardAt == 7 ? 0 : 1;
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << std::endl;
      return 1;
   }
}
