#include "tests/soak/Federates.h"

#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <memory>
#include <stdexcept>

namespace soak {
namespace {

using namespace rti1516e;

class Federate : private FederateAmbassador
{
public:
   Federate(CallbackModel model, Tally& tally)
      : _tally(tally), _ambassador(RTIambassadorFactory().createRTIambassador())
   {
      ++_tally.ambassadors;
      (*this)->connect(*this, model);
   }

   // For one service.
   RTIambassador* operator->()
   {
      ++_tally.services;
      return _ambassador.get();
   }

   // A service that the infrastructure refuses.
   template <class Refusal, class Service>
   void callInVain(Service service)
   {
      try {
         service();
      } catch (Refusal const&) {
         ++_tally.refusals;
         return;
      }
      throw std::logic_error("a service that should have been refused was not");
   }

   // Refused while an earlier callback has not come.
   void requestTimeAdvance(LogicalTime const& time)
   {
      try {
         (*this)->timeAdvanceRequest(time);
      } catch (InTimeAdvancingState const&) {
         ++_tally.refusals;
      } catch (RequestForTimeConstrainedPending const&) {
         ++_tally.refusals;
      }
   }

   void evoke()
   {
      while ((*this)->evokeMultipleCallbacks(0.0, 1.0)) {
      }
   }

private:
   // Throws every other time, and each time something else.
   template <class... Arguments>
   void called(Arguments const&...)
   {
      long const turn = ++_tally.callbacks;
      if (turn % 2 == 0) {
         return;
      }
      ++_tally.throws;
      switch (turn / 2 % 4) {
      case 0:
         throw FederateInternalError(L"thrown every other time");
      case 1:
         throw std::runtime_error("thrown every other time");
      case 2:
         throw std::string("thrown every other time");
      default:
         throw turn;
      }
   }

#define CALLBACK(name, parameters, arguments) \
   void name parameters override { called arguments; }
#include "tests/support/Callbacks.def"

   Tally& _tally;
   std::auto_ptr<RTIambassador> _ambassador;
};

VariableLengthData bytes(unsigned int size)
{
   std::string const content(size, 'v');
   return {content.data(), size};
}

} // namespace

void leadALife(std::wstring const& federation, std::wstring const& fomModule, int rounds, Tally& tally)
{
   CallbackModel const model = rounds % 2 == 0 ? HLA_EVOKED : HLA_IMMEDIATE;
   Federate sender(HLA_EVOKED, tally);
   Federate receiver(model, tally);
   sender->createFederationExecution(federation, fomModule, L"HLAinteger64Time");
   for (Federate* const federate : {&sender, &receiver}) {
      (*federate)->joinFederationExecution(L"soaked", federation);
   }

   auto const vehicle = sender->getObjectClassHandle(L"Vehicle");
   auto const message = sender->getInteractionClassHandle(L"Message");
   auto const words = sender->getParameterHandle(message, L"Words");
   AttributeHandleSet attributes;
   for (auto const* name : {L"Position", L"Speed"}) {
      attributes.insert(sender->getAttributeHandle(vehicle, name));
   }
   receiver->subscribeObjectClassAttributes(vehicle, attributes);
   receiver->subscribeInteractionClass(message);
   receiver->enableTimeConstrained();
   sender->publishObjectClassAttributes(vehicle, attributes);
   sender->publishInteractionClass(message);
   sender->enableTimeRegulation(HLAinteger64Interval(1));
   sender.evoke();
   receiver.evoke();
   auto const object = sender->registerObjectInstance(vehicle);

   for (int round = 1; round <= rounds; ++round) {
      AttributeHandleValueMap values;
      for (auto const& attribute : attributes) {
         values[attribute] = bytes(static_cast<unsigned int>(round % 300));
      }
      auto const tag = bytes(8);
      sender->updateAttributeValues(object, values, tag);
      sender->updateAttributeValues(object, values, tag, HLAinteger64Time(round + 10));
      sender->sendInteraction(message, {{words, bytes(20)}}, tag);
      sender->getObjectInstanceName(object);
      sender->queryLogicalTime();
      sender->queryLookahead();
      sender.callInVain<InvalidObjectClassHandle>([&] { sender->getObjectClassName(ObjectClassHandle()); });
      sender.callInVain<ObjectInstanceNotKnown>(
         [&] { sender->updateAttributeValues(ObjectInstanceHandle(), values, tag); });
      for (Federate* const federate : {&sender, &receiver}) {
         federate->requestTimeAdvance(HLAinteger64Time(round));
         federate->evoke();
      }
   }

   for (Federate* const federate : {&sender, &receiver}) {
      (*federate)->resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST);
   }
   sender->destroyFederationExecution(federation);
}

} // namespace soak
