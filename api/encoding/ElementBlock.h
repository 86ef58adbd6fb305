// Elements of one basic kind, in memory of their own.
#pragma once

#include "api/encoding/BasicBody.h"
#include "api/encoding/ElementAccess.h"
#include "api/encoding/Entry.h"

#include <RTI/encoding/DataElement.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace rti1516e {

// A large array of basic elements made one by one would be two small pieces of memory for each, and an
// encoding would wait for each of them. A block is one piece of memory for the values, side by side, and the
// elements, side by side, and its encoding goes over the values alone.
class ElementBlock
{
public:
   virtual ~ElementBlock() = default;
   ElementBlock(ElementBlock const&) = delete;
   ElementBlock& operator=(ElementBlock const&) = delete;

   std::size_t capacity() const noexcept { return _capacity; }
   std::size_t size() const noexcept { return _size; }
   std::size_t room() const noexcept { return _capacity - _size; }

   // Makes elements of the value of another of the kind, no more than there is room for, and entries of them
   // in a list that has room as well. A failure leaves those that were made before.
   virtual void append(DataElement const& original, Kind kind, std::size_t number,
                       std::vector<Entry>& entries) = 0;
   // Takes the last element away.
   virtual void removeLast() noexcept = 0;

   // All elements, one after another.
   virtual void write(Output& out) const = 0;
   virtual std::size_t read(Input const& in, std::size_t index) = 0;

   // The block behind this one.
   std::unique_ptr<ElementBlock> next;

protected:
   explicit ElementBlock(std::size_t capacity) noexcept : _capacity(capacity) {}

   std::size_t _size = 0;

private:
   std::size_t const _capacity;
};

template <class Element>
class BasicBlock final : public ElementBlock
{
public:
   using Body = BasicBody<Element>;
   using Row = typename Body::Row;

   static std::unique_ptr<ElementBlock> make(std::size_t capacity)
   {
      constexpr std::size_t most =
         (std::numeric_limits<std::ptrdiff_t>::max() - sizeof(BasicBlock)) / (sizeof(Body) + sizeof(Element));
      if (capacity > most) {
         throw std::bad_alloc();
      }
      return std::unique_ptr<ElementBlock>(new (Capacity{capacity}) BasicBlock(capacity));
   }
   ~BasicBlock() override
   {
      while (_size != 0) {
         removeLast();
      }
   }

   void append(DataElement const& original, Kind kind, std::size_t number,
               std::vector<Entry>& entries) override
   {
      auto const& value = ElementAccess::body(static_cast<Element const&>(original)).value();
      for (; number != 0; --number) {
         Body* const body = new (bodies() + _size) Body(value);
         Element* const element = ElementAccess::place<Element>(elements() + _size, *body);
         ++_size;
         entries.push_back(Entry::inBlock(*element, kind));
      }
   }

   void removeLast() noexcept override
   {
      --_size;
      ElementAccess::remove(elements() + _size);
      bodies()[_size].~Body();
   }

   void write(Output& out) const override
   {
      if constexpr (Row::fixedLength != 0) {
         out.align(Row::boundary);
         char* room = out.take(_size * Row::fixedLength);
         std::for_each_n(bodies(), _size, [&room](Body const& body) {
            Row::write(body.value(), room);
            room += Row::fixedLength;
         });
      } else {
         std::for_each_n(bodies(), _size, [&out](Body const& body) {
            out.align(Row::boundary);
            body.write(out);
         });
      }
   }

   std::size_t read(Input const& in, std::size_t index) override
   {
      if constexpr (Row::fixedLength != 0) {
         index = alignUp(index, Row::boundary);
         std::size_t const there = std::min(_size, in.left(index) / Row::fixedLength);
         char const* from = in.at(index, 0, failure::indexOutOfBounds);
         std::for_each_n(bodies(), there, [&from](Body& body) {
            body.target() = Row::load(from);
            from += Row::fixedLength;
         });
         if (there < _size) {
            failure::raise(failure::indexOutOfBounds);
         }
         return index + _size * Row::fixedLength;
      } else {
         std::for_each_n(bodies(), _size,
                         [&in, &index](Body& body) { index = body.read(in, alignUp(index, Row::boundary)); });
         return index;
      }
   }

   void operator delete(void* memory) noexcept { ::operator delete(memory); }

private:
   // The bodies, and behind the room for all of them the elements, follow the block in its memory.
   struct Capacity
   {
      std::size_t number;
   };
   static void* operator new(std::size_t size, Capacity capacity)
   {
      return ::operator new(size + capacity.number * (sizeof(Body) + sizeof(Element)));
   }
   static void operator delete(void* memory, Capacity) noexcept { ::operator delete(memory); }

   explicit BasicBlock(std::size_t capacity) noexcept : ElementBlock(capacity) {}

   Body* bodies() const noexcept
   {
      static_assert(alignof(Body) <= alignof(BasicBlock) && alignof(Element) <= alignof(BasicBlock));
      return std::launder(reinterpret_cast<Body*>(const_cast<BasicBlock*>(this) + 1));
   }
   Element* elements() const noexcept
   {
      return std::launder(reinterpret_cast<Element*>(bodies() + capacity()));
   }
};

} // namespace rti1516e
