// The classes of the FOM modules in fom/ and of the standard MIM, so that stories need not say where each one
// stands.
#ifndef RTI1516E_TESTS_SYSTEM_OBJECTMODELS_H
#define RTI1516E_TESTS_SYSTEM_OBJECTMODELS_H

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace system_tests {

// By their full names with a point before each, with the names of all attributes or parameters that a class
// has.
inline std::map<std::string, std::set<std::string>> readClasses()
{
   std::map<std::string, std::set<std::string>> classes;
   std::vector<std::filesystem::path> files{SYSTEM_TESTS_MIM};
   files.insert(files.end(), std::filesystem::directory_iterator(SYSTEM_TESTS_FOM), {});
   for (auto const& file : files) {
      std::ifstream in(file);
      std::string path;
      bool ofMember = false; // and not of a class is the next name
      for (std::string text; std::getline(in, text, '<');) {
         std::string const tag = text.substr(0, text.find_first_of(" >"));
         if (tag == "objectClass" || tag == "interactionClass") {
            path += '.';
            ofMember = false;
         } else if (tag == "attribute" || tag == "parameter") {
            ofMember = true;
         } else if ((tag == "/objectClass" || tag == "/interactionClass") && !path.empty()) {
            path.erase(path.rfind('.'));
         } else if (tag == "name" && ofMember && !path.empty()) {
            classes[path].insert(text.substr(tag.size() + 1));
         } else if (tag == "name" && !path.empty()) {
            auto const inherited = classes[path.substr(0, path.size() - 1)];
            classes[path += text.substr(tag.size() + 1)].insert(inherited.begin(), inherited.end());
         }
      }
   }
   return classes;
}

} // namespace system_tests

#endif
