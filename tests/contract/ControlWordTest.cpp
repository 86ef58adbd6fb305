// Who finds which x87 control word after a service and in a callback.
#if defined(__x86_64__) || defined(__i386__)
#include "tests/contract/ControlWord.h"

#include "tests/support/ContractTest.h"

namespace contract {
namespace {

// The federate connects with doublePrecision and goes on with extendedPrecision.
class ControlWordTest : public ContractTest
{
protected:
   void SetUp() override
   {
      setControlWord(doublePrecision);
      ContractTest::SetUp();
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

   // It is left where the callback throws, and where it found the right one.
   federate.inCallback = [] {
      setControlWord(roundingUp);
      throw FederateInternalError(L"x");
   };
   deliver(saved);
   EXPECT_EQ(controlWord(), roundingUp);
   setControlWord(doublePrecision);
   federate.inCallback = [] { setControlWord(roundingUp); };
   deliver(saved);
   EXPECT_EQ(controlWord(), roundingUp);
}

TEST_F(ControlWordTest, IsMendedAfterWhatSucceeds)
{
   std::unique_ptr<RTIambassador> other;
   for (auto const& doSomething :
        std::vector<std::function<void()>>{[&] { other = newAmbassador(); }, [&] { other.reset(); },
                                           [&] { ambassador->enableCallbacks(); }}) {
      fake::core.meanwhile = [] {
         setControlWord(roundingUp);
         asm volatile("fldz\n\tfldz\n\tfdivp\n\tfstp %st(0)"); // an exception, though masked
      };
      doSomething();
      EXPECT_EQ(controlWord(), extendedPrecision);
      EXPECT_EQ(pendingExceptions(), 0U);
      EXPECT_FALSE(fake::core.meanwhile) << "was not changed";
   }
   fake::core.meanwhile = [] { setControlWord(doublePrecision); };
   fake::core.raises = {exceptionPath + "RTIinternalError"};
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_EQ(controlWord(), doublePrecision);
}

} // namespace
} // namespace contract

#endif
