#include "src/messages/TimeFactory.h"

#include <RTI/Exception.h>

#include <utility>

namespace tovu1516e {

TimeFactory::TimeFactory(std::unique_ptr<rti1516e::LogicalTimeFactory> factory) noexcept
   : _factory(std::move(factory))
{}

void TimeFactory::learnTimeLength()
{
   auto const time = _factory->makeFinal();
   if (time.get() == nullptr) {
      throw rti1516e::RTIinternalError(
         L"The logical time factory makes no final time to tell the length of times");
   }
   _timeLength.store(time->encodedLength(), std::memory_order_relaxed);
}

} // namespace tovu1516e
