// Wide texts, whose characters have 32 bits, and the 16-bit code units of UTF-16 that they travel as.
#pragma once

#include "src/values/BigEndian.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace rti1516e::utf16 {

static_assert(sizeof(wchar_t) == 4, "the conversions below take wide characters for whole characters");

inline constexpr std::uint32_t lastUnit = 0xFFFF;
inline constexpr std::uint32_t lastCharacter = 0x10FFFF;
inline constexpr std::uint32_t replacement = 0xFFFD;

// One unit of a pair.
constexpr bool isSurrogate(std::uint32_t unit) noexcept { return unit >> 11 == 0xD800 >> 11; }

constexpr std::uint32_t codeOf(wchar_t character) noexcept { return static_cast<std::uint32_t>(character); }

// Calls `use` with each code unit of the text. A character beyond U+FFFF is two, and what is no character at
// all is the replacement character.
template <class Use>
void forEachUnit(std::wstring const& text, Use use)
{
   for (wchar_t const character : text) {
      std::uint32_t const code = codeOf(character);
      if (code <= lastUnit) {
         use(static_cast<std::uint16_t>(code));
      } else if (code <= lastCharacter) {
         use(static_cast<std::uint16_t>(0xD7C0 + (code >> 10)));
         use(static_cast<std::uint16_t>(0xDC00 + (code & 0x3FF)));
      } else {
         use(static_cast<std::uint16_t>(replacement));
      }
   }
}

// The number of code units.
std::size_t length(std::wstring const& text) noexcept;

// Writes the code units, big-endian.
void store(std::wstring const& text, void* room) noexcept;

// The same for a text of characters of one unit each, in a fraction of the time. Returns false if it is none;
// then the room, for as many units as there are characters, holds nothing of worth.
bool storeBasicPlane(std::wstring const& text, void* room) noexcept;

// Writes the code units into what makeRoom(their number) gives, and returns their number. Nearly every text
// is one unit a character; for another one makeRoom is called a second time.
template <class MakeRoom>
std::size_t storeText(std::wstring const& text, MakeRoom makeRoom)
{
   std::size_t units = text.size();
   if (!storeBasicPlane(text, makeRoom(units))) {
      units = length(text);
      store(text, makeRoom(units));
   }
   return units;
}

// Replaces the text by the characters of so many big-endian code units, or of code units as the processor has
// them. A lone surrogate stays what it is. Nothing is allocated if the text has the capacity for as many
// characters.
void load(std::wstring& text, void const* from, std::size_t units);
void assign(std::wstring& text, std::uint16_t const* from, std::size_t units);

} // namespace rti1516e::utf16
