// A federate ambassador that writes down what it is called with and then does what the test has told it to.
#pragma once

#include "tests/support/Encoding.h"

#include <RTI/FederateAmbassador.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace contract {

class RecordingFederate : public FederateAmbassador
{
public:
   using Calls =
      std::vector<std::pair<std::string, Bytes>>; // by the member, and the encoding of its arguments

   // Done in every callback, on its thread, once it is written down.
   std::function<void()> inCallback = [] {};

   // The callbacks since the last time.
   Calls takeCalled() { return std::exchange(_called, {}); }

private:
   auto recording(char const* member)
   {
      return [this, member](auto const&... arguments) {
         _called.emplace_back(member, encoded(arguments...));
         inCallback();
      };
   }

   Calls _called;

public:
#define CALLBACK(name, parameters, arguments) \
   void name parameters override { recording(#name) arguments; }
#include "tests/support/Callbacks.def"
};

} // namespace contract
