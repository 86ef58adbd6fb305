// Elements of one basic kind, in memory of their own.
#pragma once

#include "src/encoding/BasicBody.h"
#include "src/encoding/ElementAccess.h"

#include <RTI/encoding/DataElement.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>

namespace rti1516e {

// A large array of basic elements made one by one would be two small pieces of memory for each, and an
// encoding would wait for each of them. A block is one piece of memory for the values, side by side, and the
// elements, side by side, and its encoding goes over the values alone. It belongs to a chain of blocks.
class ElementBlock
{
public:
   virtual ~ElementBlock() = default;
   ElementBlock(ElementBlock const&) = delete;
   ElementBlock& operator=(ElementBlock const&) = delete;

   std::size_t capacity() const noexcept { return _capacity; }
   std::size_t size() const noexcept { return _size; }
   std::size_t room() const noexcept { return _capacity - _size; }
   virtual DataElement& at(std::size_t index) const noexcept = 0;

   // Makes elements of the value of another of the kind, or of the values in another block of the kind, no
   // more than there is room for. A failure leaves those that were made before.
   virtual void append(DataElement const& original, std::size_t number) = 0;
   virtual void append(ElementBlock const& originals) = 0;
   virtual void removeLast() noexcept = 0;

   // The operations of a body, upon all elements one after another.
   virtual void measure(Wanted wanted, Extent& all) const = 0;
   virtual std::size_t write(Output& out, std::size_t index) const = 0;
   virtual std::size_t read(Input const& in, std::size_t index) = 0;

   std::unique_ptr<ElementBlock> next;
   ElementBlock* previous = nullptr;
   std::size_t first = 0; // the index of its first element in the chain

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
   using Traits = typename Body::Traits;

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

   DataElement& at(std::size_t index) const noexcept override { return elements()[index]; }

   void append(DataElement const& original, std::size_t number) override
   {
      auto const& value = ElementAccess::body(static_cast<Element const&>(original)).value();
      for (; number != 0; --number) {
         append(value);
      }
   }

   void append(ElementBlock const& originals) override
   {
      auto const& block = static_cast<BasicBlock const&>(originals);
      std::for_each_n(block.bodies(), block._size, [this](Body const& body) { append(body.value()); });
   }

   void removeLast() noexcept override
   {
      --_size;
      ElementAccess::remove(elements() + _size);
      bodies()[_size].~Body();
   }

   void measure(Wanted wanted, Extent& all) const override
   {
      std::for_each_n(bodies(), _size,
                      [wanted, &all](Body const& body) { all.append(body.measure(wanted)); });
   }

   std::size_t write(Output& out, std::size_t index) const override
   {
      if constexpr (Traits::fixedLength != 0) {
         index = alignInMemory(index, Traits::boundary);
         char* to = out.at(index, _size * Traits::fixedLength);
         std::for_each_n(bodies(), _size, [&to](Body const& body) {
            Traits::write(body.value(), to);
            to += Traits::fixedLength;
         });
         return index + _size * Traits::fixedLength;
      } else {
         std::for_each_n(bodies(), _size,
                         [&out, &index](Body const& body) { index = body.write(out, index); });
         return index;
      }
   }

   std::size_t read(Input const& in, std::size_t index) override
   {
      if constexpr (Traits::fixedLength != 0) {
         index = alignUp(index, Traits::boundary);
         std::size_t const there = std::min(_size, in.left(index) / Traits::fixedLength);
         char const* from = in.at(index, 0, failure::indexOutOfBounds);
         std::for_each_n(bodies(), there, [&from](Body& body) {
            body.target() = Traits::load(from);
            from += Traits::fixedLength;
         });
         if (there < _size) {
            failure::raise(failure::indexOutOfBounds);
         }
         return index + _size * Traits::fixedLength;
      } else {
         std::for_each_n(bodies(), _size, [&in, &index](Body& body) {
            index = body.read(in, alignUp(index, Traits::boundary));
         });
         return index;
      }
   }

   // Blocks are placed in memory of more than their own size, which a sized delete would get wrong.
   // NOLINTNEXTLINE(cert-dcl54-cpp,misc-new-delete-overloads)
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

   void append(typename Traits::Value const& value)
   {
      Body* const body = new (bodies() + _size) Body(value);
      ElementAccess::place<Element>(elements() + _size, *body);
      ++_size;
   }

   Body* bodies() const noexcept
   {
      static_assert(alignof(Body) <= alignof(BasicBlock) && alignof(Element) <= alignof(BasicBlock));
      return reinterpret_cast<Body*>(const_cast<BasicBlock*>(this) + 1);
   }
   Element* elements() const noexcept { return reinterpret_cast<Element*>(bodies() + capacity()); }
};

} // namespace rti1516e
