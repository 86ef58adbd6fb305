#include "ManagementValues.h"

#include "Story.h"
#include "src/values/BigEndian.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>

namespace system_tests {

namespace {

constexpr std::size_t word = 4;

std::string integer(std::size_t value)
{
   std::string bytes(word, '\0');
   rti1516e::storeBigEndian(&bytes[0], static_cast<std::uint32_t>(value));
   return bytes;
}

std::string aligned(std::string const& bytes)
{
   return bytes + std::string((word - bytes.size() % word) % word, '\0');
}

// An array of elements that are written already.
std::string array(std::vector<std::string> const& elements)
{
   std::string bytes = integer(elements.size());
   for (auto const& each : elements) {
      bytes = aligned(bytes) + each;
   }
   return bytes;
}

// Reads values one after the other.
class Reader
{
public:
   explicit Reader(std::string const& bytes) : _bytes(bytes) {}

   bool atEnd() const { return _position == _bytes.size(); }

   bool integer(std::string& shown)
   {
      shown = ":" + std::to_string(static_cast<std::int32_t>(next()));
      return _good;
   }

   bool text(std::string& shown)
   {
      shown = "'";
      for (std::size_t left = next(); left > 0 && _good; --left) {
         _good =
            _position + 2 <= _bytes.size() && _bytes[_position] == 0 && std::isprint(_bytes[_position + 1]);
         if (_good) {
            char const character = _bytes[_position + 1];
            shown += character == ' ' ? '_' : character;
         }
         _position += 2;
      }
      std::size_t const firstEnd = shown.find('_');
      bool const isLong = std::count(shown.begin(), shown.end(), '_') > 3;
      shown = (isLong ? shown.substr(0, firstEnd) + "..." : shown) + "'";
      return _good;
   }

   bool handle(std::string& shown)
   {
      _good = next() == word && _good;
      shown = "#" + std::to_string(next());
      return _good;
   }

   bool handleAndInteger(std::string& shown)
   {
      std::string second;
      bool const is = handle(shown) && integer(second);
      shown += "+" + second;
      return is;
   }

   bool bytes(std::string& shown)
   {
      std::size_t const length = next();
      _good = _good && _position + length == _bytes.size();
      shown = "x";
      for (; _good && !atEnd(); ++_position) {
         char digits[3];
         std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(_bytes[_position]));
         shown += digits;
      }
      return _good;
   }

   template <bool (Reader::*element)(std::string&)>
   bool listOf(std::string& shown)
   {
      shown.clear();
      for (std::size_t left = next(); left > 0 && _good; --left) {
         std::string each;
         _good = (this->*element)(each);
         shown += (shown.empty() ? "(" : ",") + each;
      }
      shown += ")";
      return _good;
   }

private:
   std::uint32_t next()
   {
      _position = (_position + word - 1) / word * word;
      _good = _good && _position + word <= _bytes.size();
      std::uint32_t const value = _good ? rti1516e::loadBigEndian<std::uint32_t>(&_bytes[_position]) : 0;
      _position += word;
      return value;
   }

   std::string const& _bytes;
   std::size_t _position = 0;
   bool _good = true;
};

} // namespace

std::string writtenManagementValue(std::string const& text)
{
   std::size_t const size = text.size();
   if (size > 2 && text.front() == '(' && text.back() == ')') {
      std::vector<std::string> elements = split(text.substr(1, size - 2), ',');
      std::transform(elements.begin(), elements.end(), elements.begin(), writtenManagementValue);
      return array(elements);
   }
   if (size > 1 && text[0] == ':') {
      return integer(static_cast<std::size_t>(std::stol(text.substr(1))));
   }
   if (size > 1 && text[0] == '#') {
      return integer(word) + integer(std::stoul(text.substr(1)));
   }
   if (size > 1 && text.front() == '\'' && text.back() == '\'') {
      std::string bytes = integer(size - 2);
      for (char const character : text.substr(1, size - 2)) {
         bytes += {'\0', character == '_' ? ' ' : character};
      }
      return bytes;
   }
   if (size > 1 && text[0] == 'x' && size % 2 == 1) {
      std::string bytes = integer(size / 2);
      for (std::size_t i = 1; i < size; i += 2) {
         bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
      }
      return bytes;
   }
   return {};
}

std::string shownManagementValue(std::string const& bytes)
{
   if (bytes.find('\0') == std::string::npos) {
      return {};
   }
   using Kind = bool (Reader::*)(std::string&);
   static Kind const kinds[] = {&Reader::integer,
                                &Reader::text,
                                &Reader::handle,
                                &Reader::bytes,
                                &Reader::listOf<&Reader::text>,
                                &Reader::listOf<&Reader::handle>,
                                &Reader::listOf<&Reader::handleAndInteger>};
   for (Kind const kind : kinds) {
      Reader reader(bytes);
      std::string shown;
      if ((reader.*kind)(shown) && reader.atEnd()) {
         return shown;
      }
   }
   return "(" + std::to_string(bytes.size()) + "-bytes)";
}

} // namespace system_tests
