// An ambassador on top of the Java VM that is none. It has joined a federation with the tests' own times,
// which notice when they run.
#pragma once

#include "tests/support/Caught.h"
#include "tests/support/FakeJava.h"
#include "tests/support/RandomCallback.h"
#include "tests/support/RecordingFederate.h"
#include "tests/support/Samples.h"
#include "tests/support/Services.h"
#include "tests/support/TestTime.h"

#include <RTI/RTI1516.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace contract {

using namespace rti1516e;

inline std::string const federateInternalError = "hla/rti1516e/exceptions/FederateInternalError: ";

inline std::vector<std::uint8_t> octetsOf(Bytes const& bytes)
{
   return {bytes.data(), bytes.data() + bytes.size()};
}

class ContractTest : public testing::Test
{
protected:
   void SetUp() override
   {
      fake::reset();
      foreignCodeRanPinned = false;
      watchForeignCode();
      ambassador = newAmbassador();
      connect(*ambassador);
      join(u"TestTime");
   }

   void TearDown() override
   {
      ambassador.reset();
      expectClean(0);
      Faults::clear();
   }

   static std::unique_ptr<RTIambassador> newAmbassador()
   {
      return std::unique_ptr<RTIambassador>(RTIambassadorFactory().createRTIambassador().release());
   }

   // The federate is called by this ambassador's token from now on.
   void connect(RTIambassador& newcomer)
   {
      newcomer.connect(federate, HLA_EVOKED);
      token = Bytes(fake::lastMessage().data(), 4).leadingInt();
   }

   void join(std::u16string const& timeImplementation)
   {
      fake::core().text = timeImplementation;
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   // Checks that nothing is held but the given number of global references, and nothing forbidden was done.
   void expectClean(int globalReferences) const
   {
      auto const held = fake::holdings();
      EXPECT_EQ(held.localReferences, 0);
      EXPECT_EQ(held.globalReferences, globalReferences);
      EXPECT_EQ(held.pins, 0);
      EXPECT_FALSE(held.pending);
      EXPECT_EQ(fake::offences(), std::vector<std::string>());
      EXPECT_FALSE(foreignCodeRanPinned);
   }

   // Delivers a callback as the core would; returns the exception that it left pending, or "none".
   std::string deliver(std::string const& native, Bytes const& arguments = Bytes()) const
   {
      return fake::callNative(native, envelope(arguments));
   }

   std::vector<std::uint8_t> envelope(Bytes const& arguments) const
   {
      return octetsOf(Bytes("63626160").int32(token).append(arguments).append(Bytes("59585756")));
   }

   // From now on notices when these operations of times run while something is pinned, and lets them do this.
   void watchForeignCode(std::function<void()> const& fault = nullptr,
                         std::vector<std::string> const& operations = {"encode", "encodedLength", "decode",
                                                                       "makeFinal", "makeLogicalTimeFactory"})
   {
      for (auto const& operation : operations) {
         Faults::set(operation, [this, fault] {
            foreignCodeRanPinned = foreignCodeRanPinned || fake::holdings().pins != 0;
            if (fault) {
               fault();
            }
         });
      }
   }

   RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;

private:
   bool foreignCodeRanPinned = false;
};

} // namespace contract
