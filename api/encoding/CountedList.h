// The body of a variable array.
#pragma once

#include "api/encoding/ElementList.h"

namespace rti1516e {

class CountedList
{
public:
   explicit CountedList(DataElement const& prototype) : _prototype(Entry::clone(prototype)) {}
   CountedList(CountedList const& other)
      : _prototype(Entry::clone(other._prototype)), _elements(other._elements)
   {}
   CountedList& operator=(CountedList const&) = delete;

   DataElement const& prototype() const noexcept { return _prototype.element(); }
   ElementList& elements() noexcept { return _elements; }

   Extent measure(Wanted wanted) const;
   void write(Output& out) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   static constexpr unsigned int countLength = 4;

   Entry _prototype;
   ElementList _elements{ElementList::For::array, countLength};
};

} // namespace rti1516e
