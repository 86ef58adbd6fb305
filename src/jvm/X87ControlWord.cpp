#include "src/jvm/X87ControlWord.h"

namespace tovu1516e {
namespace {

struct MaskBit
{
   std::uint32_t abstract;
   std::uint16_t processor;
};

constexpr MaskBit maskBits[] = {{x87::maskInvalid, 0x01},     {x87::maskDenormal, 0x02},
                                {x87::maskZeroDivide, 0x04},  {x87::maskOverflow, 0x08},
                                {x87::maskUnderflow, 0x10},   {x87::maskInexact, 0x20},
                                {x87::affineInfinity, 0x1000}};

// Both sides number the roundings alike, two bits apart; the precisions run the other way round.
constexpr int roundingShift = 2;
constexpr std::uint16_t processorPrecision24 = 0x0000;
constexpr std::uint16_t processorPrecision53 = 0x0200;
constexpr std::uint16_t processorPrecision64 = 0x0300;
constexpr std::uint16_t processorPrecisionField = 0x0300;
constexpr std::uint32_t precision53 = 0x00010000;
constexpr std::uint32_t precision24 = 0x00020000;
constexpr std::uint16_t processorFields = 0x1F3F;

std::uint32_t abstractWord(std::uint16_t word) noexcept
{
   std::uint32_t abstract = (static_cast<std::uint32_t>(word) >> roundingShift) & x87::roundingField;
   for (auto const& bit : maskBits) {
      if ((word & bit.processor) != 0) {
         abstract |= bit.abstract;
      }
   }
   switch (word & processorPrecisionField) {
   case processorPrecision53:
      return abstract | precision53;
   case processorPrecision24:
      return abstract | precision24;
   default:
      return abstract;
   }
}

std::uint16_t processorWord(std::uint32_t abstract) noexcept
{
   unsigned word = (abstract & x87::roundingField) << roundingShift;
   for (auto const& bit : maskBits) {
      if ((abstract & bit.abstract) != 0) {
         word |= bit.processor;
      }
   }
   switch (abstract & x87::precisionField) {
   case precision53:
      word |= processorPrecision53;
      break;
   case precision24:
      word |= processorPrecision24;
      break;
   default:
      word |= processorPrecision64;
   }
   return static_cast<std::uint16_t>(word);
}

} // namespace

std::uint32_t control87(std::uint32_t value, std::uint32_t mask) noexcept
{
   std::uint16_t const word = readX87();
   std::uint32_t const before = abstractWord(word);
   std::uint32_t const after = (before & ~mask) | (value & mask);
   if (after != before) {
      loadX87(static_cast<std::uint16_t>((word & ~processorFields) | processorWord(after)));
   }
   return abstractWord(readX87());
}

} // namespace tovu1516e
