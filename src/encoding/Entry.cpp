#include "src/encoding/Entry.h"

#include "src/encoding/Failure.h"

#include <algorithm>
#include <utility>

namespace rti1516e {

Entry::Entry(DataElement* element, Kind kind, bool owned, unsigned int boundary) noexcept
   : _owned(owned), _kind(kind), _boundary(std::max(boundary, operationsOf(kind).boundary)), _element(element)
{}

Entry Entry::clone(DataElement const& element)
{
   DataElement& copy = failure::required(element.clone().release(), failure::noElement);
   return {&copy, kindOf(copy), true, 1};
}

Entry Entry::clone(Entry const& other)
{
   DataElement& copy = failure::required(other._element->clone().release(), failure::noElement);
   return {&copy, kindOf(copy, other._kind), true, other.boundary()};
}

Entry Entry::lent(DataElement* element)
{
   return {element, kindOf(failure::required(element, failure::noElement)), false, 1};
}

Entry::Entry(Entry&& other) noexcept
   : _owned(std::exchange(other._owned, false)),
     _kind(other._kind),
     _boundary(other.boundary()),
     _element(other._element)
{}

Entry& Entry::operator=(Entry&& other) noexcept
{
   if (_element != other._element) {
      if (_owned) {
         delete _element;
      }
      _owned = std::exchange(other._owned, false);
      _kind = other._kind;
      _boundary.store(other.boundary(), std::memory_order_relaxed);
      _element = other._element;
   }
   return *this;
}

Entry::~Entry()
{
   if (_owned) {
      delete _element;
   }
}

Extent Entry::measureAnew(Wanted wanted) const
{
   Extent const extent = operationsOf(_kind).measure(*_element, wanted);
   if (extent.boundary != boundary()) {
      _boundary.store(extent.boundary, std::memory_order_relaxed);
   }
   return extent;
}

} // namespace rti1516e
