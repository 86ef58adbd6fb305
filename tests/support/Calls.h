// Every service and every callback, with arguments made of octets.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/RTIambassador.h>

#include <functional>
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

struct Callback
{
   std::string native;
   std::string member; // of the federate ambassador
   Bytes (*makeArguments)(Octets& octets);
};

std::vector<Service> const& services();
std::vector<Callback> const& callbacks();

} // namespace contract
