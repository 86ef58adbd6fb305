#include "src/encoding/CountedList.h"

#include "src/encoding/Failure.h"

#include <algorithm>

namespace rti1516e {

Extent CountedList::Prototype::determined() const
{
   Extent extent{countLength, countLength, false};
   extent.include(entry.measure(Wanted::boundary));
   if (!extent.foreign) {
      boundary.store(extent.boundary, std::memory_order_relaxed);
   }
   return extent;
}

std::size_t CountedList::read(Input const& in, std::size_t index)
{
   index = alignUp(index, countLength);
   std::size_t const number = in.count(index, failure::arrayTooShort);
   index += countLength;
   std::size_t const present = _elements.size();
   std::size_t const left = in.left(index);
   // Only what could not be there with a single octet for each element is refused, and clones that could not
   // be there at their least.
   if (number > left || (number > present && number - present > left / leastLengthOfClones())) {
      failure::raise(failure::arrayTooShort);
   }
   if (number < present) {
      _elements.truncate(number);
   } else if (number > present) {
      _elements.appendClones(_prototype->entry, number - present);
   }
   return number == 0 ? index : _elements.read(in, index);
}

// Measuring the prototype also makes it remember its boundaries, which its clones get from it. Basic elements
// are few octets each, and as many as there are octets at the most can be afforded: what is there of them is
// decoded before the first one that is not.
std::size_t CountedList::leastLengthOfClones() const
{
   std::size_t const length = _prototype->entry.measure(Wanted::leastLength).length;
   return operationsOf(_prototype->entry.kind()).fixedLength != 0 ? 1 : std::max<std::size_t>(length, 1);
}

} // namespace rti1516e
