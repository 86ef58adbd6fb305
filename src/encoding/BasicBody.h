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

   explicit BasicBody(Value const& value) : _external(nullptr), _own(value) {}
   explicit BasicBody(Value* external) : _external(external), _own() {}

   Value const& value() const noexcept { return _external != nullptr ? *_external : _own; }
   Value& target() noexcept { return _external != nullptr ? *_external : _own; }

   void set(Value value) noexcept
   {
      _own = std::move(value);
      _external = nullptr;
   }
   void use(Value* external) noexcept { _external = external; }

   Integer64 hash() const noexcept { return Traits::hash(value()); }

   Extent measure(Wanted wanted) const
   {
      switch (wanted) {
      case Wanted::boundary:
         return {0, Traits::boundary, false};
      case Wanted::room:
         return {Traits::room(value()), Traits::boundary, false};
      case Wanted::leastLength: // the number, or the count of a text
         return {Traits::boundary, Traits::boundary, false};
      default:
         return {Traits::length(value()), Traits::boundary, false};
      }
   }

   void write(Output& out) const
   {
      if constexpr (Traits::fixedLength != 0) {
         Traits::write(value(), out.take(Traits::fixedLength));
      } else {
         Traits::write(value(), out);
      }
   }

   std::size_t read(Input const& in, std::size_t index)
   {
      char const* const from = in.at(index, Traits::boundary, failure::indexOutOfBounds);
      return index + Traits::read(target(), from, in.left(index));
   }

private:
   Value* _external;
   Value _own;
};

} // namespace rti1516e
