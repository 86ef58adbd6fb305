// A federate that writes down its callbacks.
#ifndef RTI1516E_TESTS_SYSTEM_FEDERATE_H
#define RTI1516E_TESTS_SYSTEM_FEDERATE_H

#include "Text.h"

#include <RTI/RTI1516.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace system_tests {

// Each callback becomes a text such as "announceSynchronizationPoint ready tag=now".
class CallbackTexts : public FederateAmbassador
{
protected:
   auto recording(char const* name)
   {
      return [this, name]([[maybe_unused]] auto const&... arguments) {
         std::string text = shortFormOf(name);
         [[maybe_unused]] bool isFirst = true;
         ((text += separated(showArgument(std::exchange(isFirst, false), arguments))), ...);
         written(text);
      };
   }

   static std::string shortFormOf(std::string const& name);
   static std::string separated(std::string const& word)
   {
      return word.empty() || word == "{}" ? "" : " " + word;
   }

#define CALLBACK(name, parameters, arguments) \
   void name parameters override { recording(#name) arguments; }
#include "tests/support/Callbacks.def"

private:
   virtual void written(std::string const& callback) = 0;
};

// In the texts handles have the names that the test's dictionary gives them. One thread, the test's, asks for
// callbacks; they may come on any other.
class Federate : private CallbackTexts
{
public:
   using Callbacks = std::vector<std::string>;

   Federate(std::string const& name, CallbackModel model, Names& names);

   // Destroys the ambassador first, as any federate has to.
   ~Federate() override;

   std::string const& name() const { return _name; }
   CallbackModel model() const { return _model; }
   FederateAmbassador& receiver() { return *this; }
   RTIambassador* operator->() { return _ambassador.get(); }
   RTIambassador& operator*() { return *_ambassador; }

   void connect();
   void destroyAmbassador() { _ambassador.reset(); }

   // What has come since the last question, waiting until there are as many as wanted and then for whatever
   // the services called so far have still under way. Gives up after ten seconds.
   Callbacks callbacks(std::size_t wanted = 0);

   // Called in each callback, after it is written down, with the handles as numbers.
   std::function<void(std::string const&)> onCallback;

   // Waits for the condition, which callbacks can change, letting callbacks come.
   bool await(std::function<bool()> const& condition,
              std::chrono::milliseconds limit = std::chrono::seconds(10));

   // How many callbacks have come that were not asked for yet.
   std::size_t waiting() const;

private:
   void written(std::string const& callback) override;
   void tell();
   void drain();

   std::string const _name;
   CallbackModel const _model;
   Names& _names;

   mutable std::mutex _mutex;
   std::condition_variable _news;
   Callbacks _callbacks;
   std::atomic<std::size_t> _written{0};
   std::atomic<bool> _draining{false};
   std::atomic<bool> _drained{false};

   std::unique_ptr<RTIambassador> _ambassador;

   // Also the end of a drain, which is not recorded.
   void reportFederationExecutions(FederationExecutionInformationVector const& federations) override;
   // Names the handle, which in other callbacks is only there or not.
   void requestRetraction(MessageRetractionHandle handle) override;
};

} // namespace system_tests

#endif
