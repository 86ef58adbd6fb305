// What a callback needs of the ambassador it is for, and the table in which it finds it.
//
// The core hands every callback the 32-bit token that it got when the ambassador connected. A token names a
// slot of a process-wide table and that slot's generation, so that the token of an ambassador that is gone is
// recognised and never leads to freed memory. Nothing here takes a lock.
#pragma once

#include "src/messages/CallbackToken.h"
#include "src/messages/TimeFactory.h"

#include <RTI/FederateAmbassador.h>
#include <RTI/LogicalTimeFactory.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace tovu1516e {

// One place of the table. While a callback or a service uses it, the time factories it might have seen live
// on, although a join has replaced them or the ambassador is gone.
class CallbackContextSlot
{
public:
   // Takes the slot for an ambassador if it is free; returns the generation, or 0 if the slot is taken.
   std::uint32_t occupy() noexcept;

   // The ambassador is gone: from now on no token leads here. Waits, if it is to, until no other thread uses
   // the slot; it is free again once nobody does.
   void vacate(bool waits) noexcept;

   // Uses the slot if it is still of that generation, until release.
   bool acquire(std::uint32_t generation) noexcept
   {
      std::uint64_t state = _state.load();
      do {
         if (generation == 0 || generationIn(state) != generation) {
            return false;
         }
      } while (!_state.compare_exchange_weak(state, state + 1));
      return true;
   }

   void release() noexcept
   {
      // An ambassador that lives uses the slot too. So while there is one this is not the last user, and has
      // nothing to clean up but factories that were replaced.
      std::uint64_t state = _state.load();
      if (generationIn(state) == 0 || _retired.load() != nullptr ||
          !_state.compare_exchange_strong(state, state - 1)) {
         releaseAndCleanUp();
      }
   }

   // To be called while using the slot. The old one goes with the last user.
   void setTimeFactory(std::unique_ptr<TimeFactory> factory) noexcept;
   TimeFactory* timeFactory() const noexcept { return _timeFactory.load(); }

   std::atomic<rti1516e::FederateAmbassador*> federateAmbassador{nullptr};
   std::atomic<std::uint16_t> controlWord{0};

private:
   static constexpr std::uint32_t generationIn(std::uint64_t state) noexcept
   {
      return static_cast<std::uint32_t>(state >> 32);
   }

   void waitForOtherThreads() const noexcept;
   void releaseAndCleanUp() noexcept;
   void retire(TimeFactory* factories) noexcept;
   void cleanUp() noexcept;

   // The generation (0: no ambassador) in the high half; in the low half the number of users, the ambassador
   // itself being one.
   std::atomic<std::uint64_t> _state{0};
   std::atomic<TimeFactory*> _timeFactory{nullptr};
   std::atomic<TimeFactory*> _retired{nullptr};
   std::uint32_t _lastGeneration = 0; // of whoever occupies the slot alone
};

// An ambassador's place in the table, for as long as the ambassador lives. Once it is destroyed no callback
// runs on another thread, unless it was abandoned, so that the federate's objects may go; one of this
// thread's own may be underway.
class CallbackContext
{
public:
   // Throws RTIinternalError if the table is full.
   CallbackContext();
   ~CallbackContext();
   CallbackContext(CallbackContext const&) = delete;
   CallbackContext& operator=(CallbackContext const&) = delete;

   CallbackToken token() const noexcept { return _token; }

   // What connect stores: the federate's callbacks, and the control word of the thread that calls.
   void setFederateAmbassador(rti1516e::FederateAmbassador& federateAmbassador) noexcept;

   // Replaces the time factory; none, if it is null. The old one goes as soon as nobody uses it any more.
   void setTimeFactory(std::unique_ptr<rti1516e::LogicalTimeFactory> factory);

   // Without a Java VM callbacks on other threads may never end: they are not to be waited for.
   void abandonCallbacks() noexcept { _waits = false; }

private:
   CallbackToken _token;
   bool _waits = true;
};

// Uses the context that a token names while it lives.
class CallbackContextReference
{
public:
   CallbackContextReference() noexcept = default;
   explicit CallbackContextReference(CallbackToken token) noexcept { find(token); }
   ~CallbackContextReference();
   CallbackContextReference(CallbackContextReference const&) = delete;
   CallbackContextReference& operator=(CallbackContextReference const&) = delete;

   // To be called once. False for the token of an ambassador that is gone, or of none that ever was.
   bool find(CallbackToken token) noexcept;
   explicit operator bool() const noexcept { return _slot != nullptr; }

   // Null before the first connect.
   rti1516e::FederateAmbassador* federateAmbassador() const noexcept
   {
      return _slot->federateAmbassador.load(std::memory_order_acquire);
   }

   // Null before the first join, and where the time library does not know the federation's time.
   TimeFactory* timeFactory() const noexcept { return _slot->timeFactory(); }

   std::uint16_t controlWord() const noexcept { return _slot->controlWord.load(std::memory_order_relaxed); }

private:
   friend class CallbackContextSlot;

   CallbackContextSlot* _slot = nullptr;
   CallbackContextReference const* _outer = nullptr; // this thread's reference before this one
};

} // namespace tovu1516e
