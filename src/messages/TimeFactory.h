// What logical times in messages are read with.
#pragma once

#include <RTI/LogicalTimeFactory.h>

#include <atomic>
#include <cstddef>
#include <memory>

namespace tovu1516e {

// An ambassador's time factory, with what it says its times' encodings are long.
class TimeFactory
{
public:
   explicit TimeFactory(std::unique_ptr<rti1516e::LogicalTimeFactory> factory) noexcept;

   rti1516e::LogicalTimeFactory& factory() const noexcept { return *_factory; }

   // In bytes; 0 until it has been asked for. Reading it runs no code but the library's.
   std::size_t knownTimeLength() const noexcept { return _timeLength.load(std::memory_order_relaxed); }

   // Asks the factory; a length of 0 is asked for anew each time.
   void learnTimeLength();

   // Of those that are to be let go of, the one to come after this one.
   TimeFactory* nextRetired = nullptr;

private:
   std::unique_ptr<rti1516e::LogicalTimeFactory> const _factory;
   std::atomic<std::size_t> _timeLength{0};
};

} // namespace tovu1516e
