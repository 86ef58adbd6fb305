// Who finds which x87 control word after a service and in a callback.
#if defined(__x86_64__) || defined(__i386__)
#include "tests/contract/ControlWord.h"

#include "tests/support/ContractTest.h"

namespace contract {
namespace {

class ControlWordTest : public ContractTest
{
protected:
   // The federate connects with doublePrecision and goes on with extendedPrecision.
   void SetUp() override
   {
      ContractTest::SetUp();
      setControlWord(doublePrecision);
      ambassador->connect(federate, HLA_EVOKED);
      setControlWord(extendedPrecision);
   }
   ~ControlWordTest() override { setControlWord(extendedPrecision); }
};

TEST_F(ControlWordTest, OfACallbackIsThatOfConnect)
{
   unsigned int found = 0;
   federate.inCallback = [&] { found = controlWord(); };
   deliver(saved);
   EXPECT_EQ(found, doublePrecision);
   EXPECT_EQ(controlWord(), extendedPrecision);
}

TEST_F(ControlWordTest, OfACallbackThatThrowsIsLeft)
{
   federate.inCallback = [] {
      setControlWord(roundingUp);
      throw FederateInternalError(L"x");
   };
   deliver(saved);
   EXPECT_EQ(controlWord(), roundingUp);
}

TEST_F(ControlWordTest, OfACallbackThatFoundTheRightOneIsLeft)
{
   setControlWord(doublePrecision);
   federate.inCallback = [] { setControlWord(roundingUp); };
   deliver(saved);
   EXPECT_EQ(controlWord(), roundingUp);
}

TEST_F(ControlWordTest, IsMendedAfterAnAmbassadorIsMadeAndAfterItGoes)
{
   auto const change = [] { setControlWord(roundingUp); };
   fake::core().meanwhile = change;
   auto other = newAmbassador();
   EXPECT_EQ(controlWord(), extendedPrecision);
   fake::core().meanwhile = change;
   other.reset();
   EXPECT_EQ(controlWord(), extendedPrecision);
   EXPECT_FALSE(fake::core().meanwhile) << "neither was changed";
}

TEST_F(ControlWordTest, IsMendedAfterAServiceThatSucceeds)
{
   fake::core().meanwhile = [] {
      setControlWord(roundingUp);
      raiseInvalid();
   };
   ambassador->enableCallbacks();
   EXPECT_EQ(controlWord(), extendedPrecision);
   EXPECT_EQ(pendingExceptions(), 0U);

   fake::core().meanwhile = [] { setControlWord(doublePrecision); };
   fake::core().raises = {exceptionPath + "RTIinternalError"};
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_EQ(controlWord(), doublePrecision);
}

} // namespace
} // namespace contract

#endif
