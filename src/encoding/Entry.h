// One element of an array or a record.
#pragma once

#include "src/encoding/Extent.h"
#include "src/encoding/Input.h"
#include "src/encoding/Kind.h"
#include "src/encoding/Output.h"

#include <RTI/encoding/DataElement.h>

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace rti1516e {

// An element that is owned by the entry, or kept alive by somebody else.
//
// The entry remembers the element's octet boundary from the last time that it was determined. An operation on
// a nested element determines all boundaries first, and then goes down once; the atomic lets several threads
// encode an element at once, who find the same.
class Entry
{
public:
   // Owns a clone.
   static Entry clone(DataElement const& element);
   static Entry clone(Entry const& other);
   // Does not own. Fails if the pointer is null.
   static Entry lent(DataElement* element);
   // Of a known kind that has one boundary; the element is a block's.
   static Entry inBlock(DataElement& element, Kind kind) noexcept { return {&element, kind, false, 1}; }

   Entry(Entry&& other) noexcept;
   // Replaces the element. One that is replaced by itself stays, and stays owned.
   Entry& operator=(Entry&& other) noexcept;
   // The same, by one of the same kind and with the same lasting extent, where it is a part of a run.
   void replaceInRun(Entry&& other) noexcept;
   ~Entry();

   DataElement& element() const noexcept { return *_element; }
   Kind kind() const noexcept { return _kind; }
   // What no operation upon the element changes: the length and the boundary of a number, and of a fixed
   // array of numbers; the boundary alone where the kind has one. The rest is 0.
   Extent lasting() const noexcept;

   // Neighbours with lasting lengths, of which none has a greater boundary than the first one, are a run:
   // they stand together in the same way wherever it begins. The first one knows how many they are and how
   // long they are together, which is 0 where there is no run.
   unsigned int runLength() const noexcept { return _runLength; }
   unsigned int runSize() const noexcept { return _runSize; }
   void beginRun() noexcept;
   // Whether the next entry joins the run.
   bool continueRun(Extent const& next) noexcept;

   unsigned int boundary() const noexcept { return _boundary.load(std::memory_order_relaxed); }
   void remember(unsigned int boundary) const noexcept
   {
      if (boundary != this->boundary()) {
         _boundary.store(boundary, std::memory_order_relaxed);
      }
   }

   // The operations of a body, upon this alone.
   Extent measure(Wanted wanted) const;
   std::size_t write(Output& out, std::size_t index) const;
   std::size_t read(Input const& in, std::size_t index) const;

private:
   Entry(DataElement* element, Kind kind, bool owned, unsigned int boundary) noexcept;

   bool _owned : 1;
   std::uint8_t _runSize : 7;
   Kind _kind;
   std::uint16_t _runLength = 0;
   std::atomic<std::uint32_t> mutable _boundary;
   DataElement* _element;
};

} // namespace rti1516e
