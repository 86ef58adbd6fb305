#include "api/encoding/ElementBlocks.h"

#include <algorithm>
#include <utility>

namespace rti1516e {

void ElementBlocks::append(DataElement const& original, Kind kind, std::size_t number,
                           std::vector<Entry>& entries)
{
   while (number != 0) {
      if (_last == nullptr || _last->room() == 0) {
         std::unique_ptr<ElementBlock>& end = _last == nullptr ? _first : _last->next;
         end = rowOf(kind).makeBlock(entries.capacity() - entries.size());
         _last = end.get();
      }
      std::size_t const fitting = std::min(number, _last->room());
      _last->append(original, kind, fitting, entries);
      number -= fitting;
   }
}

void ElementBlocks::removeLast() noexcept
{
   if (_last->size() == 0) {
      ElementBlock* before = _first.get();
      while (before->next.get() != _last) {
         before = before->next.get();
      }
      before->next.reset();
      _last = before;
   }
   _last->removeLast();
}

void ElementBlocks::clear() noexcept
{
   _first.reset();
   _last = nullptr;
}

void ElementBlocks::write(Output& out) const
{
   for (ElementBlock const* block = _first.get(); block != nullptr; block = block->next.get()) {
      block->write(out);
   }
}

std::size_t ElementBlocks::read(Input const& in, std::size_t index)
{
   for (ElementBlock* block = _first.get(); block != nullptr; block = block->next.get()) {
      index = block->read(in, index);
   }
   return index;
}

} // namespace rti1516e
