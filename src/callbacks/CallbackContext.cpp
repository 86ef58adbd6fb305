#include "src/callbacks/CallbackContext.h"

#include "src/jvm/UncancellableScope.h"
#include "src/jvm/X87ControlWord.h"

#include <RTI/Exception.h>

#include <array>
#include <chrono>
#include <thread>
#include <utility>

namespace tovu1516e {
namespace {

constexpr std::uint32_t slotBits = 12;
constexpr std::uint32_t slotCount = 1U << slotBits;
constexpr std::uint32_t lastPossibleGeneration = (1U << (32 - slotBits)) - 1;

// Never destroyed: a late callback may look into it while the process ends.
std::array<CallbackContextSlot, slotCount> slots;

// Where the search for a free slot starts, so that a slot is used again as late as can be.
std::atomic<std::uint32_t> nextSlot{0};

// The chain of references that live on this thread.
[[gnu::tls_model("initial-exec")]] thread_local CallbackContextReference const* innermost = nullptr;

CallbackContextSlot& slotOf(CallbackToken token) noexcept { return slots[token.value % slotCount]; }

constexpr std::uint64_t users(std::uint64_t state) noexcept { return state & 0xFFFFFFFF; }
constexpr std::uint64_t withGeneration(std::uint32_t generation) noexcept
{
   return static_cast<std::uint64_t>(generation) << 32;
}

} // namespace

std::uint32_t CallbackContextSlot::occupy() noexcept
{
   std::uint64_t expected = 0;
   if (!_state.compare_exchange_strong(expected, 1)) {
      return 0;
   }
   _lastGeneration = _lastGeneration % lastPossibleGeneration + 1;
   std::uint32_t const generation = _lastGeneration;
   _state.store(withGeneration(generation) | 1);
   return generation;
}

void CallbackContextSlot::vacate(bool waits) noexcept
{
   std::uint64_t state = _state.load();
   while (!_state.compare_exchange_weak(state, users(state))) {
   }
   if (waits) {
      waitForOtherThreads();
   }
   release();
}

void CallbackContextSlot::waitForOtherThreads() const noexcept
{
   UncancellableScope const throughout;
   std::uint64_t remaining = 1;
   for (auto const* reference = innermost; reference != nullptr; reference = reference->_outer) {
      remaining += reference->_slot == this ? 1U : 0U;
   }
   while (users(_state.load()) > remaining) {
      std::this_thread::sleep_for(std::chrono::microseconds(100));
   }
}

void CallbackContextSlot::releaseAndCleanUp() noexcept
{
   std::uint64_t state = _state.load();
   for (;;) {
      if (state == 1) { // the last user of an ambassador that is gone; nobody can come in any more
         cleanUp();
         _state.store(0);
         return;
      }
      // The last callback of a living ambassador takes along the factories that were replaced meanwhile: who
      // comes in later sees only the new one.
      bool const lastCallback = users(state) == 2 && generationIn(state) != 0;
      TimeFactory* retired =
         lastCallback && _retired.load() != nullptr ? _retired.exchange(nullptr) : nullptr;
      if (_state.compare_exchange_weak(state, state - 1)) {
         while (retired != nullptr) {
            delete std::exchange(retired, retired->nextRetired);
         }
         return;
      }
      retire(retired);
   }
}

void CallbackContextSlot::setTimeFactory(std::unique_ptr<TimeFactory> factory) noexcept
{
   retire(_timeFactory.exchange(factory.release()));
}

// Puts a chain of factories aside.
void CallbackContextSlot::retire(TimeFactory* factories) noexcept
{
   while (factories != nullptr) {
      TimeFactory* const factory = std::exchange(factories, factories->nextRetired);
      factory->nextRetired = _retired.load();
      while (!_retired.compare_exchange_weak(factory->nextRetired, factory)) {
      }
   }
}

void CallbackContextSlot::cleanUp() noexcept
{
   retire(_timeFactory.exchange(nullptr));
   TimeFactory* retired = _retired.exchange(nullptr);
   while (retired != nullptr) {
      delete std::exchange(retired, retired->nextRetired);
   }
   federateAmbassador.store(nullptr);
}

CallbackContext::CallbackContext() : _token{0}
{
   for (std::uint32_t tried = 0; tried < slotCount; ++tried) {
      std::uint32_t const slot = nextSlot.fetch_add(1, std::memory_order_relaxed) % slotCount;
      if (std::uint32_t const generation = slots[slot].occupy(); generation != 0) {
         _token.value = generation << slotBits | slot;
         return;
      }
   }
   throw rti1516e::RTIinternalError(L"Too many RTI ambassadors: a process can have " +
                                    std::to_wstring(slotCount) + L" at once");
}

CallbackContext::~CallbackContext() { slotOf(_token).vacate(_waits); }

void CallbackContext::setFederateAmbassador(rti1516e::FederateAmbassador& federateAmbassador) noexcept
{
   CallbackContextSlot& slot = slotOf(_token);
   slot.controlWord.store(readX87(), std::memory_order_relaxed);
   slot.federateAmbassador.store(&federateAmbassador, std::memory_order_release);
}

void CallbackContext::setTimeFactory(std::unique_ptr<rti1516e::LogicalTimeFactory> factory)
{
   // Another thread may replace it at the same time. The last user that leaves takes the old ones along.
   CallbackContextReference const use(_token);
   CallbackContextSlot& slot = slotOf(_token);
   TimeFactory* const present = slot.timeFactory();
   if (present != nullptr && &present->factory() == factory.get()) {
      static_cast<void>(factory.release()); // a time library may give the same one again: it is owned already
      return;
   }
   slot.setTimeFactory(factory == nullptr ? nullptr : std::make_unique<TimeFactory>(std::move(factory)));
}

bool CallbackContextReference::find(CallbackToken token) noexcept
{
   CallbackContextSlot& slot = slotOf(token);
   if (slot.acquire(token.value >> slotBits)) {
      _slot = &slot;
      _outer = std::exchange(innermost, this);
   }
   return _slot != nullptr;
}

CallbackContextReference::~CallbackContextReference()
{
   if (_slot != nullptr) {
      innermost = _outer;
      _slot->release();
   }
}

} // namespace tovu1516e
