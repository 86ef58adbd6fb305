#include "src/encoding/Variant.h"

#include <algorithm>
#include <utility>

namespace rti1516e {

Variant::Variant(Variant const& other) : _discriminant(Entry::clone(other._discriminant))
{
   for (auto const& [key, entry] : other._alternatives) {
      _alternatives.emplace_hint(_alternatives.end(), key, Entry::clone(entry));
   }
}

Entry const* Variant::alternative(DataElement const& discriminant) const
{
   auto const found = _alternatives.find(discriminant.hash());
   return found == _alternatives.end() ? nullptr : &found->second;
}

void Variant::setAlternative(DataElement const& discriminant, Entry value)
{
   _alternatives.insert_or_assign(discriminant.hash(), std::move(value));
}

// Of the alternatives, only the boundary of all counts, and the length of the selected one. A discriminant
// may be decoded that selects none.
Extent Variant::measure(Wanted wanted) const
{
   Extent all = _discriminant.measure(wanted);
   if (_alternatives.empty()) {
      return all;
   }
   bool const isLeast = wanted == Wanted::leastLength;
   Entry const* const value = isLeast ? nullptr : selected();
   Extent values;
   for (auto const& [key, entry] : _alternatives) {
      Extent const extent = entry.measure(&entry == value ? wanted : Wanted::boundary);
      values.include(extent);
      if (&entry == value) {
         values.length = extent.length;
      }
   }
   if (isLeast) {
      all.include(values);
   } else {
      all.append(values);
   }
   return all;
}

unsigned int Variant::boundaryOfAlternatives() const noexcept
{
   unsigned int boundary = 1;
   for (auto const& [key, entry] : _alternatives) {
      boundary = std::max(boundary, entry.boundary());
   }
   return boundary;
}

std::size_t Variant::write(Output& out, std::size_t index) const
{
   index = alignInMemory(_discriminant.write(out, index), boundaryOfAlternatives());
   Entry const* const value = selected();
   return value == nullptr ? index : value->write(out, index);
}

std::size_t Variant::read(Input const& in, std::size_t index)
{
   index = _discriminant.read(in, index);
   auto const found = _alternatives.find(discriminant().hash());
   if (found == _alternatives.end()) {
      return index;
   }
   return found->second.read(in, alignUp(index, boundaryOfAlternatives()));
}

} // namespace rti1516e
