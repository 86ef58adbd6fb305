#include "Federate.h"

#include <RTI/RTIambassadorFactory.h>

#include <map>
#include <utility>

namespace system_tests {

using Clock = std::chrono::steady_clock;

std::string CallbackTexts::shortFormOf(std::string const& name)
{
   static std::map<std::string, std::string> const shortForms = {{"discoverObjectInstance", "discover"},
                                                                 {"reflectAttributeValues", "reflect"},
                                                                 {"receiveInteraction", "receive"},
                                                                 {"removeObjectInstance", "remove"}};
   auto const found = shortForms.find(name);
   return found == shortForms.end() ? name : found->second;
}

Federate::Federate(std::string const& name, CallbackModel model, Names& names)
   : _name(name),
     _model(model),
     _names(names),
     _ambassador(RTIambassadorFactory().createRTIambassador().release())
{}

Federate::~Federate() { destroyAmbassador(); }

void Federate::connect() { _ambassador->connect(*this, _model); }

bool Federate::await(std::function<bool()> const& condition, std::chrono::milliseconds limit)
{
   auto const deadline = Clock::now() + limit;
   while (true) {
      std::size_t const seen = _written.load();
      if (condition()) {
         return true;
      }
      if (Clock::now() > deadline) {
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

// The list of federations is asked for only to hear when all callbacks before it have come.
void Federate::drain()
{
   _drained = false;
   _draining = true;
   try {
      _ambassador->listFederationExecutions();
   } catch (NotConnected const&) {
      _draining = false;
      return; // nothing is to come
   }
   if (!await([this] { return _drained.load(); })) {
      written("the callbacks do not come to an end");
   }
}

Federate::Callbacks Federate::callbacks(std::size_t wanted)
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

std::size_t Federate::waiting() const
{
   std::lock_guard<std::mutex> const lock(_mutex);
   return _callbacks.size();
}

void Federate::tell()
{
   std::lock_guard<std::mutex> const lock(_mutex);
   ++_written;
   _news.notify_all();
}

void Federate::written(std::string const& callback)
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

void Federate::reportFederationExecutions(FederationExecutionInformationVector const& federations)
{
   if (_draining.exchange(false)) {
      _drained = true;
      tell();
   } else {
      recording(__func__)(federations);
   }
}

void Federate::requestRetraction(MessageRetractionHandle handle) { recording(__func__)(handle.toString()); }

} // namespace system_tests
