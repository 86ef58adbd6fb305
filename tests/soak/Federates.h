// Two federates that lead a whole life in a federation of their own, on one thread: they find each other,
// send and receive, fail, and go. Half of their callbacks throw.
#pragma once

#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>

namespace soak {

using namespace rti1516e;

// What has happened so far, of all threads.
struct Tally
{
   std::atomic<long> services{0};
   std::atomic<long> refusals{0}; // services that ended in an exception, as they should have
   std::atomic<long> callbacks{0};
   std::atomic<long> throws{0}; // callbacks that threw

   long operations() const { return services + callbacks; }
};

class Federate : private FederateAmbassador
{
public:
   Federate(CallbackModel model, Tally& tally)
      : _tally(tally), _ambassador(RTIambassadorFactory().createRTIambassador().release())
   {
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
   std::unique_ptr<RTIambassador> _ambassador;
};

// Throws what a service throws that should not have.
inline void leadALife(std::wstring const& federation, std::wstring const& fomModule, int rounds, Tally& tally)
{
   Federate sender(HLA_EVOKED, tally);
   Federate receiver(rounds % 2 == 0 ? HLA_EVOKED : HLA_IMMEDIATE, tally);
   sender->createFederationExecution(federation, fomModule, L"HLAinteger64Time");
   sender->joinFederationExecution(L"soaked", federation);
   receiver->joinFederationExecution(L"soaked", federation);
   auto const vehicle = sender->getObjectClassHandle(L"Vehicle");
   auto const message = sender->getInteractionClassHandle(L"Message");
   auto const words = sender->getParameterHandle(message, L"Words");
   AttributeHandleSet const attributes = {sender->getAttributeHandle(vehicle, L"Position"),
                                          sender->getAttributeHandle(vehicle, L"Speed")};
   receiver->subscribeObjectClassAttributes(vehicle, attributes);
   receiver->subscribeInteractionClass(message);
   receiver->enableTimeConstrained();
   sender->publishObjectClassAttributes(vehicle, attributes);
   sender->publishInteractionClass(message);
   sender->enableTimeRegulation(HLAinteger64Interval(1));
   sender.evoke();
   receiver.evoke();
   auto const object = sender->registerObjectInstance(vehicle);

   VariableLengthData const tag("12345678", 8);
   for (int round = 1; round <= rounds; ++round) {
      std::string const value(static_cast<std::size_t>(round % 300), 'v');
      AttributeHandleValueMap values;
      for (auto const& attribute : attributes) {
         values[attribute].setData(value.data(), static_cast<unsigned int>(value.size()));
      }
      sender->updateAttributeValues(object, values, tag);
      sender->updateAttributeValues(object, values, tag, HLAinteger64Time(round + 10));
      sender->sendInteraction(message, {{words, tag}}, tag);
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

   sender->resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST);
   receiver->resignFederationExecution(NO_ACTION);
   sender->destroyFederationExecution(federation);
}

} // namespace soak
