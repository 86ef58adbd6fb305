// The x87 control word that a service leaves where Java has changed it.
#if defined(__x86_64__) || defined(__i386__)
#include "tests/contract/ControlWord.h"

#include "tests/faults/FaultFixture.h"

namespace faults {
namespace {

using contract::controlWord;
using ControlWordTest = FaultTest;

TEST_F(ControlWordTest, IsMendedWhereTheCallSucceeds)
{
   fake::core().leavesControlWord = contract::doublePrecision;
   ambassador->enableCallbacks();
   EXPECT_EQ(controlWord(), contract::extendedPrecision);
   fake::core().raises = "hla/rti1516e/exceptions/RTIinternalError";
   EXPECT_THROW(ambassador->enableCallbacks(), RTIinternalError);
   EXPECT_EQ(controlWord(), contract::doublePrecision);
   contract::setControlWord(contract::extendedPrecision);
}

} // namespace
} // namespace faults

#endif
