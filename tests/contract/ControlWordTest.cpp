// Who finds which floating-point control word after a service and in a callback.
#include "Fixture.h"

#if defined(__x86_64__) || defined(__i386__)
#include "ControlWord.h"

#include <vector>

namespace contract {
namespace {

class ControlWordTest : public ContractTest
{
protected:
   // The federate connects with doublePrecision and goes on with extendedPrecision.
   ControlWordTest()
   {
      setControlWord(doublePrecision);
      rti.connect(member.federate, HLA_EVOKED);
      setControlWord(extendedPrecision);
      member.federate.inCallback = [this] { found = controlWord(); };
   }
   ~ControlWordTest() override { setControlWord(extendedPrecision); }

   void deliver() { core.deliver(saved); }

   Delivery const saved{"federationSaved_Native", member.message(Bytes())};
   unsigned int found = 0; // by the callback
};

TEST_F(ControlWordTest, CallbackRunsWithTheOneOfConnect)
{
   deliver();
   EXPECT_EQ(found, doublePrecision);
   EXPECT_EQ(controlWord(), extendedPrecision);
}

TEST_F(ControlWordTest, CallbackThatThrowsLeavesItsOwn)
{
   member.federate.inCallback = [] {
      setControlWord(roundingUp);
      throw FederateInternalError(L"x");
   };
   deliver();
   EXPECT_EQ(controlWord(), roundingUp);
}

TEST_F(ControlWordTest, CallbackThatFoundTheRightOneMayChangeIt)
{
   setControlWord(doublePrecision);
   member.federate.inCallback = [] { setControlWord(roundingUp); };
   deliver();
   EXPECT_EQ(controlWord(), roundingUp);
}

TEST_F(ControlWordTest, ServiceRestoresWhatTheCallsBehindItChanged)
{
   member.federate.inCallback = [] {
      setControlWord(roundingUp);
      raiseInvalid();
      throw FederateInternalError(L"x");
   };
   core.answer("evokeCallback_D", saved);
   rti.evokeCallback(0.0);
   EXPECT_EQ(controlWord(), extendedPrecision);
   EXPECT_EQ(pendingExceptions(), 0U);
}

} // namespace
} // namespace contract

#endif
