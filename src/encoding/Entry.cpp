#include "src/encoding/Entry.h"

#include "src/encoding/Entries.h"
#include "src/encoding/Failure.h"

#include <algorithm>
#include <utility>

namespace rti1516e {

Entry::Entry(DataElement* element, Kind kind, bool owned, unsigned int boundary) noexcept
   : _owned(owned),
     _kind(kind),
     _numberLength(static_cast<std::uint8_t>(operationsOf(kind).fixedLength)),
     _boundary(std::max(boundary, operationsOf(kind).boundary)),
     _element(element)
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
     _numberLength(other._numberLength),
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
      _numberLength = other._numberLength;
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

Extent Entry::measure(Wanted wanted) const
{
   Extent const start{0, std::max(operationsOf(_kind).boundary, 1U), false};
   Extent const extent = rti1516e::measure(this, this + 1, wanted, start);
   remember(extent.boundary);
   return extent;
}

std::size_t Entry::write(Output& out, std::size_t index) const
{
   return rti1516e::write(this, this + 1, out, index);
}

std::size_t Entry::read(Input const& in, std::size_t index) const
{
   return rti1516e::read(this, this + 1, in, index);
}

} // namespace rti1516e
