// Every service and every callback, with arguments made of octets.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/RTIambassador.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace contract {

struct ServiceCall
{
   Bytes message; // that the core is to get; of connect without the token before it
   std::function<Bytes(rti1516e::RTIambassador&)> call; // returns the encoding of the result
};

struct Service
{
   std::string method; // of the core
   ServiceCall (*make)(Octets& octets);
};
inline void PrintTo(Service const& service, std::ostream* stream) { *stream << service.method; }

struct Callback
{
   std::string native;
   std::string member; // of the federate ambassador
   Bytes (*makeArguments)(Octets& octets);
};
inline void PrintTo(Callback const& callback, std::ostream* stream) { *stream << callback.native; }

std::vector<Service> const& services();
std::vector<Callback> const& callbacks();

} // namespace contract
