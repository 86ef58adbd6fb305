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

struct Federate : NullFederateAmbassador
{
   Federate(std::wstring const& name, std::wstring const& fomModule)
      : heardAt(-1), regulating(false), rti(RTIambassadorFactory().createRTIambassador().release())
   {
      rti->connect(*this, HLA_EVOKED);
      std::vector<std::wstring> const modules(1, fomModule);
      try {
         rti->createFederationExecution(L"Consumers", modules, HLAinteger64TimeName);
      } catch (FederationExecutionAlreadyExists const& exception) {
         std::wcout << exception << std::endl;
      }
      FederateHandle const self = rti->joinFederationExecution(name, L"consumer", L"Consumers", modules);
      std::wcout << self << L" is " << rti->getFederateName(self) << std::endl;
      greeting = rti->getInteractionClassHandle(L"HLAinteractionRoot.Greeting");
   }

   void timeRegulationEnabled(LogicalTime const&) override { regulating = true; }

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

   std::wstring heard;
   HLAinteger64Time heardAt;
   bool regulating;
   std::unique_ptr<RTIambassador> rti;
   InteractionClassHandle greeting;
};

bool greet(std::wstring const& fomModule)
{
   Federate sender(L"sender", fomModule);
   Federate receiver(L"receiver", fomModule);
   receiver.rti->subscribeInteractionClass(receiver.greeting);
   sender.rti->publishInteractionClass(sender.greeting);
   HLAinteger64Interval lookahead(5);
   sender.rti->enableTimeRegulation(lookahead);
   while (!sender.regulating) {
      sender.rti->evokeMultipleCallbacks(0.1, 1.0);
   }
   sender.rti->queryLookahead(lookahead);
   HLAinteger64Time time = 2;
   time += lookahead;
   std::unordered_map<ParameterHandle, std::wstring> names;
   names[sender.rti->getParameterHandle(sender.greeting, L"Words")] = L"Words";
   ParameterHandleValueMap values;
   values[names.begin()->first] = HLAunicodeString(L"Good morning").encode();
   std::unordered_set<MessageRetractionHandle> retractable;
   retractable.insert(
      sender.rti->sendInteraction(sender.greeting, values, VariableLengthData("tag", 3), time));
   while (receiver.heard.empty()) {
      receiver.rti->evokeMultipleCallbacks(0.1, 1.0);
   }
   std::wcout << receiver.heard << L" at " << receiver.heardAt << std::endl;
   sender.rti->resignFederationExecution(NO_ACTION);
   receiver.rti->resignFederationExecution(NO_ACTION);
   sender.rti->destroyFederationExecution(L"Consumers");
   return receiver.heard == L"Good morning" && receiver.heardAt == 7 && 7 == receiver.heardAt;
}

} // namespace

int main(int argc, char* argv[])
{
   try {
      std::string const path(argv[argc - 1]);
      return greet(std::wstring(path.begin(), path.end())) ? 0 : 1;
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << std::endl;
      return 1;
   }
}
