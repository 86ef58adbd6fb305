#include "src/encoding/Entry.h"

#include "src/encoding/ElementAccess.h"
#include "src/encoding/ElementList.h"
#include "src/encoding/Entries.h"
#include "src/encoding/Failure.h"

#include <RTI/encoding/HLAfixedArray.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace rti1516e {

namespace {

// What an entry has room for.
constexpr std::size_t longestRun = std::numeric_limits<std::uint16_t>::max();
constexpr unsigned int largestRun = 127;

} // namespace

Entry::Entry(DataElement* element, Kind kind, bool owned, unsigned int boundary) noexcept
   : _owned(owned), _runSize(1), _kind(kind), _boundary(boundary), _element(element)
{
   beginRun();
}

// Nobody can change the kind of a fixed array's elements, or their number.
Extent Entry::lasting() const noexcept
{
   if (_kind == Kind::HLAfixedArray) {
      return ElementAccess::body(static_cast<HLAfixedArray const&>(*_element)).extentOfNumbers();
   }
   KindOperations const& operations = operationsOf(_kind);
   return {operations.fixedLength, operations.boundary, false};
}

void Entry::beginRun() noexcept
{
   Extent const alone = lasting();
   _runLength = static_cast<std::uint16_t>(alone.length <= longestRun ? alone.length : 0);
   _runSize = 1;
   remember(std::max(boundary(), alone.boundary));
}

bool Entry::continueRun(Extent const& next) noexcept
{
   if (_runLength == 0 || next.length == 0 || next.boundary > boundary() || _runSize == largestRun) {
      return false;
   }
   Extent all{_runLength, boundary(), false};
   all.append(next);
   if (all.length > longestRun) {
      return false;
   }
   _runLength = static_cast<std::uint16_t>(all.length);
   ++_runSize;
   return true;
}

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
   : _owned(other._owned),
     _runSize(other._runSize),
     _kind(other._kind),
     _runLength(other._runLength),
     _boundary(other.boundary()),
     _element(other._element)
{
   other._owned = false;
}

Entry& Entry::operator=(Entry&& other) noexcept
{
   if (_element != other._element) {
      _runSize = other._runSize;
      _kind = other._kind;
      _runLength = other._runLength;
      _boundary.store(other.boundary(), std::memory_order_relaxed);
      replaceInRun(std::move(other));
   }
   return *this;
}

void Entry::replaceInRun(Entry&& other) noexcept
{
   if (_element != other._element) {
      if (_owned) {
         delete _element;
      }
      _owned = other._owned;
      other._owned = false;
      _element = other._element;
   }
}

Entry::~Entry()
{
   if (_owned) {
      delete _element;
   }
}

Extent Entry::measure(Wanted wanted) const
{
   Extent const start{0, std::max(lasting().boundary, 1U), false};
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
