// The elements of an array, or the fields of a record.
#pragma once

#include "src/encoding/ElementBlocks.h"
#include "src/encoding/Entries.h"
#include "src/encoding/Entry.h"
#include "src/encoding/Extent.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace rti1516e {

// That a list has nothing but numbers of one kind, which stand side by side, and how many; or nothing.
class NumbersAlone
{
public:
   constexpr NumbersAlone() noexcept = default;
   constexpr NumbersAlone(Kind kind, std::size_t count) noexcept
      : _bits(std::uint64_t{count} << 8 | static_cast<std::uint64_t>(kind))
   {}
   constexpr explicit operator bool() const noexcept { return _bits != 0; }
   constexpr bool operator==(NumbersAlone other) const noexcept { return _bits == other._bits; }
   constexpr bool operator!=(NumbersAlone other) const noexcept { return _bits != other._bits; }
   constexpr Kind kind() const noexcept { return static_cast<Kind>(_bits & 0xFF); }
   constexpr std::size_t count() const noexcept { return _bits >> 8; }

private:
   std::uint64_t _bits = 0; // in one word, so that many lists are soon compared
};

// Elements that are encoded one after another, each aligned to its own boundary: the body of a fixed array
// and of a fixed record, and the greater part of a variable array's.
//
// A list for an array keeps its elements in blocks alone, as long as all of them are clones of one basic
// kind. As soon as something else comes in, there is an entry for each element, and what is in the blocks
// stays there.
class ElementList
{
public:
   enum class For : std::uint8_t
   {
      record,
      array
   };

   // Positions are counted from `start` on, where the first element may stand.
   explicit ElementList(For use, std::uint8_t start = 0) noexcept : _length(start), _use(use), _start(start)
   {}
   // Owns clones of all elements.
   ElementList(ElementList const& other);
   ElementList& operator=(ElementList const&) = delete;

   std::size_t size() const noexcept { return _entries.empty() ? _blocks.size() : _entries.size(); }
   bool empty() const noexcept { return _entries.empty() && _blocks.empty(); }

   // Fails if there is no such element.
   DataElement& at(std::size_t index) const;

   // A failure leaves the list as it was.
   void append(DataElement const& element);
   void append(DataElement* element);
   void appendClones(DataElement const& prototype, std::size_t number);
   void appendClones(Entry const& prototype, std::size_t number);
   void replace(std::size_t index, DataElement const& element);
   void replace(std::size_t index, DataElement* element);
   // Takes the last elements away.
   void truncate(std::size_t size) noexcept;

   // The body's operations. The length is that from position 0 to the end of the last element.
   Extent measure(Wanted wanted) const
   {
      bool const known = _allOfOneLength || (_allOfOneBoundary && wanted == Wanted::boundary);
      if (known) {
         return {_length, _boundary, false};
      }
      Extent const start{_start, _boundary, false};
      return inBlocks() ? _blocks.measure(wanted, start)
                        : rti1516e::measure(entries(), endOfEntries(), wanted, start);
   }
   NumbersAlone numbersAlone() const noexcept { return _numbersAlone; }
   // If the elements are numbers of one kind, in blocks or not; else all of it is 0.
   Extent extentOfNumbers() const noexcept
   {
      bool const numbers = numbersAlone() || (inBlocks() && _allOfOneLength);
      return numbers ? Extent{_length, _boundary, false} : Extent{0, 0, false};
   }
   Entry const* entries() const noexcept { return _entries.data(); }
   std::size_t write(Output& out, std::size_t index) const
   {
      return inBlocks() ? _blocks.write(out, index) : rti1516e::write(entries(), endOfEntries(), out, index);
   }
   std::size_t read(Input const& in, std::size_t index)
   {
      return inBlocks() ? _blocks.read(in, index) : rti1516e::read(entries(), endOfEntries(), in, index);
   }

private:
   Entry const* endOfEntries() const noexcept { return entries() + _entries.size(); }
   bool inBlocks() const noexcept { return _entries.empty() && !_blocks.empty(); }
   bool mayKeepInBlocks(Kind kind) const noexcept;
   void leaveBlocks();
   void append(Entry entry);
   void replace(std::size_t index, Entry entry);
   void accountInBlocks(std::size_t number) noexcept;
   void account(std::size_t index) noexcept;
   void account(Extent const& lasting) noexcept;
   void accountAll() noexcept;

   std::vector<Entry> _entries; // of all elements, or none

   // What the elements' kinds tell of the list, so that most lists need not be looked through: whether it is
   // of numbers alone; where they end, if each kind has one length, and their boundary, if each has one.
   NumbersAlone _numbersAlone; // beside the entries, with which it is looked at
   std::size_t _length;
   unsigned int _boundary = 1;
   bool _allOfOneKind = true;
   bool _allOfOneLength = true;
   bool _allOfOneBoundary = true;
   For _use;
   std::uint8_t _start;
   std::uint8_t _lastRun = 0; // how many entries are in the last one's run

   ElementBlocks _blocks;
};

} // namespace rti1516e
