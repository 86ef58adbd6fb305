// A federate that writes down its callbacks.
#ifndef RTI1516E_TESTS_SYSTEM_FEDERATE_H
#define RTI1516E_TESTS_SYSTEM_FEDERATE_H

#include "Text.h"
#include "tests/support/Caught.h"

#include <RTI/RTI1516.h>
#include <RTI/RTIambassadorFactory.h>

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

// The class of the exception that the call throws, or "nothing".
template <class Call>
std::string refusal(Call&& call)
{
   contract::Caught const caught = contract::caughtFrom(call);
   return caught.type.empty() ? "nothing" : caught.type;
}

// Each callback becomes a text such as "announceSynchronizationPoint ready tag=now". In the texts handles
// have the names that the test's dictionary gives them. One thread, the test's, asks for callbacks; they may
// come on any other.
class Federate : private FederateAmbassador
{
public:
   using Callbacks = std::vector<std::string>;

   Federate(std::string name, CallbackModel model, Names& names)
      : _name(std::move(name)),
        _model(model),
        _names(names),
        _ambassador(RTIambassadorFactory().createRTIambassador().release())
   {}

   // Destroys the ambassador first, as any federate has to.
   ~Federate() override { destroyAmbassador(); }

   std::string const& name() const { return _name; }
   CallbackModel model() const { return _model; }
   FederateAmbassador& receiver() { return *this; }
   RTIambassador* operator->() { return _ambassador.get(); }
   RTIambassador& operator*() { return *_ambassador; }

   void connect() { _ambassador->connect(*this, _model); }
   void destroyAmbassador() { _ambassador.reset(); }

   // What has come since the last question, waiting until there are as many as wanted and then for whatever
   // the services called so far have still under way. Gives up after ten seconds.
   Callbacks callbacks(std::size_t wanted = 0)
   {
      await([&] { return waiting() >= wanted; });
      drain();
      Callbacks taken;
      {
         std::lock_guard<std::mutex> const lock(_mutex);
         taken.swap(_callbacks);
      }
      for (auto& callback : taken) {
         callback = _names.in(callback);
      }
      return taken;
   }

   // Called in each callback, after it is written down, with the handles as numbers.
   std::function<void(std::string const&)> onCallback;

   // Waits for the condition, which callbacks can change, letting callbacks come.
   bool await(std::function<bool()> const& condition,
              std::chrono::milliseconds limit = std::chrono::seconds(10))
   {
      auto const deadline = std::chrono::steady_clock::now() + limit;
      while (true) {
         std::size_t const seen = _written.load();
         if (condition()) {
            return true;
         }
         if (std::chrono::steady_clock::now() > deadline) {
            return false;
         }
         if (_model == HLA_EVOKED) {
            _ambassador->evokeCallback(0.02);
         } else {
            std::unique_lock<std::mutex> lock(_mutex);
            _news.wait_for(lock, std::chrono::milliseconds(20), [&] { return _written != seen; });
         }
      }
   }

   // How many callbacks have come that were not asked for yet.
   std::size_t waiting() const
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return _callbacks.size();
   }

private:
   // The list of federations is asked for only to hear when all callbacks before it have come.
   void drain()
   {
      _drained = false;
      _draining = true;
      if (refusal([&] { _ambassador->listFederationExecutions(); }) == "NotConnected") {
         _draining = false; // nothing is to come
      } else if (!await([this] { return _drained.load(); })) {
         written("the callbacks do not come to an end");
      }
   }

   auto recording(std::string const& name)
   {
      return [this, name]([[maybe_unused]] auto const&... arguments) {
         if (name == "reportFederationExecutions" && _draining.exchange(false)) {
            _drained = true;
            return tell();
         }
         std::string text = nameInStories(name);
         [[maybe_unused]] bool isFirst = true;
         [[maybe_unused]] auto const add = [&](std::string const& word) {
            text += word.empty() || word == "{}" ? "" : " " + word;
         };
         (add(showArgument(std::exchange(isFirst, false), arguments)), ...);
         written(text);
      };
   }

   void written(std::string const& callback)
   {
      {
         std::lock_guard<std::mutex> const lock(_mutex);
         _callbacks.push_back(callback);
      }
      tell();
      if (onCallback) {
         onCallback(callback);
      }
   }

   void tell()
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      ++_written;
      _news.notify_all();
   }

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

#define CALLBACK(name, parameters, arguments) \
   void name parameters override { recording(#name) arguments; }
#include "tests/support/Callbacks.def"
};

} // namespace system_tests

#endif
