// The bridge object: one ambassador's peer in the Java VM, and what its callbacks need of it.
#pragma once

#include "src/callbacks/CallbackContext.h"
#include "src/services/ServiceFrame.h"

#include <RTI/FederateAmbassador.h>
#include <RTI/LogicalTimeFactory.h>

#include <jni.h>

#include <memory>
#include <string>
#include <type_traits>

namespace tovu1516e {

class RTIambassadorC
{
public:
   // Throws RTIinternalError if the VM or the core in it cannot be reached.
   RTIambassadorC();

   // Disconnects, if there is still a VM, and waits for callbacks on other threads. Whatever Java thinks of
   // it is ignored.
   ~RTIambassadorC();
   RTIambassadorC(RTIambassadorC const&) = delete;
   RTIambassadorC& operator=(RTIambassadorC const&) = delete;

   // Calls a service with the arguments that its codes ask for, and returns its result.
   template <class ResultType, class... Codes>
   ResultType invoke(Service<ResultType(Codes...)> const& service,
                     typename Codes::Argument... arguments) const
   {
      return transmit(service, Codes::sendable(arguments)...);
   }

   void connect(rti1516e::FederateAmbassador& federateAmbassador, rti1516e::CallbackModel callbackModel,
                std::wstring const& localSettingsDesignator);

   // Joins by one of the two join services, and then gets the federation's time factory.
   template <class... Codes, class... Arguments>
   rti1516e::FederateHandle join(Service<rti1516e::FederateHandle(Codes...)> const& service,
                                 Arguments const&... arguments)
   {
      auto const federate = invoke(service, arguments...);
      _context.setTimeFactory(makeTimeFactory());
      return federate;
   }

   // A new factory of the federation's times; null if the time library does not know them.
   std::unique_ptr<rti1516e::LogicalTimeFactory> makeTimeFactory() const;

private:
   template <class ResultType, class... Codes>
   ResultType transmit(Service<ResultType(Codes...)> const& service,
                       typename Codes::Sendable const&... arguments) const
   {
      ServiceFrame const frame;
      CallbackToken const context =
         _context.token(); // a callback that the call evokes may destroy this object
      if constexpr (sizeof...(Codes) == 0) {
         return receive<ResultType>(frame, context, frame.call(_peer, service));
      } else {
         OutgoingMessage const message(frame.env(), arguments...);
         jvalue const value = frame.call(_peer, service, message.array());
         return receive<ResultType>(frame, context, value);
      }
   }

   template <class ResultType>
   static ResultType receive(ServiceFrame const& frame, CallbackToken context, jvalue value)
   {
      if constexpr (std::is_void_v<ResultType>) {
         frame.finish();
      } else {
         constexpr bool isObject = Result<ResultType>::javaType >= JavaType::Bytes;
         LocalReference<jobject> const reference(frame.env(), isObject ? value.l : nullptr);
         ResultType result = Result<ResultType>::read({frame.env(), context}, value);
         frame.finish();
         return result;
      }
   }

   CallbackContext _context;
   jobject _peer = nullptr;
};

} // namespace tovu1516e
