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
#include <unordered_map>
#include <unordered_set>
#include <vector>

using namespace rti1516e;

namespace {

class Federate : public NullFederateAmbassador
{
public:
   Federate(std::wstring const& name, std::wstring const& fomModule)
      : heardAt(-1), _regulating(false), _ambassador(RTIambassadorFactory().createRTIambassador().release())
   {
      _ambassador->connect(*this, HLA_EVOKED);
      std::vector<std::wstring> const modules(1, fomModule);
      try {
         _ambassador->createFederationExecution(L"Consumers", modules, HLAinteger64TimeName);
      } catch (FederationExecutionAlreadyExists const& exception) {
         std::wcout << exception << std::endl;
      }
      FederateHandle const self =
         _ambassador->joinFederationExecution(name, L"consumer", L"Consumers", modules);
      std::wcout << self << L" is " << _ambassador->getFederateName(self) << std::endl;
      _greeting = _ambassador->getInteractionClassHandle(L"HLAinteractionRoot.Greeting");
      _names[_ambassador->getParameterHandle(_greeting, L"Words")] = L"Words";
   }

   void send(std::wstring const& words)
   {
      _ambassador->publishInteractionClass(_greeting);
      HLAinteger64Interval lookahead(5);
      _ambassador->enableTimeRegulation(lookahead);
      while (!_regulating) {
         _ambassador->evokeMultipleCallbacks(0.1, 1.0);
      }
      _ambassador->queryLookahead(lookahead);
      HLAinteger64Time time = 2;
      time += lookahead;
      ParameterHandleValueMap values;
      values[_names.begin()->first] = HLAunicodeString(words).encode();
      std::unordered_set<MessageRetractionHandle> retractable;
      retractable.insert(_ambassador->sendInteraction(_greeting, values, VariableLengthData("tag", 3), time));
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

   std::wstring heard;
   HLAinteger64Time heardAt;

private:
   void timeRegulationEnabled(LogicalTime const&) override { _regulating = true; }

   // The one callback that takes a set by value.
   void confirmAttributeTransportationTypeChange(ObjectInstanceHandle, AttributeHandleSet,
                                                 TransportationType) override
   {}

   void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const& values,
                           VariableLengthData const&, OrderType, TransportationType, LogicalTime const& time,
                           OrderType, SupplementalReceiveInfo) override
   {
      HLAunicodeString words;
      words.decode(values.begin()->second);
      heard = words.get();
      heardAt = time;
   }

   bool _regulating;
   std::unique_ptr<RTIambassador> _ambassador;
   InteractionClassHandle _greeting;
   std::unordered_map<ParameterHandle, std::wstring> _names;
};

} // namespace

int main(int argc, char* argv[])
{
   if (argc != 2) {
      std::wcerr << L"usage: federate FOM-MODULE" << std::endl;
      return 2;
   }
   try {
      std::string const path(argv[1]);
      std::wstring const fomModule(path.begin(), path.end());
      Federate sender(L"sender", fomModule);
      Federate receiver(L"receiver", fomModule);
      receiver.listen();
      sender.send(L"Good morning");
      receiver.await();
      std::wcout << receiver.heard << L" at " << receiver.heardAt << std::endl;
      sender.leave();
      receiver.leave();
      sender.clear();
      return receiver.heard == L"Good morning" && receiver.heardAt == 7 && 7 == receiver.heardAt ? 0 : 1;
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << std::endl;
      return 1;
   }
}
