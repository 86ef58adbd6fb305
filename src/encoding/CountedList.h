// The body of a variable array.
#pragma once

#include "src/encoding/ElementList.h"

#include <atomic>
#include <memory>
#include <utility>

namespace rti1516e {

class CountedList
{
public:
   explicit CountedList(DataElement const& prototype)
      : _prototype(std::make_shared<Prototype const>(Entry::clone(prototype)))
   {}

   DataElement const& prototype() const noexcept { return _prototype->entry.element(); }
   ElementList& elements() noexcept { return _elements; }

   Extent measure(Wanted wanted) const
   {
      if (_elements.empty()) {
         return _prototype->extentOfNone();
      }
      Extent extent{countLength, countLength, false};
      if (wanted == Wanted::leastLength) {
         extent.include(_elements.measure(Wanted::boundary));
      } else {
         Extent const all = _elements.measure(wanted);
         extent.include(all);
         extent.length = all.length;
      }
      return extent;
   }
   std::size_t write(Output& out, std::size_t index) const
   {
      char* const count = out.at(index, countLength);
      index += countLength;
      if (_elements.empty()) {
         storeBigEndian(count, std::uint32_t{0});
         return index;
      }
      storeBigEndian(count, checkedCount(_elements.size()));
      return _elements.write(out, index);
   }
   std::size_t read(Input const& in, std::size_t index);

private:
   static constexpr unsigned int countLength = 4;

   // Nobody can change it, so that copies of the array have it in common.
   struct Prototype
   {
      explicit Prototype(Entry made) : entry(std::move(made)) {}
      // Of an array without elements.
      Extent extentOfNone() const
      {
         unsigned int const known = boundary.load(std::memory_order_relaxed);
         return known != 0 ? Extent{countLength, known, false} : determined();
      }
      Extent determined() const;

      Entry entry;
      // That array's, as soon as it has been determined, if there is nothing foreign, which may tell another.
      std::atomic<unsigned int> mutable boundary = 0;
   };

   std::size_t leastLengthOfClones() const;

   std::shared_ptr<Prototype const> _prototype;
   ElementList _elements{ElementList::For::array, countLength};
};

} // namespace rti1516e
