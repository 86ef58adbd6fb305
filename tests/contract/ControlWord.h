// The control word of the x87 unit, as the processor has it.
#pragma once

namespace contract {

// All exceptions masked, rounding to nearest but for the last.
constexpr unsigned int extendedPrecision = 0x037F;
constexpr unsigned int doublePrecision = 0x027F;
constexpr unsigned int roundingUp = 0x0B7F;

inline unsigned int controlWord()
{
   unsigned short word;
   asm volatile("fnstcw %0" : "=m"(word));
   return word;
}

inline void setControlWord(unsigned int value)
{
   auto const word = static_cast<unsigned short>(value);
   asm volatile("fnclex\n\tfldcw %0" : : "m"(word));
}

// The exceptions that have happened, masked or not.
inline unsigned int pendingExceptions()
{
   unsigned short word;
   asm volatile("fnstsw %0" : "=m"(word));
   return word & 0x3FU;
}

} // namespace contract
