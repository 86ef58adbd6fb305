// What a basic element points to.
#pragma once

#include "src/encoding/BasicTraits.h"
#include "src/encoding/Extent.h"
#include "src/encoding/Input.h"
#include "src/encoding/Output.h"

#include <cstddef>
#include <utility>

namespace rti1516e {

template <class Element>
class BasicBody
{
public:
   using Traits = TraitsOf<Element>;
   using Value = typename Traits::Value;
   static constexpr unsigned int boundary = Traits::boundary;

   explicit BasicBody(Value const& value) : _value(&_own), _own(value) {}
   explicit BasicBody(Value* external) : _own() { use(external); }
   BasicBody(BasicBody const&) = delete;
   BasicBody& operator=(BasicBody const&) = delete;

   Value const& value() const noexcept { return *_value; }
   Value& target() noexcept { return *_value; }

   void set(Value value) noexcept
   {
      _own = std::move(value);
      _value = &_own;
   }
   void use(Value* external) noexcept { _value = external != nullptr ? external : &_own; }

   Integer64 hash() const noexcept { return Traits::hash(value()); }

   Extent measure(Wanted wanted) const
   {
      if constexpr (Traits::fixedLength != 0) {
         return {Traits::fixedLength, Traits::boundary, false};
      }
      switch (wanted) {
      case Wanted::boundary:
         return {0, Traits::boundary, false};
      case Wanted::room:
         return {Traits::room(value()), Traits::boundary, false};
      case Wanted::leastLength: // the count of a text
         return {Traits::boundary, Traits::boundary, false};
      default:
         return {Traits::length(value()), Traits::boundary, false};
      }
   }

   std::size_t write(Output& out, std::size_t index) const
   {
      if constexpr (Traits::fixedLength != 0) {
         Traits::write(value(), out.aligned<Traits::fixedLength>(index));
         return index;
      } else {
         return Traits::write(value(), out, index);
      }
   }

   std::size_t read(Input const& in, std::size_t index)
   {
      char const* const from = in.at(index, Traits::boundary, failure::indexOutOfBounds);
      return index + Traits::read(target(), from, in.left(index));
   }

private:
   Value* _value; // the caller's variable, or what is the element's own
   Value _own;
};

} // namespace rti1516e
