#include "src/encoding/ElementBlocks.h"

#include <algorithm>
#include <utility>

namespace rti1516e {

namespace {

constexpr std::size_t smallestBlock = 4;

} // namespace

ElementBlocks::ElementBlocks(ElementBlocks const& other) : _kind(other._kind)
{
   if (other.size() == 0) {
      return; // a block without elements may be left from a failure
   }
   addBlock(other.size());
   for (ElementBlock const* block = other._first.get(); block != nullptr; block = block->next.get()) {
      _last->append(*block);
   }
}

DataElement& ElementBlocks::at(std::size_t index) const noexcept
{
   // Half of all elements stand in the last block.
   ElementBlock const* block = _last;
   while (index < block->first) {
      block = block->previous;
   }
   return block->at(index - block->first);
}

void ElementBlocks::append(DataElement const& original, Kind kind, std::size_t number)
{
   if (size() == 0) {
      truncate(0); // a block of another kind may be left from a failure
      _kind = kind;
   }
   while (number != 0) {
      if (_last == nullptr || _last->room() == 0) {
         addBlock(std::max({number, size(), smallestBlock}));
      }
      std::size_t const fitting = std::min(number, _last->room());
      _last->append(original, fitting);
      number -= fitting;
   }
}

void ElementBlocks::addBlock(std::size_t capacity)
{
   std::unique_ptr<ElementBlock> block = operationsOf(_kind).makeBlock(capacity);
   block->first = size();
   block->previous = _last;
   ElementBlock* const added = block.get();
   (_last == nullptr ? _first : _last->next) = std::move(block);
   _last = added;
}

void ElementBlocks::truncate(std::size_t size) noexcept
{
   while (_last != nullptr && _last->first >= size) {
      _last = _last->previous;
      (_last == nullptr ? _first : _last->next).reset();
   }
   while (this->size() > size) {
      _last->removeLast();
   }
}

Extent ElementBlocks::measure(Wanted wanted, Extent all) const
{
   for (ElementBlock const* block = _first.get(); block != nullptr; block = block->next.get()) {
      block->measure(wanted, all);
   }
   return all;
}

std::size_t ElementBlocks::write(Output& out, std::size_t index) const
{
   for (ElementBlock const* block = _first.get(); block != nullptr; block = block->next.get()) {
      index = block->write(out, index);
   }
   return index;
}

std::size_t ElementBlocks::read(Input const& in, std::size_t index)
{
   for (ElementBlock* block = _first.get(); block != nullptr; block = block->next.get()) {
      index = block->read(in, index);
   }
   return index;
}

} // namespace rti1516e
