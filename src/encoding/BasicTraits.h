// What the basic elements differ in: the traits of each, which tell how the value stands in octets and what
// it hashes to. Traits have
//   boundary, fixedLength    the octet boundary, and the encoded length or 0 if it depends on the value
//   length(value)            the encoded length
//   room(value)              the same for nearly every value, told at once; never more
//   write(value, room)       writes the encoding into room of that length; a text writes itself to an Output,
//                            as a body does, with the padding in front of it
//   read(value, from, left)  takes the value from the octets, of which there are `left`, no fewer than the
//                            boundary, and returns the encoded length; fails without changing the value
//   hash(value)              in 32 bits
#pragma once

#include "src/encoding/Failure.h"
#include "src/encoding/Output.h"
#include "src/values/BigEndian.h"
#include "src/values/Utf16.h"

#include <RTI/encoding/BasicDataElements.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

namespace rti1516e {

constexpr std::uint32_t mixed(std::uint32_t bits) noexcept { return bits ^ 0xDEADBEEF; }

// The bits of an integer extended by its sign, or cut, to 32.
template <class Integer>
constexpr std::uint32_t low32(Integer value) noexcept
{
   return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
}

// A char whatever its sign on this machine.
constexpr std::uint32_t low32(char octet) noexcept { return low32(static_cast<signed char>(octet)); }

// Values of one length, which is their boundary too.
template <class Traits, class Type, unsigned int octets>
struct FixedTraits
{
   using Value = Type;
   static constexpr unsigned int boundary = octets;
   static constexpr unsigned int fixedLength = octets;

   static constexpr std::size_t length(Value const&) noexcept { return fixedLength; }
   static constexpr std::size_t room(Value const&) noexcept { return fixedLength; }

   static std::size_t read(Value& value, char const* from, std::size_t) noexcept
   {
      value = Traits::load(from);
      return fixedLength;
   }
};

template <class Number, ByteOrder order>
struct NumberTraits : FixedTraits<NumberTraits<Number, order>, Number, sizeof(Number)>
{
   using Bits = std::conditional_t<sizeof(Number) == 2, std::uint16_t,
                                   std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>>;
   static_assert(sizeof(Bits) == sizeof(Number));

   static void write(Number value, char* room) noexcept
   {
      Bits bits;
      std::memcpy(&bits, &value, sizeof bits);
      store<order>(room, bits);
   }

   static Number load(char const* from) noexcept
   {
      auto const bits = rti1516e::load<order, Bits>(from);
      Number value;
      std::memcpy(&value, &bits, sizeof value);
      return value;
   }

   static std::uint32_t hash(Number value) noexcept
   {
      if constexpr (std::is_floating_point_v<Number>) {
         // What no 64-bit integer is near to, not a number included, truncates to 0.
         bool const fits = value >= static_cast<Number>(-0x1p63) && value < static_cast<Number>(0x1p63);
         return mixed(low32(fits ? static_cast<std::int64_t>(value) : 0));
      } else {
         return mixed(low32(value));
      }
   }
};

struct OctetTraits : FixedTraits<OctetTraits, char, 1>
{
   static void write(char value, char* room) noexcept { *room = value; }
   static char load(char const* from) noexcept { return *from; }
   static std::uint32_t hash(char value) noexcept { return mixed(low32(value)); }
};

template <ByteOrder order>
struct OctetPairTraits : FixedTraits<OctetPairTraits<order>, OctetPair, 2>
{
   static constexpr std::size_t placeOfFirst = order == ByteOrder::big ? 0 : 1;

   static void write(OctetPair value, char* room) noexcept
   {
      room[placeOfFirst] = value.first;
      room[1 - placeOfFirst] = value.second;
   }
   static OctetPair load(char const* from) noexcept { return {from[placeOfFirst], from[1 - placeOfFirst]}; }
   static std::uint32_t hash(OctetPair value) noexcept
   {
      return mixed((low32(value.first) << 8) + low32(value.second));
   }
};

struct BooleanTraits : FixedTraits<BooleanTraits, bool, 4>
{
   static void write(bool value, char* room) noexcept
   {
      storeBigEndian(room, static_cast<std::uint32_t>(value));
   }
   static bool load(char const* from) noexcept { return loadBigEndian<std::uint32_t>(from) == 1; }
   static std::uint32_t hash(bool value) noexcept { return mixed(static_cast<std::uint32_t>(value)); }
};

struct UnicodeCharTraits : FixedTraits<UnicodeCharTraits, wchar_t, 2>
{
   static void write(wchar_t value, char* room)
   {
      if (utf16::codeOf(value) > utf16::lastUnit) {
         failure::raise(failure::notInBasicPlane);
      }
      storeBigEndian(room, static_cast<std::uint16_t>(value));
   }
   static wchar_t load(char const* from) noexcept
   {
      return static_cast<wchar_t>(loadBigEndian<std::uint16_t>(from));
   }
   static std::uint32_t hash(wchar_t value) noexcept { return mixed(utf16::codeOf(value)); }
};

// Texts: a count of units and the units.
template <class Traits, class Text, std::size_t unitLength>
struct TextTraits
{
   using Value = Text;
   static constexpr unsigned int boundary = 4;
   static constexpr unsigned int fixedLength = 0;

   static std::size_t length(Text const& text) noexcept { return 4 + Traits::units(text) * unitLength; }
   static std::size_t room(Text const& text) noexcept { return 4 + text.size() * unitLength; }

   // The count is compared with the octets from the count on, and only then is what it counts looked for.
   static std::size_t read(Text& text, char const* from, std::size_t left)
   {
      std::size_t const units = loadBigEndian<std::uint32_t>(from);
      if (units > left) {
         failure::raise(failure::arrayIndexOutOfBounds);
      }
      if (units > (left - 4) / unitLength) {
         failure::raise(failure::indexOutOfBounds);
      }
      Traits::load(text, from + 4, units);
      return 4 + units * unitLength;
   }

   // FNV-1 in 32 bits.
   static std::uint32_t hash(Text const& text) noexcept
   {
      std::uint32_t hash = 0x811C9DC5;
      Traits::forEachUnit(text, [&hash](std::uint32_t unit) { hash = hash * 16777619 ^ unit; });
      return hash;
   }
};

struct AsciiStringTraits : TextTraits<AsciiStringTraits, std::string, 1>
{
   static std::size_t units(std::string const& text) noexcept { return text.size(); }
   static std::size_t write(std::string const& text, Output& out, std::size_t index)
   {
      return out.counted(index, text.data(), text.size());
   }
   static void load(std::string& text, char const* from, std::size_t units) { text.assign(from, units); }
   template <class Use>
   static void forEachUnit(std::string const& text, Use use)
   {
      for (char const character : text) {
         use(low32(character));
      }
   }
};

struct UnicodeStringTraits : TextTraits<UnicodeStringTraits, std::wstring, 2>
{
   static std::size_t units(std::wstring const& text) noexcept { return utf16::length(text); }
   static std::size_t write(std::wstring const& text, Output& out, std::size_t index)
   {
      index = alignInMemory(index, boundary);
      char* room = nullptr;
      std::size_t const units = utf16::storeText(text, [&](std::size_t number) {
         room = out.at(index, 4 + 2 * number);
         return room + 4;
      });
      storeBigEndian(room, checkedCount(units));
      return index + 4 + 2 * units;
   }
   static void load(std::wstring& text, char const* from, std::size_t units)
   {
      utf16::load(text, from, units);
   }
   template <class Use>
   static void forEachUnit(std::wstring const& text, Use use)
   {
      utf16::forEachUnit(text, use);
   }
};

// The traits of each.
template <class Element>
struct TraitsOf;
// clang-format off
template <> struct TraitsOf<HLAASCIIchar>     : OctetTraits {};
template <> struct TraitsOf<HLAASCIIstring>   : AsciiStringTraits {};
template <> struct TraitsOf<HLAboolean>       : BooleanTraits {};
template <> struct TraitsOf<HLAbyte>          : OctetTraits {};
template <> struct TraitsOf<HLAfloat32BE>     : NumberTraits<float, ByteOrder::big> {};
template <> struct TraitsOf<HLAfloat32LE>     : NumberTraits<float, ByteOrder::little> {};
template <> struct TraitsOf<HLAfloat64BE>     : NumberTraits<double, ByteOrder::big> {};
template <> struct TraitsOf<HLAfloat64LE>     : NumberTraits<double, ByteOrder::little> {};
template <> struct TraitsOf<HLAinteger16BE>   : NumberTraits<Integer16, ByteOrder::big> {};
template <> struct TraitsOf<HLAinteger16LE>   : NumberTraits<Integer16, ByteOrder::little> {};
template <> struct TraitsOf<HLAinteger32BE>   : NumberTraits<Integer32, ByteOrder::big> {};
template <> struct TraitsOf<HLAinteger32LE>   : NumberTraits<Integer32, ByteOrder::little> {};
template <> struct TraitsOf<HLAinteger64BE>   : NumberTraits<Integer64, ByteOrder::big> {};
template <> struct TraitsOf<HLAinteger64LE>   : NumberTraits<Integer64, ByteOrder::little> {};
template <> struct TraitsOf<HLAoctet>         : OctetTraits {};
template <> struct TraitsOf<HLAoctetPairBE>   : OctetPairTraits<ByteOrder::big> {};
template <> struct TraitsOf<HLAoctetPairLE>   : OctetPairTraits<ByteOrder::little> {};
template <> struct TraitsOf<HLAunicodeChar>   : UnicodeCharTraits {};
template <> struct TraitsOf<HLAunicodeString> : UnicodeStringTraits {};
// clang-format on

} // namespace rti1516e
