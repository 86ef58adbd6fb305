#include "api/encoding/ElementList.h"

#include "api/encoding/Failure.h"

#include <algorithm>
#include <new>
#include <utility>

namespace rti1516e {

namespace {

constexpr std::size_t smallestRoom = 4; // for a list that grows element by element

} // namespace

ElementList::ElementList(ElementList const& other) : ElementList(other._use, other._start)
{
   reserve(other.size());
   for (Entry const& entry : other._entries) {
      if (mayKeepInBlocks(entry.kind())) {
         appendToBlocks(entry.element(), entry.kind(), 1);
      } else {
         appendSingly(Entry::clone(entry));
      }
   }
}

DataElement& ElementList::at(std::size_t index) const
{
   if (index >= _entries.size()) {
      failure::raise(failure::arrayIndexOutOfBounds);
   }
   return _entries[index].element();
}

void ElementList::append(DataElement const& element)
{
   reserve(1);
   Kind const kind = kindOf(element, empty() ? Kind::foreign : _entries.back().kind());
   if (mayKeepInBlocks(kind)) {
      appendToBlocks(element, kind, 1);
   } else {
      appendSingly(Entry::clone(element));
   }
}

void ElementList::append(DataElement* element)
{
   reserve(1);
   appendSingly(Entry::lent(element));
}

void ElementList::appendClones(DataElement const& prototype, std::size_t number)
{
   appendClones(Entry::lent(const_cast<DataElement*>(&prototype)), number); // which only clones it
}

void ElementList::appendClones(Entry const& prototype, std::size_t number)
{
   if (number == 0) {
      return;
   }
   std::size_t const before = size();
   reserve(number);
   try {
      if (mayKeepInBlocks(prototype.kind())) {
         appendToBlocks(prototype.element(), prototype.kind(), number);
      } else {
         for (; number != 0; --number) {
            appendSingly(Entry::clone(prototype));
         }
      }
   } catch (...) {
      truncate(before);
      throw;
   }
}

void ElementList::replace(std::size_t index, DataElement const& element)
{
   Entry const& entry = _entries[index];
   Kind const kind = kindOf(element, entry.kind());
   if (_inBlocks && kind == entry.kind()) {
      rowOf(kind).assign(entry.element(), element);
   } else {
      replaceEntry(index, Entry::clone(element));
   }
}

void ElementList::replace(std::size_t index, DataElement* element)
{
   replaceEntry(index, Entry::lent(element));
}

void ElementList::replaceEntry(std::size_t index, Entry entry) noexcept
{
   bool const sameKind = entry.kind() == _entries[index].kind();
   _entries[index] = std::move(entry);
   _inBlocks = false;
   if (!sameKind) {
      accountAll();
   }
}

void ElementList::truncate(std::size_t size) noexcept
{
   for (; _entries.size() > size; _entries.pop_back()) {
      if (_inBlocks) {
         _blocks.removeLast();
      }
   }
   if (empty()) {
      _blocks.clear();
      _inBlocks = false;
   }
   accountAll();
}

bool ElementList::mayKeepInBlocks(Kind kind) const noexcept
{
   return _use == For::array && rowOf(kind).makeBlock != nullptr &&
          (empty() || (_inBlocks && kind == _entries.back().kind()));
}

void ElementList::reserve(std::size_t number)
{
   if (number > _entries.max_size() - size()) {
      throw std::bad_alloc();
   }
   std::size_t const needed = size() + number;
   if (needed > _entries.capacity()) {
      std::size_t const doubled = std::min(2 * size(), _entries.max_size());
      _entries.reserve(std::max({needed, doubled, number == 1 ? smallestRoom : 0}));
   }
}

void ElementList::appendToBlocks(DataElement const& element, Kind kind, std::size_t number)
{
   if (empty()) {
      _blocks.clear(); // one of another kind may be left from a failure
      _inBlocks = true;
   }
   _blocks.append(element, kind, number, _entries);
   account(kind, number);
}

void ElementList::appendSingly(Entry entry)
{
   Kind const kind = entry.kind();
   _entries.push_back(std::move(entry));
   _inBlocks = false;
   account(kind, 1);
}

void ElementList::account(Kind kind, std::size_t number) noexcept
{
   KindRow const& row = rowOf(kind);
   _allOfOneLength = _allOfOneLength && row.fixedLength != 0;
   _allOfOneBoundary = _allOfOneBoundary && row.boundary != 0;
   _boundary = std::max(_boundary, row.boundary);
   // Elements of one length are as long as their boundary, so that there is no padding between them.
   _length = alignUp(_length, std::max(row.boundary, 1U)) + number * row.fixedLength;
}

void ElementList::accountAll() noexcept
{
   _allOfOneLength = true;
   _allOfOneBoundary = true;
   _boundary = 1;
   _length = _start;
   for (Entry const& entry : _entries) {
      account(entry.kind(), 1);
   }
}

Extent ElementList::measureEach(Wanted wanted) const
{
   Extent all{_start, 1, false};
   for (Entry const& entry : _entries) {
      all.append(entry.measure(wanted));
   }
   return all;
}

void ElementList::write(Output& out) const
{
   if (_inBlocks) {
      _blocks.write(out);
      return;
   }
   for (Entry const& entry : _entries) {
      entry.write(out);
   }
}

std::size_t ElementList::read(Input const& in, std::size_t index)
{
   if (_inBlocks) {
      return _blocks.read(in, index);
   }
   for (Entry& entry : _entries) {
      index = entry.read(in, index);
   }
   return index;
}

} // namespace rti1516e
