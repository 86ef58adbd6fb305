#include "src/encoding/ElementList.h"

#include "src/encoding/Failure.h"

#include <algorithm>
#include <new>
#include <utility>

namespace rti1516e {

ElementList::ElementList(ElementList const& other)
   : _use(other._use),
     _start(other._start),
     _blocks(other.inBlocks() ? ElementBlocks(other._blocks) : ElementBlocks())
{
   accountAll();
   _entries.reserve(other._entries.size());
   for (Entry const& entry : other._entries) {
      appendClones(entry, 1);
   }
}

DataElement& ElementList::at(std::size_t index) const
{
   if (index >= size()) {
      failure::raise(failure::arrayIndexOutOfBounds);
   }
   return inBlocks() ? _blocks.at(index) : _entries[index].element();
}

void ElementList::append(DataElement const& element)
{
   Kind const kind = kindOf(element, _entries.empty() ? _blocks.kind() : _entries.back().kind());
   if (mayKeepInBlocks(kind)) {
      _blocks.append(element, kind, 1);
      accountInBlocks(1);
   } else {
      append(Entry::clone(element));
   }
}

void ElementList::append(DataElement* element) { append(Entry::lent(element)); }

void ElementList::append(Entry entry)
{
   leaveBlocks();
   _entries.push_back(std::move(entry));
   account(_entries.size() - 1);
}

void ElementList::appendClones(DataElement const& prototype, std::size_t number)
{
   appendClones(Entry::lent(const_cast<DataElement*>(&prototype)), number); // which only clones it
}

void ElementList::appendClones(Entry const& prototype, std::size_t number)
{
   std::size_t const before = size();
   try {
      if (mayKeepInBlocks(prototype.kind()) && number != 0) {
         _blocks.append(prototype.element(), prototype.kind(), number);
         accountInBlocks(number);
         return;
      }
      if (number > _entries.max_size() - before) {
         throw std::bad_alloc();
      }
      if (before + number > _entries.capacity()) {
         _entries.reserve(std::max(before + number, std::min(2 * before, _entries.max_size())));
      }
      for (; number != 0; --number) {
         append(Entry::clone(prototype));
      }
   } catch (...) {
      truncate(before);
      throw;
   }
}

void ElementList::replace(std::size_t index, DataElement const& element)
{
   Kind const kind = kindOf(element, inBlocks() ? _blocks.kind() : _entries[index].kind());
   if (inBlocks() && kind == _blocks.kind()) {
      operationsOf(kind).assign(_blocks.at(index), element);
   } else {
      replace(index, Entry::clone(element));
   }
}

void ElementList::replace(std::size_t index, DataElement* element) { replace(index, Entry::lent(element)); }

void ElementList::replace(std::size_t index, Entry entry)
{
   leaveBlocks();
   Entry& replaced = _entries[index];
   if (entry.kind() == replaced.kind() && entry.lasting() == replaced.lasting()) {
      replaced.replaceInRun(std::move(entry));
   } else {
      replaced = std::move(entry);
      accountAll();
   }
}

void ElementList::truncate(std::size_t size) noexcept
{
   if (inBlocks()) {
      _blocks.truncate(size);
   }
   while (_entries.size() > size) {
      _entries.pop_back();
   }
   if (_entries.empty() && size == 0) {
      _blocks.truncate(0);
   }
   accountAll();
}

bool ElementList::mayKeepInBlocks(Kind kind) const noexcept
{
   return _use == For::array && operationsOf(kind).makeBlock != nullptr &&
          (empty() || (inBlocks() && kind == _blocks.kind()));
}

void ElementList::leaveBlocks()
{
   if (!inBlocks()) {
      return;
   }
   std::size_t const size = _blocks.size();
   std::vector<Entry> entries;
   entries.reserve(2 * size);
   for (std::size_t i = 0; i < size; ++i) {
      entries.push_back(Entry::inBlock(_blocks.at(i), _blocks.kind()));
   }
   _entries = std::move(entries);
   accountAll();
}

void ElementList::accountInBlocks(std::size_t number) noexcept
{
   KindOperations const& operations = operationsOf(_blocks.kind());
   // Numbers are as long as their boundary, so that there is no padding between them.
   account({number * operations.fixedLength, operations.boundary, false});
}

void ElementList::account(std::size_t index) noexcept
{
   Entry const& entry = _entries[index];
   Extent const lasting = entry.lasting();
   account(lasting);
   bool const goesOn = index != 0 && _entries[index - _lastRun].continueRun(lasting);
   _lastRun = static_cast<std::uint8_t>(goesOn ? _lastRun + 1 : 1);
   Kind const kind = entry.kind();
   _allOfOneKind = _allOfOneKind && _entries.front().kind() == kind;
   bool const numbersAlone = _allOfOneKind && operationsOf(kind).fixedLength != 0;
   _numbersAlone = numbersAlone ? NumbersAlone(kind, index + 1) : NumbersAlone();
}

void ElementList::account(Extent const& lasting) noexcept
{
   _allOfOneLength = _allOfOneLength && lasting.length != 0;
   _allOfOneBoundary = _allOfOneBoundary && lasting.boundary != 0;
   _boundary = std::max(_boundary, lasting.boundary);
   _length = alignUp(_length, std::max(lasting.boundary, 1U)) + lasting.length;
}

void ElementList::accountAll() noexcept
{
   _numbersAlone = NumbersAlone();
   _allOfOneKind = true;
   _allOfOneLength = true;
   _allOfOneBoundary = true;
   _boundary = 1;
   _length = _start;
   if (inBlocks()) {
      accountInBlocks(_blocks.size());
   }
   for (std::size_t i = 0; i < _entries.size(); ++i) {
      _entries[i].beginRun();
      account(i);
   }
}

} // namespace rti1516e
