// A federate that does what it reads: a line each, answered by a line, with its callbacks in between. In a
// process of its own, so that it can be killed.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <atomic>
#include <clocale>
#include <functional>
#include <iostream>
#include <map>
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
      std::wstring action, text;
      in >> action >> text;
      _actions.at(action)(text);
   }

private:
   void join(std::wstring const& name)
   {
      _next = 0;
      _rti.joinFederationExecution(name, L"participant", _federation);
      _rti.setAutomaticResignDirective(DELETE_OBJECTS_THEN_DIVEST);
      _personClass = _rti.getObjectClassHandle(L"Person");
      _place = _rti.getAttributeHandle(_personClass, L"Place");
      _rti.publishObjectClassAttributes(_personClass, {_place});
      _rti.subscribeObjectClassAttributes(_personClass, {_place});
      _greeting = _rti.getInteractionClassHandle(L"Greeting");
      _rti.publishInteractionClass(_greeting);
      _rti.subscribeInteractionClass(_greeting);
      _lost = _rti.getInteractionClassHandle(L"HLAmanager.HLAfederate.HLAreport.HLAreportFederateLost");
      _rti.subscribeInteractionClass(_lost);
   }

   void update(int times)
   {
      for (int i = 0; i < times; ++i)
         _rti.updateAttributeValues(_person, {{_place, VariableLengthData(&i, sizeof i)}}, {});
   }

   void greet(int times, unsigned size)
   {
      std::vector<char> const tag(size);
      for (int i = 0; i < times; ++i)
         _rti.sendInteraction(_greeting, {}, VariableLengthData(tag.data(), size));
   }

   // What waits for its time is part of the federation's state.
   void later(int times)
   {
      unsigned const size = 1 << 16;
      std::vector<char> const value(size);
      for (int i = 0; i < times; ++i)
         _rti.updateAttributeValues(_person, {{_place, VariableLengthData(value.data(), size)}}, {},
                                    HLAinteger64Time(1000000));
   }

   // Saves again and again, each save named after the time that it is made at.
   void chain(long label)
   {
      _next = label;
      _rti.timeAdvanceRequest(HLAinteger64Time(label));
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
      text.decode(values.at(_rti.getParameterHandle(_lost, parameter)));
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
         _rti.requestFederationSave(std::to_wstring(_next));
   }
   void initiateFederateSave(std::wstring const& label) override
   {
      say(L"< save " + label);
      if (_answers) {
         _rti.federateSaveBegun();
         _rti.federateSaveComplete();
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
      _rti.federateRestoreComplete();
   }
   void federationRestored() override { say(L"< restored"); }

   std::unique_ptr<RTIambassador> const _ambassador{RTIambassadorFactory().createRTIambassador()};
   RTIambassador& _rti = *_ambassador;
   using Text = std::wstring const&;
   std::map<std::wstring, std::function<void(Text)>> const _actions = {
      {L"connect", [&](Text hub) { _rti.connect(*this, HLA_IMMEDIATE, hub); }},
      {L"disconnect", [&](Text) { _rti.disconnect(); }},
      {L"federation", [&](Text name) { _federation = name; }},
      {L"create", [&](Text fom) { _rti.createFederationExecution(_federation, fom, L"HLAinteger64Time"); }},
      {L"destroy", [&](Text) { _rti.destroyFederationExecution(_federation); }},
      {L"list", [&](Text) { _rti.listFederationExecutions(); }},
      {L"join", [&](Text name) { join(name); }},
      {L"resign", [&](Text) { _rti.resignFederationExecution(NO_ACTION); }},
      {L"person", [&](Text) { _person = _rti.registerObjectInstance(_personClass); }},
      {L"update", [&](Text times) { update(std::stoi(times)); }},
      {L"later", [&](Text times) { later(std::stoi(times)); }},
      {L"greet", [&](Text times) { greet(std::stoi(times), 1); }},
      {L"flood", [&](Text times) { greet(std::stoi(times), 1 << 16); }},
      {L"count", [&](Text) { say(L"received " + std::to_wstring(_received)); }},
      {L"knows",
       [&](Text name) { say(L"knows " + name + L" as " + _rti.getObjectInstanceHandle(name).toString()); }},
      {L"regulate",
       [&](Text by) { _rti.enableTimeRegulation(HLAinteger64Interval(by.empty() ? 1 : std::stoll(by))); }},
      {L"constrain", [&](Text) { _rti.enableTimeConstrained(); }},
      {L"advance", [&](Text to) { _rti.timeAdvanceRequest(HLAinteger64Time(std::stoll(to))); }},
      {L"time", [&](Text) { say(L"time " + _rti.queryLogicalTime()->toString()); }},
      {L"save", [&](Text label) { _rti.requestFederationSave(label); }},
      {L"restore", [&](Text label) { _rti.requestFederationRestore(label); }},
      {L"answer", [&](Text) { _answers = true; }},
      {L"chain", [&](Text label) { chain(std::stol(label)); }},
      {L"evoke", [&](Text seconds) { _rti.evokeCallback(std::stod(seconds)); }}};
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
