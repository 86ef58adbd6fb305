#include "src/jvm/VMOptions.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace tovu1516e {
namespace {

constexpr char const* optionFile = "tovu.vmoptions";
constexpr std::size_t roomForOptions = 50; // the default of the stack size may come on top
constexpr int environmentOptions = 19;
constexpr char const* stackSizeOption = "-Xss";
constexpr char const* defaultStackSize = "-Xss1024k";

std::string ifSet(char const* variable, char const* option)
{
   return std::getenv(variable) != nullptr ? option : "";
}

void appendLinesOfOptionFile(std::vector<std::string>& options)
{
   std::ifstream file(optionFile);
   for (std::string line; options.size() < roomForOptions && std::getline(file, line);) {
      if (!line.empty() && line.front() != '#') {
         options.push_back(line);
      }
   }
}

} // namespace

std::vector<std::string> vmOptions()
{
   char const* const classPath = std::getenv("CLASSPATH");
   std::vector<std::string> options{
      std::string("-Djava.class.path=") + (classPath != nullptr ? classPath : ""),
      "-DTovu.libraryName=rti1516",
      ifSet("TOVU_ENABLEBUNDLING", "-DenableBundling=true"),
      ifSet("TOVU_SINGLETHREAD", "-Dsinglethread=true"),
      ifSet("TOVU_VERBOSEJNI", "-verbose:jni"),
   };
   for (int n = 1; n <= environmentOptions; ++n) {
      auto const variable = "TOVU1516_OPTION" + std::to_string(n);
      if (char const* const option = std::getenv(variable.c_str()); option != nullptr) {
         options.emplace_back(option);
      }
   }
   appendLinesOfOptionFile(options);

   auto const setsStackSize = [](std::string const& option) { return option.rfind(stackSizeOption, 0) == 0; };
   if (std::none_of(options.begin(), options.end(), setsStackSize)) {
      options.emplace_back(defaultStackSize);
   }
   return options;
}

} // namespace tovu1516e
