#include "src/jvm/WideText.h"

#include "src/values/Utf16.h"

#include <optional>

namespace tovu1516e {

namespace utf16 = rti1516e::utf16;

namespace {

// Appends a UTF-16 unit in modified UTF-8: three bytes at the most, two for zero, surrogates like any unit.
void appendUnit(std::string& to, std::uint16_t unit)
{
   auto const byte = [&to](unsigned value) { to.push_back(static_cast<char>(value)); };
   if (unit != 0 && unit < 0x80) {
      byte(unit);
   } else if (unit < 0x800) {
      byte(0xC0U | (unit >> 6));
      byte(0x80U | (unit & 0x3FU));
   } else {
      byte(0xE0U | (unit >> 12));
      byte(0x80U | ((unit >> 6) & 0x3FU));
      byte(0x80U | (unit & 0x3FU));
   }
}

// The characters of a UTF-8 text, or nothing if it is not valid.
std::optional<std::wstring> utf8Characters(std::string const& text)
{
   struct Form
   {
      unsigned leadMask, lead, trailing;
      char32_t smallest;
   };
   constexpr Form forms[] = {
      {0x80, 0x00, 0, 0x0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

   std::wstring characters;
   characters.reserve(text.size());
   for (std::size_t i = 0; i < text.size();) {
      auto const lead = static_cast<unsigned char>(text[i++]);
      Form const* form = nullptr;
      for (auto const& candidate : forms) {
         if ((lead & candidate.leadMask) == candidate.lead) {
            form = &candidate;
         }
      }
      if (form == nullptr || text.size() - i < form->trailing) {
         return std::nullopt;
      }
      char32_t character = lead & ~form->leadMask;
      for (unsigned n = 0; n < form->trailing; ++n) {
         auto const trailing = static_cast<unsigned char>(text[i++]);
         if ((trailing & 0xC0) != 0x80) {
            return std::nullopt;
         }
         character = (character << 6) | (trailing & 0x3F);
      }
      if (character < form->smallest || character > utf16::lastCharacter || utf16::isSurrogate(character)) {
         return std::nullopt;
      }
      characters.push_back(static_cast<wchar_t>(character));
   }
   return characters;
}

} // namespace

bool readJavaText(JNIEnv* env, jstring javaText, std::wstring& text)
{
   if (javaText == nullptr) {
      text.clear();
      return true;
   }
   auto const length = static_cast<std::size_t>(env->GetStringLength(javaText));
   text.resize(length); // nothing is allocated while the units are pinned
   jchar const* const units = env->GetStringCritical(javaText, nullptr);
   if (units == nullptr) {
      env->ExceptionClear();
      text.clear();
      return false;
   }
   utf16::assign(text, units, length);
   env->ReleaseStringCritical(javaText, units);
   return true;
}

std::wstring widen(char const* bytes)
{
   std::wstring text;
   for (; *bytes != '\0'; ++bytes) {
      text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(*bytes)));
   }
   return text;
}

std::string narrow(std::wstring const& text)
{
   std::string bytes;
   bytes.reserve(text.size());
   utf16::forEachUnit(text,
                      [&bytes](std::uint16_t unit) { bytes.push_back(static_cast<char>(unit & 0xFF)); });
   return bytes;
}

std::string jniTextOfLatin1(std::string const& bytes)
{
   std::string text;
   text.reserve(bytes.size());
   for (char const byte : bytes) {
      appendUnit(text, static_cast<unsigned char>(byte));
   }
   return text;
}

std::string jniTextOf(std::string const& text)
{
   auto const characters = utf8Characters(text);
   if (!characters) {
      return jniTextOfLatin1(text);
   }
   std::string result;
   result.reserve(text.size());
   utf16::forEachUnit(*characters, [&result](std::uint16_t unit) { appendUnit(result, unit); });
   return result;
}

} // namespace tovu1516e
