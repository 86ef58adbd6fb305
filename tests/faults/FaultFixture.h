// An ambassador on top of the Java VM that is none, whose federation has times that notice when they run.
#pragma once

#include "tests/contract/RecordingFederate.h"
#include "tests/contract/Samples.h"
#include "tests/contract/Services.h"
#include "tests/contract/TestTime.h"
#include "tests/faults/FakeJava.h"

#include <RTI/RTI1516.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace faults {

using namespace rti1516e;
using contract::Bytes;

inline std::string const federateInternalError = "hla/rti1516e/exceptions/FederateInternalError: ";

class FaultTest : public testing::Test
{
protected:
   void SetUp() override
   {
      fake::reset();
      foreignCodeRanPinned = false;
      watchForeignCode();
      ambassador = newAmbassador();
      ambassador->connect(federate, HLA_EVOKED);
      token = Bytes(fake::lastMessage().data(), 4).leadingInt();
      fake::core().text = u"TestTime";
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   void TearDown() override
   {
      ambassador.reset();
      expectClean(0);
      contract::Faults::clear();
   }

   static std::unique_ptr<RTIambassador> newAmbassador()
   {
      return std::unique_ptr<RTIambassador>(RTIambassadorFactory().createRTIambassador().release());
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
      Bytes const message = Bytes("63626160").int32(token).append(arguments).append(Bytes("59585756"));
      return {message.data(), message.data() + message.size()};
   }

   // From now on notices when these operations of times run while something is pinned, and lets them do this.
   void watchForeignCode(std::function<void()> const& fault = nullptr,
                         std::vector<std::string> const& operations = {"encode", "encodedLength", "decode",
                                                                       "makeFinal", "makeLogicalTimeFactory"})
   {
      for (auto const& operation : operations) {
         contract::Faults::set(operation, [this, fault] {
            foreignCodeRanPinned = foreignCodeRanPinned || fake::holdings().pins != 0;
            if (fault) {
               fault();
            }
         });
      }
   }

   contract::RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;

private:
   bool foreignCodeRanPinned = false;
};

} // namespace faults
