#include "tests/soak/Federates.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <memory>
#include <stdexcept>
#include <type_traits>

namespace soak {
namespace {

using namespace rti1516e;

class Federate : private NullFederateAmbassador
{
public:
   Federate(CallbackModel model, Tally& tally)
      : _tally(tally), _ambassador(RTIambassadorFactory().createRTIambassador())
   {
      ++_tally.ambassadors;
      call([&](RTIambassador& rti) { rti.connect(*this, model); });
   }

   template <class Service>
   std::invoke_result_t<Service, RTIambassador&> call(Service service)
   {
      ++_tally.services;
      return service(*_ambassador);
   }

   // A service that the infrastructure refuses.
   template <class Refusal, class Service>
   void callInVain(Service service)
   {
      try {
         call(service);
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
         call([&](RTIambassador& rti) { rti.timeAdvanceRequest(time); });
      } catch (InTimeAdvancingState const&) {
         ++_tally.refusals;
      } catch (RequestForTimeConstrainedPending const&) {
         ++_tally.refusals;
      }
   }

   void evoke()
   {
      while (call([](RTIambassador& rti) { return rti.evokeMultipleCallbacks(0.0, 1.0); })) {
      }
   }

private:
   void discoverObjectInstance(ObjectInstanceHandle, ObjectClassHandle, std::wstring const&) override
   {
      called();
   }
   void discoverObjectInstance(ObjectInstanceHandle, ObjectClassHandle, std::wstring const&,
                               FederateHandle) override
   {
      called();
   }
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType,
                               SupplementalReflectInfo) override
   {
      called();
   }
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType, LogicalTime const&,
                               OrderType, SupplementalReflectInfo) override
   {
      called();
   }
   void reflectAttributeValues(ObjectInstanceHandle, AttributeHandleValueMap const&,
                               VariableLengthData const&, OrderType, TransportationType, LogicalTime const&,
                               OrderType, MessageRetractionHandle, SupplementalReflectInfo) override
   {
      called();
   }
   void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const&, VariableLengthData const&,
                           OrderType, TransportationType, SupplementalReceiveInfo) override
   {
      called();
   }
   void removeObjectInstance(ObjectInstanceHandle, VariableLengthData const&, OrderType,
                             SupplementalRemoveInfo) override
   {
      called();
   }
   void timeRegulationEnabled(LogicalTime const&) override { called(); }
   void timeConstrainedEnabled(LogicalTime const&) override { called(); }
   void timeAdvanceGrant(LogicalTime const&) override { called(); }
   void objectInstanceNameReservationSucceeded(std::wstring const&) override { called(); }

   // Throws every other time, and each time something else.
   void called()
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
   sender.call(
      [&](RTIambassador& rti) { rti.createFederationExecution(federation, fomModule, L"HLAinteger64Time"); });
   for (Federate* const federate : {&sender, &receiver}) {
      federate->call([&](RTIambassador& rti) { rti.joinFederationExecution(L"soaked", federation); });
   }

   auto const vehicle = sender.call([](RTIambassador& rti) { return rti.getObjectClassHandle(L"Vehicle"); });
   auto const message =
      sender.call([](RTIambassador& rti) { return rti.getInteractionClassHandle(L"Message"); });
   auto const words =
      sender.call([&](RTIambassador& rti) { return rti.getParameterHandle(message, L"Words"); });
   AttributeHandleSet attributes;
   for (auto const* name : {L"Position", L"Speed"}) {
      attributes.insert(
         sender.call([&](RTIambassador& rti) { return rti.getAttributeHandle(vehicle, name); }));
   }
   receiver.call([&](RTIambassador& rti) { rti.subscribeObjectClassAttributes(vehicle, attributes); });
   receiver.call([&](RTIambassador& rti) { rti.subscribeInteractionClass(message); });
   receiver.call([](RTIambassador& rti) { rti.enableTimeConstrained(); });
   sender.call([&](RTIambassador& rti) { rti.publishObjectClassAttributes(vehicle, attributes); });
   sender.call([&](RTIambassador& rti) { rti.publishInteractionClass(message); });
   sender.call([](RTIambassador& rti) { rti.enableTimeRegulation(HLAinteger64Interval(1)); });
   sender.evoke();
   receiver.evoke();
   auto const object = sender.call([&](RTIambassador& rti) { return rti.registerObjectInstance(vehicle); });

   for (int round = 1; round <= rounds; ++round) {
      AttributeHandleValueMap values;
      for (auto const& attribute : attributes) {
         values[attribute] = bytes(static_cast<unsigned int>(round % 300));
      }
      auto const tag = bytes(8);
      sender.call([&](RTIambassador& rti) { rti.updateAttributeValues(object, values, tag); });
      sender.call([&](RTIambassador& rti) {
         return rti.updateAttributeValues(object, values, tag, HLAinteger64Time(round + 10)).isValid();
      });
      sender.call([&](RTIambassador& rti) { rti.sendInteraction(message, {{words, bytes(20)}}, tag); });
      sender.call([&](RTIambassador& rti) { return rti.getObjectInstanceName(object).size(); });
      sender.call([&](RTIambassador& rti) { return rti.queryLogicalTime()->isInitial(); });
      sender.call([&](RTIambassador& rti) { return rti.queryLookahead()->isZero(); });
      sender.callInVain<InvalidObjectClassHandle>(
         [](RTIambassador& rti) { rti.getObjectClassName(ObjectClassHandle()); });
      sender.callInVain<ObjectInstanceNotKnown>(
         [&](RTIambassador& rti) { rti.updateAttributeValues(ObjectInstanceHandle(), values, tag); });
      for (Federate* const federate : {&sender, &receiver}) {
         federate->requestTimeAdvance(HLAinteger64Time(round));
         federate->evoke();
      }
   }

   for (Federate* const federate : {&sender, &receiver}) {
      federate->call([](RTIambassador& rti) { rti.resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST); });
   }
   sender.call([&](RTIambassador& rti) { rti.destroyFederationExecution(federation); });
}

} // namespace soak
