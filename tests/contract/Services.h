// Every service of the interface: the Java method it ends in, as the tables of the contract have it, and a
// call of it with the samples.
#pragma once

#include "Shown.h"

#include <RTI/RTIambassador.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace contract {

struct JavaMethod
{
   std::string name;
   std::string signature;
   std::vector<std::string> exceptions; // in the order in which they are tested

   bool takesMessage() const { return signature[1] == '['; }
   std::string result() const { return signature.substr(signature.find(')') + 1); }
};

// From services.txt.
std::vector<JavaMethod> const& javaMethods();
// All that services list, each before those that one lists behind it, and FederateInternalError.
std::vector<std::string> const& exceptionClasses();
// From natives.txt.
std::vector<std::string> const& nativeNames();

class Service
{
public:
   template <class Call>
   Service(char const* javaName, Call call)
      : _javaName(javaName), _call([call](rti1516e::RTIambassador& ambassador) {
           if constexpr (std::is_void_v<decltype(call(ambassador))>) {
              call(ambassador);
              return std::wstring();
           } else {
              return shown(call(ambassador));
           }
        })
   {}

   std::string const& javaName() const { return _javaName; }
   JavaMethod const& javaMethod() const;

   // Returns the result as a text.
   std::wstring call(rti1516e::RTIambassador& ambassador) const { return _call(ambassador); }

private:
   std::string _javaName;
   std::function<std::wstring(rti1516e::RTIambassador&)> _call;
};

std::vector<Service> const& services();

} // namespace contract
