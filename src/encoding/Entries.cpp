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

// How far a run has come: neighbours of one kind, which the kind is looked up for once.
template <class Result>
struct Reached
{
   Entry const* entry;
   Result result; // the extent of all so far, or the index
};

// A run of a known class of elements, whose bodies are worked upon. The compiler knows better than a variable
// what to align elements of one boundary to.
template <Kind kind, class Element>
struct Run
{
   static auto& body(Entry const& entry)
   {
      return ElementAccess::body(static_cast<Element&>(entry.element()));
   }
   static constexpr unsigned int common =
      commonBoundary<std::remove_reference_t<decltype(ElementAccess::body(std::declval<Element&>()))>>;
   static unsigned int boundaryOf(Entry const& entry) { return common != 0 ? common : entry.boundary(); }
   static bool goesOn(Entry const* entry, Entry const* last)
   {
      return entry != last && entry->kind() == kind;
   }

   static Reached<Extent> measure(Entry const* entry, Entry const* last, Wanted wanted, Extent all)
   {
      do {
         Extent const next = body(*entry).measure(wanted);
         if constexpr (common == 0) {
            entry->remember(next.boundary);
         }
         all.append(next, wanted);
      } while (goesOn(++entry, last));
      return {entry, all};
   }
   static Reached<std::size_t> write(Entry const* entry, Entry const* last, Output& out, std::size_t index)
   {
      do {
         index = body(*entry).write(out, out.align(index, boundaryOf(*entry)));
      } while (goesOn(++entry, last));
      return {entry, index};
   }
   static Reached<std::size_t> read(Entry const* entry, Entry const* last, Input const& in, std::size_t index)
   {
      do {
         index = body(*entry).read(in, alignUp(index, boundaryOf(*entry)));
      } while (goesOn(++entry, last));
      return {entry, index};
   }
};

// A record or a fixed array, which have bodies of one class.
ElementList& listIn(Entry const& entry)
{
   return entry.kind() == Kind::HLAfixedRecord
             ? ElementAccess::body(static_cast<HLAfixedRecord&>(entry.element()))
             : ElementAccess::body(static_cast<HLAfixedArray&>(entry.element()));
}

// A run of records or fixed arrays with nothing but numbers of one kind, and as many in each: a run of
// numbers.
template <class Number>
struct RunOfLists
{
   using Body = BasicBody<Number>;
   using Traits = typename Body::Traits;

   static Reached<Extent> measure(Entry const* entry, Entry const* last, Wanted, Extent all)
   {
      Entry const* const first = entry;
      Kind const kind = entry->kind();
      NumbersAlone const numbers = listIn(*first).numbersAlone();
      while (goesOn(++entry, last, kind, numbers)) {
      }
      all.append({static_cast<std::size_t>(entry - first) * lengthOf(numbers), Traits::boundary, false});
      return {entry, all};
   }

   static Reached<std::size_t> write(Entry const* entry, Entry const* last, Output& out, std::size_t index)
   {
      Kind const kind = entry->kind();
      NumbersAlone const numbers = listIn(*entry).numbersAlone();
      std::size_t const length = lengthOf(numbers);
      index = out.align(index, Traits::boundary);
      do {
         char* const to = out.at(index, length);
         Entry const* number = listIn(*entry).entries();
         for (std::size_t i = 0; i != length; i += Traits::fixedLength) {
            Traits::write(body(*number++).value(), to + i);
         }
         index += length;
      } while (goesOn(++entry, last, kind, numbers));
      return {entry, index};
   }

   static Reached<std::size_t> read(Entry const* entry, Entry const* last, Input const& in, std::size_t index)
   {
      Kind const kind = entry->kind();
      NumbersAlone const numbers = listIn(*entry).numbersAlone();
      std::size_t const length = lengthOf(numbers);
      index = alignUp(index, Traits::boundary);
      do {
         if (in.left(index) < length) {
            return {entry + 1, listIn(*entry).read(in, index)}; // what is there, and fails
         }
         char const* const from = in.at(index, length, failure::indexOutOfBounds);
         Entry const* number = listIn(*entry).entries();
         for (std::size_t i = 0; i != length; i += Traits::fixedLength) {
            body(*number++).target() = Traits::load(from + i);
         }
         index += length;
      } while (goesOn(++entry, last, kind, numbers));
      return {entry, index};
   }

private:
   static Body& body(Entry const& number)
   {
      return ElementAccess::body(static_cast<Number&>(number.element()));
   }
   static std::size_t lengthOf(NumbersAlone numbers) { return numbers.count() * Traits::fixedLength; }
   static bool goesOn(Entry const* entry, Entry const* last, Kind kind, NumbersAlone numbers)
   {
      return entry != last && entry->kind() == kind && listIn(*entry).numbersAlone() == numbers;
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

template <class List, class Use>
auto withRunOf(NumbersAlone numbers, List list, Use use)
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
   return use(list);
}

// Calls use with the run that begins with the entry.
template <class Use>
[[gnu::always_inline]] inline auto withRun(Entry const& first, Use use)
{
   switch (first.kind()) {
#define RTI_CASE_BASIC(Name, Value) RTI_CASE(Name)
#define RTI_CASE(Name) \
   case Kind::Name:    \
      return use(Run<Kind::Name, Name>());
      RTI_FOR_EACH_BASIC_ELEMENT(RTI_CASE_BASIC)
      RTI_CASE(HLAvariableArray)
      RTI_CASE(HLAvariantRecord)
      RTI_CASE(HLAopaqueData)
#undef RTI_CASE
#undef RTI_CASE_BASIC
   case Kind::HLAfixedArray:
      return withRunOf(listIn(first).numbersAlone(), Run<Kind::HLAfixedArray, HLAfixedArray>(), use);
   case Kind::HLAfixedRecord:
      return withRunOf(listIn(first).numbersAlone(), Run<Kind::HLAfixedRecord, HLAfixedRecord>(), use);
   default:
      return use(Foreign());
   }
}

} // namespace

Extent measure(Entry const* first, Entry const* last, Wanted wanted, Extent all)
{
   Reached<Extent> at{first, all};
   while (at.entry != last) {
      KindOperations const& known = operationsOf(at.entry->kind());
      if (known.fixedLength != 0) {
         at.result.append({known.fixedLength, known.boundary, false});
         ++at.entry;
      } else {
         at = withRun(*at.entry, [entry = at.entry, all = at.result, last, wanted](auto run) {
            return run.measure(entry, last, wanted, all);
         });
      }
   }
   return at.result;
}

std::size_t write(Entry const* first, Entry const* last, Output& out, std::size_t index)
{
   Reached<std::size_t> at{first, index};
   while (at.entry != last) {
      at = withRun(*at.entry, [entry = at.entry, index = at.result, last, &out](auto run) {
         return run.write(entry, last, out, index);
      });
   }
   return at.result;
}

std::size_t read(Entry const* first, Entry const* last, Input const& in, std::size_t index)
{
   Reached<std::size_t> at{first, index};
   while (at.entry != last) {
      at = withRun(*at.entry, [entry = at.entry, index = at.result, last, &in](auto run) {
         return run.read(entry, last, in, index);
      });
   }
   return at.result;
}

} // namespace rti1516e
