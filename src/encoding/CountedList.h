// The body of a variable array.
#pragma once

#include "src/encoding/ElementList.h"

#include <memory>

namespace rti1516e {

class CountedList
{
public:
   explicit CountedList(DataElement const& prototype)
      : _prototype(std::make_shared<Entry const>(Entry::clone(prototype)))
   {}

   DataElement const& prototype() const noexcept { return _prototype->element(); }
   ElementList& elements() noexcept { return _elements; }

   Extent measure(Wanted wanted) const;
   std::size_t write(Output& out, std::size_t index) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   std::size_t leastLengthOfClones() const;

   static constexpr unsigned int countLength = 4;

   // Nobody can change it, so that copies of the array have it in common.
   std::shared_ptr<Entry const> _prototype;
   ElementList _elements{ElementList::For::array, countLength};
};

} // namespace rti1516e
