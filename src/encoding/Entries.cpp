#include "src/encoding/Entries.h"

#include "src/encoding/BasicBody.h"
#include "src/encoding/CountedList.h"
#include "src/encoding/ElementAccess.h"
#include "src/encoding/ElementList.h"
#include "src/encoding/OpaqueBytes.h"
#include "src/encoding/Variant.h"

#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace rti1516e {

namespace {

// Elements of one length, which is their boundary, as numbers are.
template <class Body>
constexpr bool standSideBySide = false;
template <class Element>
constexpr bool standSideBySide<BasicBody<Element>> = TraitsOf<Element>::fixedLength != 0;

// How far a run has come: neighbours of one kind, which the kind is looked up for once.
template <class Result>
struct Reached
{
   Entry const* entry;
   Result result; // the extent of all so far, or the index
};

// The elements of a kind.
template <Kind kind, class Element>
struct Of
{
   static bool has(Entry const& entry) { return entry.kind() == kind; }
   static auto& body(Entry const& entry)
   {
      return ElementAccess::body(static_cast<Element&>(entry.element()));
   }
};

// Records and fixed arrays, which have bodies of one class. Those of numbers alone are runs of their own.
struct Lists
{
   static ElementList& body(Entry const& entry)
   {
      return entry.kind() == Kind::HLAfixedRecord ? Of<Kind::HLAfixedRecord, HLAfixedRecord>::body(entry)
                                                  : Of<Kind::HLAfixedArray, HLAfixedArray>::body(entry);
   }
   static bool has(Entry const& entry)
   {
      bool const isList = entry.kind() == Kind::HLAfixedRecord || entry.kind() == Kind::HLAfixedArray;
      return isList && !body(entry).numbersAlone();
   }
};

// A run of known elements, whose bodies are worked upon. The compiler knows better than a variable what to
// align elements of one boundary to.
template <class Elements>
struct Run : Elements
{
   using Elements::body;
   using Body = std::remove_reference_t<decltype(body(std::declval<Entry const&>()))>;
   static constexpr unsigned int common = commonBoundary<Body>;
   static unsigned int boundaryOf(Entry const& entry) { return common != 0 ? common : entry.boundary(); }
   static bool goesOn(Entry const* entry, Entry const* last)
   {
      return entry != last && Elements::has(*entry);
   }

   static Reached<Extent> measure(Entry const* entry, Entry const* last, Wanted wanted, Extent all)
   {
      do {
         Extent const next = body(*entry).measure(wanted);
         if constexpr (common != 0) {
            all.length = alignInMemory(all.length, common) + next.length;
         } else {
            entry->remember(next.boundary);
            all.append(next, wanted);
         }
      } while (goesOn(++entry, last));
      return {entry, all};
   }
   static Reached<std::size_t> write(Entry const* entry, Entry const* last, Output& out, std::size_t index)
   {
      do {
         index = body(*entry).write(out, common != 0 ? index : alignInMemory(index, entry->boundary()));
      } while (goesOn(++entry, last));
      return {entry, index};
   }
   static Reached<std::size_t> read(Entry const* entry, Entry const* last, Input const& in, std::size_t index)
   {
      index = alignUp(index, boundaryOf(*entry));
      while (true) {
         index = body(*entry).read(in, index);
         if (!goesOn(++entry, last)) {
            return {entry, index};
         }
         if constexpr (!standSideBySide<Body>) {
            index = alignUp(index, boundaryOf(*entry));
         }
      }
   }
};

// The list in an entry, if it goes on with a run of lists that have nothing but as many numbers of one kind.
ElementList* alike(Entry const* entry, Entry const* last, Kind kind, NumbersAlone numbers)
{
   if (entry == last || entry->kind() != kind) {
      return nullptr;
   }
   ElementList& list = Lists::body(*entry);
   return list.numbersAlone() == numbers ? &list : nullptr;
}

// Measures such a run.
Reached<Extent> measureListsOf(NumbersAlone numbers, Entry const* entry, Entry const* last, Extent all)
{
   Kind const kind = entry->kind();
   auto const length = static_cast<unsigned int>(operationsOf(numbers.kind()).fixedLength);
   std::size_t number = 0;
   do {
      number += numbers.count();
   } while (alike(++entry, last, kind, numbers) != nullptr);
   all.include({0, length, false});
   all.append(length * number, length);
   return {entry, all};
}

// Such a run, which is a run of numbers.
template <class Number>
struct RunOfLists
{
   using Traits = typename BasicBody<Number>::Traits;

   static Reached<std::size_t> write(NumbersAlone numbers, Entry const* entry, Entry const* last, Output& out,
                                     std::size_t index)
   {
      ElementList const* list = &Lists::body(*entry);
      Kind const kind = entry->kind();
      std::size_t const length = numbers.count() * Traits::fixedLength;
      index = alignInMemory(index, Traits::boundary);
      do {
         char* const to = out.at(index, length);
         Entry const* number = list->entries();
         std::size_t i = 0;
         do {
            Traits::write(body(*number++).value(), to + i);
            i += Traits::fixedLength;
         } while (i != length);
         index += length;
         list = alike(++entry, last, kind, numbers);
      } while (list != nullptr);
      return {entry, index};
   }

   static Reached<std::size_t> read(NumbersAlone numbers, Entry const* entry, Entry const* last,
                                    Input const& in, std::size_t index)
   {
      ElementList* list = &Lists::body(*entry);
      Kind const kind = entry->kind();
      std::size_t const length = numbers.count() * Traits::fixedLength;
      index = alignUp(index, Traits::boundary);
      do {
         if (in.left(index) < length) {
            return {entry + 1, list->read(in, index)}; // what is there, and fails
         }
         char const* const from = in.at(index, length, failure::indexOutOfBounds);
         Entry const* number = list->entries();
         std::size_t i = 0;
         do {
            body(*number++).target() = Traits::load(from + i);
            i += Traits::fixedLength;
         } while (i != length);
         index += length;
         list = alike(++entry, last, kind, numbers);
      } while (list != nullptr);
      return {entry, index};
   }

private:
   static auto& body(Entry const& number)
   {
      return ElementAccess::body(static_cast<Number&>(number.element()));
   }
};

struct Foreign
{
   static bool goesOn(Entry const* entry, Entry const* last)
   {
      return entry != last && entry->kind() == Kind::foreign;
   }

   static Reached<Extent> measure(Entry const* entry, Entry const* last, Wanted wanted, Extent all)
   {
      do {
         DataElement const& element = entry->element();
         std::size_t const length = wanted == Wanted::lengthInAnyCase ? element.getEncodedLength() : 0;
         Extent const next{length, std::max(element.getOctetBoundary(), 1U), true};
         entry->remember(next.boundary);
         all.append(next, wanted);
      } while (goesOn(++entry, last));
      return {entry, all};
   }
   static Reached<std::size_t> write(Entry const* entry, Entry const* last, Output& out, std::size_t index)
   {
      do {
         index = out.foreign(index, entry->element());
      } while (goesOn(++entry, last));
      return {entry, index};
   }
   static Reached<std::size_t> read(Entry const* entry, Entry const* last, Input const& in, std::size_t index)
   {
      do {
         index = entry->element().decodeFrom(in.buffer(), alignUp(index, entry->boundary()));
      } while (goesOn(++entry, last));
      return {entry, index};
   }
};

// Calls use with a run of lists of numbers of a kind.
template <class Use>
[[gnu::always_inline]] inline auto withRunOfLists(NumbersAlone numbers, Use use)
{
   switch (numbers.kind()) {
#define RTI_CASE(Name, Value)                           \
   case Kind::Name:                                     \
      if constexpr (TraitsOf<Name>::fixedLength != 0) { \
         return use(RunOfLists<Name>());                \
      }                                                 \
      break;
      RTI_FOR_EACH_BASIC_ELEMENT(RTI_CASE)
#undef RTI_CASE
   default:
      break;
   }
   __builtin_unreachable(); // for there are no others
}

Reached<std::size_t> writeListsOf(NumbersAlone numbers, Entry const* entry, Entry const* last, Output& out,
                                  std::size_t index)
{
   return withRunOfLists(numbers,
                         [=, &out](auto run) { return run.write(numbers, entry, last, out, index); });
}

Reached<std::size_t> readListsOf(NumbersAlone numbers, Entry const* entry, Entry const* last, Input const& in,
                                 std::size_t index)
{
   return withRunOfLists(numbers, [=, &in](auto run) { return run.read(numbers, entry, last, in, index); });
}

// Calls use with the run that begins with the entry, or ofNumbers if it begins with such a list. What is
// called for each entry in turn is to be one piece of code: what use has captured would go through memory
// elsewhere.
template <class Use, class OfNumbers>
[[gnu::always_inline]] inline auto withRun(Entry const& first, Use use, OfNumbers ofNumbers)
{
   switch (first.kind()) {
#define RTI_CASE(Name, Value) \
   case Kind::Name:           \
      return use(Run<Of<Kind::Name, Name>>());
      RTI_FOR_EACH_BASIC_ELEMENT(RTI_CASE)
      RTI_CASE(HLAvariableArray, )
      RTI_CASE(HLAvariantRecord, )
      RTI_CASE(HLAopaqueData, )
#undef RTI_CASE
   case Kind::HLAfixedArray:
   case Kind::HLAfixedRecord:
      if (NumbersAlone const numbers = Lists::body(first).numbersAlone()) {
         return ofNumbers(numbers);
      }
      return use(Run<Lists>());
   case Kind::foreign:
      return use(Foreign());
   case Kind::count:
      break;
   }
   __builtin_unreachable();
}

} // namespace

Extent measure(Entry const* first, Entry const* last, Wanted wanted, Extent all)
{
   Reached<Extent> at{first, all};
   while (at.entry != last) {
      unsigned int const length = at.entry->runLength();
      if (__builtin_expect(length != 0, 1)) { // or the compiler puts it behind all the rest
         at.result.append(length, at.entry->boundary());
         at.entry += at.entry->runSize();
         continue;
      }
      at = withRun(
         *at.entry, [=](auto run) { return run.measure(at.entry, last, wanted, at.result); },
         [=](NumbersAlone numbers) { return measureListsOf(numbers, at.entry, last, at.result); });
   }
   return at.result;
}

std::size_t write(Entry const* first, Entry const* last, Output& out, std::size_t index)
{
   Reached<std::size_t> at{first, index};
   while (at.entry != last) {
      at = withRun(
         *at.entry, [=, &out](auto run) { return run.write(at.entry, last, out, at.result); },
         [=, &out](NumbersAlone numbers) { return writeListsOf(numbers, at.entry, last, out, at.result); });
   }
   return at.result;
}

std::size_t read(Entry const* first, Entry const* last, Input const& in, std::size_t index)
{
   Reached<std::size_t> at{first, index};
   while (at.entry != last) {
      at = withRun(
         *at.entry, [=, &in](auto run) { return run.read(at.entry, last, in, at.result); },
         [=, &in](NumbersAlone numbers) { return readListsOf(numbers, at.entry, last, in, at.result); });
   }
   return at.result;
}

} // namespace rti1516e
