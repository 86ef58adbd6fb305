#include "Text.h"

#include "src/values/BigEndian.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>

namespace system_tests {

namespace {

// The texts of numbers and handles: their class, and in brackets their number.
std::string inBrackets(std::wstring const& text)
{
   std::size_t const open = text.find(L'<');
   return narrow(text.substr(open + 1, text.find(L'>') - open - 1));
}

// A HLAunicodeString, in which _ stands for blanks and of which only the first word is shown when it has
// many; or nothing if it is none.
std::string unicode(std::string const& bytes)
{
   constexpr std::size_t count = 4;
   bool is = bytes.size() > count && loadBigEndian<std::uint32_t>(bytes.data()) == (bytes.size() - count) / 2;
   std::string text;
   for (std::size_t i = count; is && i + 1 < bytes.size(); i += 2) {
      is = bytes[i] == 0 && bytes[i + 1] >= ' ';
      text += bytes[i + 1] == ' ' ? '_' : bytes[i + 1];
   }
   bool const isLong = std::count(text.begin(), text.end(), '_') > 3;
   return is ? "'" + (isLong ? text.substr(0, text.find('_')) + "..." : text) + "'" : "";
}

std::string hexadecimal(std::string const& bytes)
{
   std::string text = "x";
   for (char const byte : bytes) {
      text += "0123456789abcdef"[static_cast<unsigned char>(byte) / 16];
      text += "0123456789abcdef"[static_cast<unsigned char>(byte) % 16];
   }
   return text;
}

} // namespace

std::string narrow(std::wstring const& text)
{
   std::string result;
   for (wchar_t const character : text) {
      result += character > 0 && character < 128 ? static_cast<char>(character) : '?';
   }
   return result;
}

std::wstring wide(std::string const& text) { return std::wstring(text.begin(), text.end()); }

VariableLengthData bytes(std::string const& text)
{
   return VariableLengthData(text.data(), static_cast<unsigned int>(text.size()));
}

std::string trimmed(std::string const& text)
{
   std::size_t const first = text.find_first_not_of(' ');
   return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> split(std::string const& text, char at)
{
   std::vector<std::string> parts;
   std::istringstream in(text);
   for (std::string part; std::getline(in, part, at);) {
      parts.push_back(trimmed(part));
   }
   return parts;
}

std::vector<std::string> wordsOf(std::string const& text)
{
   std::vector<std::string> words;
   std::istringstream in(text);
   for (std::string word; in >> std::quoted(word);) {
      words.push_back(word);
   }
   return words;
}

std::string joined(std::vector<std::string> const& words, std::string const& between)
{
   std::string text;
   for (auto const& word : words) {
      text += (text.empty() ? "" : between) + word;
   }
   return text;
}

std::string nameInStories(std::string const& name)
{
   static std::set<std::string> const verbs = {"publish",  "unpublish", "subscribe", "unsubscribe",
                                               "register", "update",    "send",      "delete",
                                               "discover", "reflect",   "receive",   "remove"};
   std::string const verb = name.substr(0, name.find_first_of("AIO")); // attributes, interactions, objects
   return verbs.count(verb) != 0 ? verb : name;
}

std::string show(VariableLengthData const& data)
{
   std::string const characters(static_cast<char const*>(data.data()), data.size());
   if (characters.find('\0') == std::string::npos) {
      return characters;
   }
   std::string const text = unicode(characters);
   return text.empty() ? hexadecimal(characters) : text;
}
std::string show(LogicalTime const& time)
{
   auto const* const number = dynamic_cast<HLAfloat64Time const*>(&time);
   return number != nullptr ? show(number->getTime()) : inBrackets(time.toString());
}
std::string show(LogicalTimeInterval const& interval)
{
   auto const* const number = dynamic_cast<HLAfloat64Interval const*>(&interval);
   return number != nullptr ? show(number->getInterval()) : inBrackets(interval.toString());
}
std::string show(double value)
{
   char text[32];
   return std::string(text, std::to_chars(text, std::end(text), value).ptr); // with all its digits
}

// A handle's own text does not tell its kind.
#define SYSTEM_TESTS_SHOW(Handle) \
   std::string show(Handle const& handle) { return #Handle "<" + inBrackets(handle.toString()) + ">"; }
RTI_FOR_EACH_HANDLE(SYSTEM_TESTS_SHOW)
#undef SYSTEM_TESTS_SHOW

std::string Names::in(std::string const& text) const
{
   std::lock_guard<std::mutex> const lock(_mutex);
   std::string named;
   for (std::size_t start = 0, end = 0; start < text.size(); start = end + 1) {
      end = std::min(text.find_first_of(" (){}=,", start), text.size());
      std::string const word = text.substr(start, end - start);
      auto const found = _names.find(word);
      named += (found == _names.end() ? word : found->second) + text.substr(end, 1);
   }
   std::size_t open = 0;
   while ((open = named.find('{', open)) != std::string::npos) {
      std::size_t const close = named.find('}', open);
      auto words = wordsOf(named.substr(open + 1, close - open - 1));
      std::sort(words.begin(), words.end());
      std::string const list = joined(words);
      named.replace(open, close - open + 1, list);
      open += list.size();
   }
   return named;
}

} // namespace system_tests
