// Bytes of messages and results as the tests write them down, independent of the library's encoder.
#pragma once

#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

namespace contract {

class Bytes
{
public:
   Bytes() = default;

   // From pairs of hexadecimal digits; blanks are for the reader.
   explicit Bytes(std::string const& hexadecimal)
   {
      std::string digits;
      for (char const c : hexadecimal) {
         if (c != ' ') {
            digits += c;
         }
      }
      for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
         byte(static_cast<unsigned int>(std::stoul(digits.substr(i, 2), nullptr, 16)));
      }
   }

   Bytes(void const* data, std::size_t size)
      : _content(static_cast<unsigned char const*>(data), static_cast<unsigned char const*>(data) + size)
   {}

   Bytes& byte(unsigned int value)
   {
      _content.push_back(static_cast<unsigned char>(value));
      return *this;
   }

   Bytes& int16(unsigned int value) { return byte(value >> 8 & 0xFFU).byte(value & 0xFFU); }

   Bytes& int32(std::uint32_t value) { return int16(value >> 16).int16(value & 0xFFFFU); }

   Bytes& int64(std::uint64_t value)
   {
      return int32(static_cast<std::uint32_t>(value >> 32)).int32(static_cast<std::uint32_t>(value));
   }

   Bytes& real(double value)
   {
      std::uint64_t bits;
      std::memcpy(&bits, &value, sizeof bits);
      return int64(bits);
   }

   // The compiler has made the UTF-16.
   Bytes& text(std::u16string const& value)
   {
      int32(static_cast<std::uint32_t>(value.size()));
      for (char16_t const unit : value) {
         int16(unit);
      }
      return *this;
   }

   // With the length before them.
   Bytes& counted(Bytes const& bytes)
   {
      return int32(static_cast<std::uint32_t>(bytes.size())).append(bytes);
   }

   Bytes& append(Bytes const& bytes)
   {
      _content.insert(_content.end(), bytes._content.begin(), bytes._content.end());
      return *this;
   }

   unsigned char const* data() const { return _content.data(); }
   std::size_t size() const { return _content.size(); }

   // The first four bytes as a number.
   std::uint32_t leadingInt() const
   {
      std::uint32_t value = 0;
      for (std::size_t i = 0; i < 4; ++i) {
         value = value << 8 | _content.at(i);
      }
      return value;
   }

   Bytes from(std::size_t position) const { return {_content.data() + position, _content.size() - position}; }

   std::string hexadecimal() const
   {
      static char const digits[] = "0123456789abcdef";
      std::string text;
      for (auto const byte : _content) {
         text += digits[byte >> 4];
         text += digits[byte & 0xFU];
      }
      return text;
   }

   friend bool operator==(Bytes const& left, Bytes const& right) { return left._content == right._content; }

   friend std::ostream& operator<<(std::ostream& stream, Bytes const& bytes)
   {
      constexpr std::size_t shown = 256;
      auto const hexadecimal = bytes.hexadecimal();
      return stream << bytes.size() << " bytes: " << hexadecimal.substr(0, 2 * shown)
                    << (hexadecimal.size() > 2 * shown ? "..." : "");
   }

private:
   std::vector<unsigned char> _content;
};

} // namespace contract
