// What the tests against the Java VM that is none have in common.
#pragma once

#include "tests/support/Calls.h"
#include "tests/support/Caught.h"
#include "tests/support/Member.h"
#include "tests/support/RandomValue.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace contract {

// Something that a federate has ready.
inline Bytes const someTime = TestTime::encoded(7);
inline std::string const saved = "federationSaved_Native";
inline std::string const granted = "timeAdvanceGrant_LT_Native";

class ContractTest : public testing::Test, protected Member
{
protected:
   void SetUp() override { start(); }

   void TearDown() override
   {
      ambassador.reset();
      expectClean(0);
      inTime = nullptr;
   }

   // Nothing is held but the given number of global references, and nothing forbidden was done.
   static void expectClean(int globalReferences)
   {
      EXPECT_EQ(remains(), "0 local, " + std::to_string(globalReferences) + " global, 0 pinned");
   }
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
