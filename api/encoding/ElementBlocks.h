// The elements of an array that are clones of one basic kind.
#pragma once

#include "api/encoding/ElementBlock.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

// Blocks that grow as a list of entries grows, so that there are few of them.
class ElementBlocks
{
public:
   // Makes elements of the value of another of the kind, and their entries, for which the list has room. A
   // failure leaves those that were made before.
   void append(DataElement const& original, Kind kind, std::size_t number, std::vector<Entry>& entries);
   // Takes the last element away.
   void removeLast() noexcept;
   void clear() noexcept;

   // All elements, one after another.
   void write(Output& out) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   std::unique_ptr<ElementBlock> _first;
   ElementBlock* _last = nullptr;
};

} // namespace rti1516e
