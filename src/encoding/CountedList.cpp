#include "src/encoding/CountedList.h"

#include "src/encoding/Failure.h"

namespace rti1516e {

Extent CountedList::measure(Wanted wanted) const
{
   Extent extent = _elements.measure(wanted);
   extent.include({0, countLength, false});
   if (_elements.empty()) {
      extent.include(_prototype->measure(Wanted::boundary));
      extent.foreign = false;
   }
   return extent;
}

void CountedList::write(Output& out) const
{
   out.count(_elements.size());
   _elements.write(out);
}

std::size_t CountedList::read(Input const& in, std::size_t index)
{
   index = alignUp(index, countLength);
   std::size_t const number = in.count(index, failure::arrayTooShort);
   index += countLength;
   // Only what could not be there with a single octet for each element is refused.
   if (number > in.left(index)) {
      failure::raise(failure::arrayTooShort);
   }
   if (number < _elements.size()) {
      _elements.truncate(number);
   } else if (number > _elements.size()) {
      _prototype->measure(
         Wanted::boundary); // for the clones, which remember the boundaries of what they are made from
      _elements.appendClones(*_prototype, number - _elements.size());
   }
   return _elements.read(in, index);
}

} // namespace rti1516e
