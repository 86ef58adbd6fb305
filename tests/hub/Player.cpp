// A federate that does what it reads: a line each, answered by a line, with its callbacks in between. In a
// process of its own, so that it can be killed.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <atomic>
#include <clocale>
#include <iostream>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace rti1516e;

void say(std::wstring const& line)
{
   static std::mutex oneAtATime;
   std::lock_guard<std::mutex> const lock(oneAtATime);
   std::wcout << line << std::endl;
}

class Player : private NullFederateAmbassador
{
public:
   void play(std::wstring const& line)
   {
      std::wistringstream in(line);
      std::wstring action;
      std::wstring text;
      in >> action >> text;
      RTIambassador& rti = *_ambassador;
      if (action == L"connect")
         rti.connect(*this, HLA_IMMEDIATE, text);
      else if (action == L"create")
         rti.createFederationExecution(_federation, text, L"HLAinteger64Time");
      else if (action == L"federation")
         _federation = text;
      else if (action == L"destroy")
         rti.destroyFederationExecution(_federation);
      else if (action == L"list")
         rti.listFederationExecutions();
      else if (action == L"join")
         join(text);
      else if (action == L"person")
         _person = rti.registerObjectInstance(_personClass);
      else if (action == L"update")
         update(std::stoi(text));
      else if (action == L"regulate")
         rti.enableTimeRegulation(HLAinteger64Interval(text.empty() ? 1 : std::stoll(text)));
      else if (action == L"constrain")
         rti.enableTimeConstrained();
      else if (action == L"advance")
         rti.timeAdvanceRequest(HLAinteger64Time(std::stoll(text)));
      else if (action == L"save")
         rti.requestFederationSave(text);
      else if (action == L"answer")
         _answers = true;
      else if (action == L"restore")
         rti.requestFederationRestore(text);
      else if (action == L"chain")
         chain(std::stol(text));
      else if (action == L"later")
         later(std::stoi(text));
      else if (action == L"time")
         showTime();
      else if (action == L"knows")
         say(L"knows " + text + L" as " + rti.getObjectInstanceHandle(text).toString());
      else if (action == L"greet")
         greet(std::stoi(text), 1);
      else if (action == L"flood")
         greet(std::stoi(text), 1 << 16);
      else if (action == L"count")
         say(L"received " + std::to_wstring(_received));
      else if (action == L"evoke")
         rti.evokeCallback(std::stod(text));
      else if (action == L"resign")
         rti.resignFederationExecution(NO_ACTION);
      else if (action == L"disconnect")
         rti.disconnect();
   }

private:
   void join(std::wstring const& name)
   {
      RTIambassador& rti = *_ambassador;
      _next = 0;
      rti.joinFederationExecution(name, L"participant", _federation);
      rti.setAutomaticResignDirective(DELETE_OBJECTS_THEN_DIVEST);
      _personClass = rti.getObjectClassHandle(L"Person");
      _place = rti.getAttributeHandle(_personClass, L"Place");
      rti.publishObjectClassAttributes(_personClass, {_place});
      rti.subscribeObjectClassAttributes(_personClass, {_place});
      _greeting = rti.getInteractionClassHandle(L"Greeting");
      rti.publishInteractionClass(_greeting);
      rti.subscribeInteractionClass(_greeting);
      _lost = rti.getInteractionClassHandle(L"HLAmanager.HLAfederate.HLAreport.HLAreportFederateLost");
      rti.subscribeInteractionClass(_lost);
   }

   void update(int times)
   {
      for (int i = 0; i < times; ++i)
         _ambassador->updateAttributeValues(_person, {{_place, VariableLengthData(&i, sizeof i)}}, {});
   }

   void greet(int times, unsigned size)
   {
      std::vector<char> const tag(size);
      for (int i = 0; i < times; ++i)
         _ambassador->sendInteraction(_greeting, {}, VariableLengthData(tag.data(), size));
   }

   // What waits for its time is part of the federation's state.
   void later(int times)
   {
      unsigned const size = 1 << 16;
      std::vector<char> const value(size);
      for (int i = 0; i < times; ++i)
         _ambassador->updateAttributeValues(_person, {{_place, VariableLengthData(value.data(), size)}}, {},
                                            HLAinteger64Time(1000000));
   }

   // Saves again and again, each save named after the time that it is made at.
   void chain(long label)
   {
      _next = label;
      _ambassador->timeAdvanceRequest(HLAinteger64Time(label));
   }

   void showTime()
   {
      HLAinteger64Time now;
      _ambassador->queryLogicalTime(now);
      say(L"time " + now.toString());
   }

   void reportFederationExecutions(FederationExecutionInformationVector const& all) override
   {
      std::wstring names;
      for (FederationExecutionInformation const& each : all)
         names += L" " + each.federationExecutionName;
      say(L"< executions" + names);
   }
   void connectionLost(std::wstring const& fault) override
   {
      _next = 0;
      say(L"< connectionLost " + fault);
   }
   void discoverObjectInstance(ObjectInstanceHandle, ObjectClassHandle, std::wstring const& name) override
   {
      say(L"< discover " + name);
   }
   void removeObjectInstance(ObjectInstanceHandle, VariableLengthData const&, OrderType,
                             SupplementalRemoveInfo) override
   {
      say(L"< remove");
   }
   void receiveInteraction(InteractionClassHandle theClass, ParameterHandleValueMap const& values,
                           VariableLengthData const&, OrderType, TransportationType,
                           SupplementalReceiveInfo) override
   {
      if (theClass == _lost)
         say(L"< lost " + in(values, L"HLAfederateName") + L": " + in(values, L"HLAfaultDescription"));
      else
         ++_received;
   }
   std::wstring in(ParameterHandleValueMap const& values, wchar_t const* parameter) const
   {
      HLAunicodeString text;
      text.decode(values.at(_ambassador->getParameterHandle(_lost, parameter)));
      return text.get();
   }
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType, LogicalTime const&,
                               OrderType, MessageRetractionHandle, SupplementalReflectInfo) override
   {
      ++_received;
   }
   void timeAdvanceGrant(LogicalTime const& time) override
   {
      say(L"< grant " + time.toString());
      if (_next != 0)
         _ambassador->requestFederationSave(std::to_wstring(_next));
   }
   void initiateFederateSave(std::wstring const& label) override
   {
      say(L"< save " + label);
      if (_answers) {
         _ambassador->federateSaveBegun();
         _ambassador->federateSaveComplete();
      }
   }
   void federationSaved() override
   {
      say(L"< saved " + std::to_wstring(_next));
      if (_next != 0)
         chain(_next + 1);
   }
   void federationNotSaved(SaveFailureReason) override { say(L"< notSaved"); }
   void requestFederationRestoreFailed(std::wstring const& label) override
   {
      say(L"< notRestorable " + label);
   }
   void initiateFederateRestore(std::wstring const&, std::wstring const&, FederateHandle) override
   {
      _ambassador->federateRestoreComplete();
   }
   void federationRestored() override { say(L"< restored"); }

   std::unique_ptr<RTIambassador> const _ambassador{RTIambassadorFactory().createRTIambassador()};
   ObjectClassHandle _personClass;
   AttributeHandle _place;
   ObjectInstanceHandle _person;
   std::wstring _federation{L"Meeting"};
   InteractionClassHandle _greeting;
   InteractionClassHandle _lost;
   std::atomic<unsigned> _received{0};
   std::atomic<bool> _answers{false};
   std::atomic<long> _next{0}; // the label of the next save; 0 for no more
};

} // namespace

int main()
{
   std::setlocale(LC_ALL, "C.UTF-8");
   Player player;
   std::wstring line;
   while (std::getline(std::wcin, line)) {
      try {
         player.play(line);
         say(L"done " + line);
      } catch (rti1516e::Exception const& e) {
         say(L"failed " + line + L": " + e.what());
      }
   }
}
