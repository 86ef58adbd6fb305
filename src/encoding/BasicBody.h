// What a basic element points to.
#pragma once

#include "src/encoding/BasicRows.h"
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
   using Row = RowOf<Element>;
   using Value = typename Row::Value;

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

   Integer64 hash() const noexcept { return Row::hash(value()); }

   Extent measure(Wanted wanted) const
   {
      switch (wanted) {
      case Wanted::boundary:
         return {0, Row::boundary, false};
      case Wanted::room:
         return {Row::room(value()), Row::boundary, false};
      case Wanted::leastLength: // the number, or the count of a text
         return {Row::boundary, Row::boundary, false};
      default:
         return {Row::length(value()), Row::boundary, false};
      }
   }

   void write(Output& out) const
   {
      if constexpr (Row::fixedLength != 0) {
         Row::write(value(), out.take(Row::fixedLength));
      } else {
         Row::write(value(), out);
      }
   }

   std::size_t read(Input const& in, std::size_t index)
   {
      char const* const from = in.at(index, Row::boundary, failure::indexOutOfBounds);
      return index + Row::read(target(), from, in.left(index));
   }

private:
   Value* _external;
   Value _own;
};

} // namespace rti1516e
