#include "src/values/Utf16.h"

namespace rti1516e::utf16 {

namespace {

constexpr bool isHighSurrogate(std::uint32_t unit) noexcept { return unit >> 10 == 0xD800 >> 10; }
constexpr bool isLowSurrogate(std::uint32_t unit) noexcept { return unit >> 10 == 0xDC00 >> 10; }

// Makes one character of each pair of surrogates, in place.
void joinPairs(std::wstring& text)
{
   std::size_t kept = 0;
   for (std::size_t i = 0; i < text.size(); ++i, ++kept) {
      std::uint32_t const unit = codeOf(text[i]);
      if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(codeOf(text[i + 1]))) {
         ++i;
         text[kept] = static_cast<wchar_t>(0x10000 + ((unit & 0x3FF) << 10 | (codeOf(text[i]) & 0x3FF)));
      } else {
         text[kept] = text[i];
      }
   }
   text.resize(kept);
}

template <class Unit>
void assignUnits(std::wstring& text, std::size_t units, Unit unitAt)
{
   text.resize(units);
   wchar_t* const characters = text.data();
   std::int16_t surrogates = 0; // as wide as the units, so that as many are tested at once as are taken
   for (std::size_t i = 0; i < units; ++i) {
      std::uint16_t const unit = unitAt(i);
      auto const marked = static_cast<std::int16_t>(unit & 0xF800);
      surrogates |= marked == static_cast<std::int16_t>(0xD800) ? std::int16_t{-1} : std::int16_t{0};
      characters[i] = static_cast<wchar_t>(unit);
   }
   if (surrogates != 0) {
      joinPairs(text);
   }
}

} // namespace

std::size_t length(std::wstring const& text) noexcept
{
   std::uint32_t seen = 0;
   for (wchar_t const character : text) {
      seen |= codeOf(character);
   }
   std::size_t pairs = 0;
   if (seen > lastUnit) {
      for (wchar_t const character : text) {
         pairs += codeOf(character) - (lastUnit + 1) <= lastCharacter - (lastUnit + 1);
      }
   }
   return text.size() + pairs;
}

void store(std::wstring const& text, void* room) noexcept
{
   auto* to = static_cast<unsigned char*>(room);
   forEachUnit(text, [&to](std::uint16_t unit) {
      storeBigEndian(to, unit);
      to += 2;
   });
}

bool storeBasicPlane(std::wstring const& text, void* room) noexcept
{
   auto* const to = static_cast<unsigned char*>(room);
   wchar_t const* const characters = text.data();
   std::size_t const count = text.size();
   std::uint32_t seen = 0;
   for (std::size_t i = 0; i < count; ++i) {
      std::uint32_t const code = codeOf(characters[i]);
      seen |= code;
      storeBigEndian(to + 2 * i, static_cast<std::uint16_t>(code));
   }
   return seen <= lastUnit;
}

void load(std::wstring& text, void const* from, std::size_t units)
{
   auto const* const bytes = static_cast<unsigned char const*>(from);
   assignUnits(text, units, [bytes](std::size_t i) { return loadBigEndian<std::uint16_t>(bytes + 2 * i); });
}

void assign(std::wstring& text, std::uint16_t const* from, std::size_t units)
{
   assignUnits(text, units, [from](std::size_t i) { return from[i]; });
}

} // namespace rti1516e::utf16
