// Texts between the three forms they travel in: the interface's wide strings (32 bits a character), Java's
// UTF-16, and the bytes of environment variables, standard error and JNI.
#pragma once

#include <jni.h>

#include <cstddef>
#include <string>

namespace tovu1516e {

constexpr bool isHighSurrogate(char32_t unit) noexcept { return (unit & 0xFFFFFC00) == 0xD800; }
constexpr bool isLowSurrogate(char32_t unit) noexcept { return (unit & 0xFFFFFC00) == 0xDC00; }

// The character that takes the place of a wide character that is none.
constexpr char32_t replacementCharacter = 0xFFFD;
constexpr char32_t lastCharacter = 0x10FFFF;

// Calls put(char16_t) for each UTF-16 unit of the text: two for a character beyond U+FFFF.
template <class Put>
void forEachUtf16Unit(std::wstring const& text, Put put)
{
   for (wchar_t const wide : text) {
      auto character = static_cast<char32_t>(wide);
      if (character > 0xFFFF && character <= lastCharacter) {
         character -= 0x10000;
         put(static_cast<char16_t>(0xD800 + (character >> 10)));
         put(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
      } else {
         put(static_cast<char16_t>(character > lastCharacter ? replacementCharacter : character));
      }
   }
}

// The number of UTF-16 units of the text.
inline std::size_t utf16Length(std::wstring const& text) noexcept
{
   std::size_t length = text.size();
   for (wchar_t const wide : text) {
      auto const character = static_cast<char32_t>(wide);
      length += static_cast<std::size_t>(character > 0xFFFF && character <= lastCharacter);
   }
   return length;
}

// Replaces text by that of count UTF-16 units, which unit(i) gives. A surrogate pair becomes one character, a
// lone surrogate stays as it is. Allocates nothing if the capacity of text is count.
template <class Unit>
void assignUtf16(std::wstring& text, std::size_t count, Unit unit)
{
   text.resize(count);
   std::size_t length = 0;
   for (std::size_t i = 0; i < count; ++i) {
      char32_t character = unit(i);
      if (isHighSurrogate(character) && i + 1 < count && isLowSurrogate(unit(i + 1))) {
         character = 0x10000 + ((character - 0xD800) << 10) + (unit(++i) - 0xDC00U);
      }
      text[length++] = static_cast<wchar_t>(character);
   }
   text.resize(length);
}

// Gives the text of a Java string, empty for null. False if the VM has no memory to show it; no Java
// exception is pending in either case.
bool readJavaText(JNIEnv* env, jstring javaText, std::wstring& text);

// Bytes of an environment variable or a class path: each becomes the character of that number.
std::wstring widen(char const* bytes);

// The low 8 bits of each UTF-16 unit.
std::string narrow(std::wstring const& text);

// Texts in the encoding that JNI takes (modified UTF-8). Of bytes given as Latin-1 each becomes the character
// of its number; other narrow text is taken as UTF-8 if it is valid, else as Latin-1.
std::string jniTextOfLatin1(std::string const& bytes);
std::string jniTextOf(std::string const& text);

} // namespace tovu1516e
