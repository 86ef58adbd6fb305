// The elements of an array that are clones of one basic kind.
#pragma once

#include "src/encoding/ElementBlock.h"
#include "src/encoding/Kind.h"

#include <cstddef>
#include <memory>

namespace rti1516e {

// A chain of blocks, each about as large as all before it, so that there are few of them. An element stays
// where it is as long as it lives.
class ElementBlocks
{
public:
   ElementBlocks() noexcept = default;
   // Copies the values.
   ElementBlocks(ElementBlocks const& other);
   ElementBlocks& operator=(ElementBlocks const&) = delete;

   std::size_t size() const noexcept { return _last == nullptr ? 0 : _last->first + _last->size(); }
   bool empty() const noexcept { return _last == nullptr || size() == 0; }
   // If there are elements.
   Kind kind() const noexcept { return _kind; }
   DataElement& at(std::size_t index) const noexcept;

   // Makes elements of the value of another of the kind. A failure leaves those that were made before.
   void append(DataElement const& original, Kind kind, std::size_t number);
   void truncate(std::size_t size) noexcept;

   // The operations of a body, upon all elements one after another.
   Extent measure(Wanted wanted, Extent all) const;
   std::size_t write(Output& out, std::size_t index) const;
   std::size_t read(Input const& in, std::size_t index);

private:
   void addBlock(std::size_t capacity);

   std::unique_ptr<ElementBlock> _first;
   ElementBlock* _last = nullptr;
   Kind _kind = Kind::foreign;
};

} // namespace rti1516e
