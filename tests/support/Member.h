// A federate over the Java VM that is none. It has joined a federation with the tests' own times, which may
// not run while anything is pinned.
#pragma once

#include "tests/support/FakeJava.h"
#include "tests/support/RecordingFederate.h"
#include "tests/support/TestTime.h"

#include <RTI/RTI1516.h>

#include <memory>
#include <string>

namespace contract {

inline std::string const exceptionPath = "hla/rti1516e/exceptions/";
inline std::string const federateInternalError = exceptionPath + "FederateInternalError: ";

struct Member
{
   void start()
   {
      ambassador.reset();
      fake::reset();
      ambassador = newAmbassador();
      connect(*ambassador);
      join(u"TestTime");
   }

   static std::unique_ptr<RTIambassador> newAmbassador()
   {
      return std::unique_ptr<RTIambassador>(RTIambassadorFactory().createRTIambassador().release());
   }

   // The federate is called by this ambassador's token from now on.
   void connect(RTIambassador& newcomer)
   {
      newcomer.connect(federate, HLA_EVOKED);
      token = Bytes(fake::account().lastMessage).leadingInt();
   }

   void join(std::u16string const& timeImplementation)
   {
      inTime = [](std::string const& operation) {
         if (fake::account().pins != 0) {
            fake::account().offences.push_back(operation + " while pinned");
         }
      };
      fake::core().text = timeImplementation;
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   // Delivers a callback as the core would; returns the exception that it left pending, or "none".
   std::string deliver(std::string const& native, Bytes const& arguments = {}) const
   {
      return fake::callNative(native, envelope(arguments));
   }
   Bytes envelope(Bytes const& arguments) const
   {
      return Bytes("63626160").int32(token).append(arguments).append(Bytes("59585756"));
   }

   // What the library holds, and what it has done though it is forbidden.
   static std::string remains()
   {
      auto const& account = fake::account();
      std::string text = std::to_string(account.localReferences) + " local, " +
                         std::to_string(account.globalReferences) + " global, " +
                         std::to_string(account.pins) + " pinned" +
                         (fake::isExceptionPending() ? ", one pending" : "");
      for (auto const& offence : account.offences) {
         text += ", " + offence;
      }
      return text;
   }

   RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;
};

} // namespace contract
