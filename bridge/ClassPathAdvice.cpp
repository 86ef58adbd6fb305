#include "bridge/ClassPathAdvice.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <sstream>
#include <system_error>

namespace tovu1516e {
namespace {

namespace fs = std::filesystem;

// The local core's jar where it is installed with this library, or else the plain name of such a jar.
std::string coreJar()
{
   Dl_info library{};
   if (dladdr(reinterpret_cast<void*>(&classPathAdvice), &library) != 0 && library.dli_fname != nullptr) {
      std::error_code failure;
      fs::path const folder = fs::canonical(library.dli_fname, failure).parent_path();
      fs::path const jar = folder.parent_path() / "share/rti1516e/tovu1516e.jar";
      if (!failure && fs::exists(jar, failure)) {
         return jar.string();
      }
   }
   return "<where it is>/tovu1516e.jar";
}

// A line for each file that the class path names and that is not there.
std::string missingFiles(std::string const& classPath)
{
   std::string lines;
   std::istringstream names(classPath);
   for (std::string name; std::getline(names, name, ':');) {
      bool const isPattern = !name.empty() && name.back() == '*';
      if (std::error_code failure; !name.empty() && !isPattern && !fs::exists(name, failure)) {
         lines += "There is no file " + name + "\n";
      }
   }
   return lines;
}

} // namespace

std::string classPathAdvice()
{
   char const* const value = std::getenv("CLASSPATH");
   std::string const classPath(value != nullptr ? value : "");
   std::string advice = missingFiles(classPath);
   if (classPath.empty()) {
      advice = "The environment variable CLASSPATH is not set.\n";
   } else if (advice.empty()) {
      advice = "None of these is the jar of a core for this library.\n";
   }
   return advice + "Set it before the program starts: export CLASSPATH=" + coreJar() + "\n";
}

} // namespace tovu1516e
