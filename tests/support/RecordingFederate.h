// A federate ambassador that writes down what it is called with and then does what the test has told it to.
#pragma once

#include "tests/support/Shown.h"

#include <RTI/FederateAmbassador.h>

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace contract {

using namespace rti1516e;

class RecordingFederate : public FederateAmbassador
{
public:
   // Done in every callback, on its thread, once it is written down.
   std::function<void()> inCallback;

   // The callbacks since the last time, each as its name and its arguments.
   std::vector<std::wstring> takeCalled()
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return std::exchange(_called, {});
   }

private:
   auto recording(wchar_t const* name)
   {
      return [this, name](auto const&... arguments) {
         std::wstring text;
         ((text += (text.empty() ? L"" : L", ") + shown(arguments)), ...);
         {
            std::lock_guard<std::mutex> const lock(_mutex);
            _called.push_back(std::wstring(name) + L"(" + text + L")");
         }
         if (inCallback) {
            inCallback();
         }
      };
   }

   std::mutex _mutex;
   std::vector<std::wstring> _called;

public:
#define CALLBACK(name, parameters, arguments) \
   void name parameters override { recording(L"" #name) arguments; }
#include "tests/support/Callbacks.def"
};

} // namespace contract
