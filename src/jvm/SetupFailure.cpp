#include "src/jvm/SetupFailure.h"

#include "src/jvm/WideText.h"

#include <RTI/Exception.h>

#include <cstdio>

namespace tovu1516e {

void failSetup(std::wstring const& message, std::string const& advice)
{
   auto text = formatWithoutArguments(narrow(message));
   if (!advice.empty()) {
      text += '\n' + advice;
   }
   std::fwrite(text.data(), 1, text.size(), stderr);
   std::fflush(stderr);
   throw rti1516e::RTIinternalError(message);
}

std::string formatWithoutArguments(std::string const& format)
{
   std::string text;
   text.reserve(format.size());
   for (std::size_t i = 0; i < format.size(); ++i) {
      text.push_back(format[i]);
      if (format[i] == '%' && i + 1 < format.size() && format[i + 1] == '%') {
         ++i;
      }
   }
   return text;
}

} // namespace tovu1516e
