// Callbacks with any arguments: the bytes that the core would send, written without the library's help, and
// what the federate must see of them.
#pragma once

#include "tests/support/Bytes.h"
#include "tests/support/Octets.h"

#include <string>

namespace contract {

struct RandomCallback
{
   RandomCallback(std::string const& native, Octets& octets);

   Bytes arguments;     // as the native takes them, bare of the envelope
   std::wstring called; // as RecordingFederate writes it down, in a federation whose times are TestTime
};

std::wstring randomText(Octets& octets);

} // namespace contract
