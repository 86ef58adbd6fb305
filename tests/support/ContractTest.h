// A federate over the Java VM that is none. It has joined a federation with the tests' own times, which may
// not run while anything is pinned.
#pragma once

#include "tests/support/Calls.h"
#include "tests/support/Caught.h"
#include "tests/support/FakeJava.h"
#include "tests/support/RandomValue.h"
#include "tests/support/RecordingFederate.h"
#include "tests/support/TestTime.h"

#include <RTI/RTI1516.h>

#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace contract {

inline std::string const exceptionPath = "hla/rti1516e/exceptions/";
inline std::string const federateInternalError = exceptionPath + "FederateInternalError: ";

// Something that a federate has ready.
inline Bytes const someTime = TestTime::encoded(7);
inline std::string const saved = "federationSaved_Native";
inline std::string const granted = "timeAdvanceGrant_LT_Native";

class ContractTest : public testing::Test
{
protected:
   void SetUp() override
   {
      fake::reset();
      ambassador = newAmbassador();
      connect(*ambassador);
      join(u"TestTime");
   }

   void TearDown() override
   {
      ambassador.reset();
      expectClean(0);
      inTime = [](auto const&) {};
   }

   static std::unique_ptr<RTIambassador> newAmbassador()
   {
      return std::unique_ptr<RTIambassador>(RTIambassadorFactory().createRTIambassador().release());
   }

   // The federate is called by this ambassador's token from now on.
   void connect(RTIambassador& newcomer)
   {
      newcomer.connect(federate, HLA_EVOKED);
      token = Octets(fake::account.lastMessage.data(), 4).int32();
   }

   void join(std::u16string const& timeImplementation)
   {
      inTime = [](std::string const&) { EXPECT_EQ(fake::account.pins, 0); };
      fake::core.result = Bytes().units(timeImplementation);
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   // Nothing is held but the given number of global references, and nothing forbidden was done.
   static void expectClean(int globalReferences)
   {
      EXPECT_EQ(fake::remains(), "0 local, " + std::to_string(globalReferences) + " global, 0 pinned");
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

   RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;
};

// Does something with the octets that chance gives; small ones are often codes and counts, any others are
// good for numbers.
template <class Do>
void withRandomOctets(int times, Do something)
{
   std::mt19937 random(1);
   for (int n = 0; n < times; ++n) {
      std::vector<std::uint8_t> made(400);
      for (auto& octet : made) {
         octet = static_cast<std::uint8_t>(random() % (n % 2 == 0 ? 8 : 256));
      }
      Octets octets(made.data(), made.size());
      something(octets);
   }
}

} // namespace contract
