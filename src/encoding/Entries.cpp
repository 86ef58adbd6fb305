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

// A record or a fixed array, which have bodies of one class.
ElementList& listIn(Entry const& entry)
{
   return entry.kind() == Kind::HLAfixedRecord
             ? ElementAccess::body(static_cast<HLAfixedRecord&>(entry.element()))
             : ElementAccess::body(static_cast<HLAfixedArray&>(entry.element()));
}

// Of what is no list, none.
NumbersAlone numbersAloneIn(Entry const& entry)
{
   bool const isList = entry.kind() == Kind::HLAfixedRecord || entry.kind() == Kind::HLAfixedArray;
   return isList ? listIn(entry).numbersAlone() : NumbersAlone();
}

// A run of a known class of elements, whose bodies are worked upon. The compiler knows better than a variable
// what to align elements of one boundary to. Lists of numbers alone are runs of their own.
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
      return entry != last && entry->kind() == kind && !numbersAloneIn(*entry);
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

// The list in an entry, if it goes on with a run of lists that have nothing but as many numbers of one kind.
ElementList* alike(Entry const* entry, Entry const* last, Kind kind, NumbersAlone numbers)
{
   if (entry == last || entry->kind() != kind) {
      return nullptr;
   }
   ElementList& list = listIn(*entry);
   return list.numbersAlone() == numbers ? &list : nullptr;
}

// Such a run, which is a run of numbers.
template <class Number>
struct RunOfLists
{
   using Traits = typename BasicBody<Number>::Traits;

   static Reached<std::size_t> write(Entry const* entry, Entry const* last, Output& out, std::size_t index)
   {
      ElementList const* list = &listIn(*entry);
      Kind const kind = entry->kind();
      NumbersAlone const numbers = list->numbersAlone();
      std::size_t const length = numbers.count() * Traits::fixedLength;
      index = out.align(index, Traits::boundary);
      do {
         char* const to = out.at(index, length);
         Entry const* number = list->entries();
         for (std::size_t i = 0; i != length; i += Traits::fixedLength) {
            Traits::write(body(*number++).value(), to + i);
         }
         index += length;
         list = alike(++entry, last, kind, numbers);
      } while (list != nullptr);
      return {entry, index};
   }

   static Reached<std::size_t> read(Entry const* entry, Entry const* last, Input const& in, std::size_t index)
   {
      ElementList* list = &listIn(*entry);
      Kind const kind = entry->kind();
      NumbersAlone const numbers = list->numbersAlone();
      std::size_t const length = numbers.count() * Traits::fixedLength;
      index = alignUp(index, Traits::boundary);
      do {
         if (in.left(index) < length) {
            return {entry + 1, list->read(in, index)}; // what is there, and fails
         }
         char const* const from = in.at(index, length, failure::indexOutOfBounds);
         Entry const* number = list->entries();
         for (std::size_t i = 0; i != length; i += Traits::fixedLength) {
            body(*number++).target() = Traits::load(from + i);
         }
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

// Calls use with a run of lists of numbers of a kind. What is called for each entry in turn is to be one piece
// of code: passed to another function, what use has got hold of goes through memory.
template <class Use>
[[gnu::always_inline]] inline auto withRunOfLists(Kind kind, Use const& use)
{
   switch (kind) {
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
   return use(RunOfLists<HLAoctet>()); // for there are no others
}

// Calls use with the run that begins with the entry.
template <class Use>
[[gnu::always_inline]] inline auto withRun(Entry const& first, Use const& use)
{
   switch (first.kind()) {
#define RTI_CASE_BASIC(Name, Value) RTI_CASE(Name)
#define RTI_CASE(Name) \
   case Kind::Name:    \
      return use(Run<Kind::Name, Name>());
      RTI_FOR_EACH_BASIC_ELEMENT(RTI_CASE_BASIC)
      RTI_FOR_EACH_CONSTRUCTED_ELEMENT(RTI_CASE)
#undef RTI_CASE
#undef RTI_CASE_BASIC
   default:
      return use(Foreign());
   }
}

} // namespace

Extent measure(Entry const* first, Entry const* last, Wanted wanted, Extent all)
{
   Reached<Extent> at{first, all};
   while (at.entry != last) {
      if (unsigned int const length = at.entry->numberLength()) {
         at.result.appendNumbers(length, 1);
         ++at.entry;
      } else if (NumbersAlone const numbers = numbersAloneIn(*at.entry)) {
         Kind const kind = at.entry->kind();
         std::size_t number = 0;
         do {
            number += numbers.count();
         } while (alike(++at.entry, last, kind, numbers) != nullptr);
         at.result.appendNumbers(operationsOf(numbers.kind()).fixedLength, number);
      } else {
         at = withRun(*at.entry, [entry = at.entry, last, wanted, all = at.result](auto run) {
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
      auto const write = [entry = at.entry, last, &out, index = at.result](auto run) {
         return run.write(entry, last, out, index);
      };
      NumbersAlone const numbers = numbersAloneIn(*at.entry);
      at = numbers ? withRunOfLists(numbers.kind(), write) : withRun(*at.entry, write);
   }
   return at.result;
}

std::size_t read(Entry const* first, Entry const* last, Input const& in, std::size_t index)
{
   Reached<std::size_t> at{first, index};
   while (at.entry != last) {
      auto const read = [entry = at.entry, last, &in, index = at.result](auto run) {
         return run.read(entry, last, in, index);
      };
      NumbersAlone const numbers = numbersAloneIn(*at.entry);
      at = numbers ? withRunOfLists(numbers.kind(), read) : withRun(*at.entry, read);
   }
   return at.result;
}

} // namespace rti1516e
