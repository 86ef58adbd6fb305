// Who finds which x87 control word after a service and in a callback.
#if defined(__x86_64__) || defined(__i386__)
#include "tests/support/ContractTest.h"

namespace contract {
namespace {

// All exceptions masked, rounding to nearest but for the last.
constexpr unsigned int extendedPrecision = 0x037F;
constexpr unsigned int doublePrecision = 0x027F;
constexpr unsigned int roundingUp = 0x0B7F;

// Of the x87 unit, as the processor has it.
unsigned int controlWord()
{
   unsigned short word;
   asm volatile("fnstcw %0" : "=m"(word));
   return word;
}

void setControlWord(unsigned int value)
{
   auto const word = static_cast<unsigned short>(value);
   asm volatile("fnclex\n\tfldcw %0" : : "m"(word));
}

// Whether exceptions have happened, masked or not.
bool hasExceptions()
{
   unsigned short word;
   asm volatile("fnstsw %0" : "=m"(word));
   return (word & 0x3FU) != 0;
}

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
      EXPECT_FALSE(hasExceptions());
      EXPECT_FALSE(fake::core.meanwhile) << "was not changed";
   }
   fake::core.meanwhile = [] { setControlWord(doublePrecision); };
   fake::core.raises = {exceptionPath + "RTIinternalError"};
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_EQ(controlWord(), doublePrecision);
}

TEST(ControlWordOfAVM, IsTheVMsOwnAsItStarts)
{
   constexpr unsigned int federates = 0x0B40; // exceptions unmasked, rounding up, extended precision
   unsigned int atCreation = 0;
   fake::reset();
   fake::core.lacksClasses = "morva/";
   fake::runtime.alreadyRunning = false;
   fake::runtime.onCreation = [&] { atCreation = controlWord(); };
   for (auto const status : {JNI_ERR, JNI_OK}) {
      fake::runtime.createStatus = status;
      setControlWord(federates);
      EXPECT_THROW(RTIambassadorFactory().createRTIambassador(), RTIinternalError);
      auto const after = controlWord();
      setControlWord(extendedPrecision);
      EXPECT_EQ(atCreation, doublePrecision);
      EXPECT_EQ(after, status == JNI_OK ? federates : doublePrecision);
   }
}

} // namespace
} // namespace contract

#endif
