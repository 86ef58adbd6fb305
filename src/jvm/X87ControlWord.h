// The control word of the x87 floating-point unit. A Java VM and a federate may want it different, so every
// crossing between the two keeps it. On a processor without that unit the word is always 0.
#pragma once

#include <cstdint>

namespace tovu1516e {

#if defined(__x86_64__) || defined(__i386__)

// The word as the processor has it.
inline std::uint16_t readX87() noexcept
{
   std::uint16_t word;
   __asm__ __volatile__("fnstcw %0" : "=m"(word));
   return word;
}

inline void loadX87(std::uint16_t word) noexcept { __asm__ __volatile__("fldcw %0" : : "m"(word)); }

// Clears pending floating-point exceptions, which loading a word that unmasks them would raise.
inline void clearfp() noexcept { __asm__ __volatile__("fnclex"); }

#else

inline std::uint16_t readX87() noexcept { return 0; }
inline void loadX87(std::uint16_t) noexcept {}
inline void clearfp() noexcept {}

#endif

// Bits of the control word independent of the processor, and the fields they form.
namespace x87 {
constexpr std::uint32_t maskInexact = 0x00000001;
constexpr std::uint32_t maskUnderflow = 0x00000002;
constexpr std::uint32_t maskOverflow = 0x00000004;
constexpr std::uint32_t maskZeroDivide = 0x00000008;
constexpr std::uint32_t maskInvalid = 0x00000010;
constexpr std::uint32_t maskDenormal = 0x00080000;
constexpr std::uint32_t roundingField = 0x00000300;  // 0 nearest, 0x100 down, 0x200 up, 0x300 toward zero
constexpr std::uint32_t precisionField = 0x00030000; // 0 is 64 bits, 0x10000 53 bits, 0x20000 24 bits
constexpr std::uint32_t affineInfinity = 0x00040000;
} // namespace x87

// Replaces the bits of the control word that are set in mask by those of value, and returns the word as it
// then is. The two bits of denormal control are accepted and read as 0: the x87 unit has none.
std::uint32_t control87(std::uint32_t value, std::uint32_t mask) noexcept;

// Holds the control word of the caller while the other side runs.
class X87Keeper
{
public:
   X87Keeper() noexcept : _word(readX87()) {}

   void restoreIfChanged() const noexcept
   {
      if (readX87() != _word) {
         clearfp();
         loadX87(_word);
      }
   }

private:
   std::uint16_t _word;
};

} // namespace tovu1516e
