// The body of a variant record.
#pragma once

#include "src/encoding/Entry.h"
#include "src/encoding/Extent.h"

#include <cstddef>
#include <map>

namespace rti1516e {

class Variant
{
public:
   explicit Variant(DataElement const& discriminant) : _discriminant(Entry::clone(discriminant)) {}
   Variant(Variant const& other);
   Variant& operator=(Variant const&) = delete;

   DataElement& discriminant() const noexcept { return _discriminant.element(); }
   void setDiscriminant(DataElement const& discriminant) { _discriminant = Entry::clone(discriminant); }

   // The alternative that a discriminant selects, or null.
   Entry const* alternative(DataElement const& discriminant) const;
   void setAlternative(DataElement const& discriminant, Entry value);

   Extent measure(Wanted wanted) const;
   std::size_t write(Output& out, std::size_t index) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   Entry const* selected() const { return alternative(discriminant()); }
   unsigned int boundaryOfAlternatives() const noexcept;

   Entry _discriminant;
   std::map<Integer64, Entry> _alternatives;
};

} // namespace rti1516e
