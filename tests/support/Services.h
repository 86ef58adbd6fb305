// Every service of the interface: the Java method it ends in, as the tables of the contract have it, and a
// call of it with the samples.
#pragma once

#include <RTI/RTIambassador.h>

#include <functional>
#include <ostream>
#include <string>
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
// From natives.txt.
std::vector<std::string> const& nativeNames();

struct Service
{
   using Call = std::function<std::wstring(rti1516e::RTIambassador&)>;

   JavaMethod method;
   Call call; // returns the result as a text
};

inline void PrintTo(Service const& service, std::ostream* stream) { *stream << service.method.name; }

std::vector<Service> const& services();

} // namespace contract
