#include "src/jvm/ClassPathAdvice.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <unistd.h>

namespace tovu1516e {
namespace {

namespace fs = std::filesystem;

// The local core's jar where it is installed with this library, or else the plain name of such a jar.
std::string coreJar()
{
   Dl_info library{};
   if (dladdr(reinterpret_cast<void*>(&classPathAdvice), &library) != 0 && library.dli_fname != nullptr) {
      std::error_code failure;
      fs::path folder = fs::canonical(library.dli_fname, failure);
      while (folder.has_relative_path()) { // the folder of libraries may be deep in the tree
         folder = folder.parent_path();
         fs::path const jar = folder / "share/rti1516e/tovu1516e.jar";
         if (fs::exists(jar, failure)) {
            return jar.string();
         }
      }
   }
   return "<where it is>/tovu1516e.jar";
}

// What is wrong with a part of the class path, whatever may be in it; nothing if nothing is.
std::string faultOf(std::string const& name)
{
   if (name.back() == '*') {
      return "Only the java command knows what to do with * in a class path; name each jar: " + name + "\n";
   }
   if (std::error_code failure; !fs::exists(name, failure)) {
      return "There is no file " + name + "\n";
   }
   if (access(name.c_str(), R_OK) != 0) {
      return "You may not read " + name + "\n";
   }
   if (std::error_code failure; fs::is_directory(name, failure)) {
      return "Jars in a folder are not looked into; name each jar: " + name + "\n";
   }
   return {};
}

std::string faultsOfParts(std::string const& classPath)
{
   std::string lines;
   std::istringstream names(classPath);
   for (std::string name; std::getline(names, name, ':');) {
      if (!name.empty()) {
         lines += faultOf(name);
      }
   }
   return lines;
}

std::string whatToSet() { return "Set it before the program starts: export CLASSPATH=" + coreJar() + "\n"; }

} // namespace

std::string classPathAdvice()
{
   char const* const value = std::getenv("CLASSPATH");
   std::string const classPath(value != nullptr ? value : "");
   std::string advice = faultsOfParts(classPath);
   if (classPath.empty()) {
      advice = "The environment variable CLASSPATH is not set.\n";
   } else if (advice.empty()) {
      advice = "None of these is the jar of a core for this library.\n";
   }
   return advice + whatToSet();
}

std::string otherCoreAdvice()
{
   return "The core on the CLASSPATH is of another version than this library: use the tovu1516e.jar that "
          "came with it.\n" +
          whatToSet();
}

} // namespace tovu1516e
