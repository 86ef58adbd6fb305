// Where an element may begin, and how far it reaches.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace rti1516e {

// The next multiple of the boundary from an index in memory on.
constexpr std::size_t alignInMemory(std::size_t index, unsigned int boundary) noexcept
{
   bool const isPowerOfTwo = (boundary & (boundary - 1)) == 0;
   std::size_t const last = std::size_t{boundary} - 1;
   return isPowerOfTwo ? (index + last) & ~last : index + (boundary - index % boundary) % boundary;
}

// From any index on. What lies beyond the largest index is that index, which no buffer holds.
constexpr std::size_t alignUp(std::size_t index, unsigned int boundary) noexcept
{
   std::size_t const aligned = alignInMemory(index, boundary);
   return aligned < index ? std::numeric_limits<std::size_t>::max() : aligned;
}

// The octet boundary of all elements with bodies of a class; 0 if it depends on what is in them.
template <class Body, class = void>
inline constexpr unsigned int commonBoundary = 0;
template <class Body>
inline constexpr unsigned int commonBoundary<Body, std::void_t<decltype(Body::boundary)>> = Body::boundary;

// What is asked of an element before it is encoded or decoded. An element of a foreign class is asked for its
// length only for its own sake: it would look through all that is in it, and does so again when it is
// encoded.
enum class Wanted
{
   boundary,        // the boundary, and whether there is something foreign
   room,            // the length as well, as far as it is told at once, if there is nothing foreign
   lengthInAnyCase, // and else too
   leastLength      // the length below which nothing can be decoded; 0 for what is foreign
};

struct Extent
{
   std::size_t length = 0;
   unsigned int boundary = 1;
   // Whether there is an element in it, or the prototype of one, that is not of the library's own classes, so
   // that its octets come from foreign code and their number is not known for certain.
   bool foreign = false;

   constexpr bool operator==(Extent const& other) const noexcept
   {
      return length == other.length && boundary == other.boundary && foreign == other.foreign;
   }

   // Another element behind this one.
   constexpr void append(Extent const& next) noexcept
   {
      length = alignInMemory(length, next.boundary) + next.length;
      include(next);
   }
   // Another element whose boundary is a power of two, and included already.
   constexpr void append(std::size_t lengthOfNext, unsigned int powerOfTwo) noexcept
   {
      std::size_t const last = std::size_t{powerOfTwo} - 1;
      length = ((length + last) & ~last) + lengthOfNext;
   }
   // Another element, where what may have no octets may also stand behind padding that is not there.
   constexpr void append(Extent const& next, Wanted wanted) noexcept
   {
      if (wanted == Wanted::leastLength && next.length == 0) {
         include(next);
      } else {
         append(next);
      }
   }
   // Another element whose boundary counts.
   constexpr void include(Extent const& other) noexcept
   {
      boundary = std::max(boundary, other.boundary);
      foreign = static_cast<bool>(foreign | other.foreign);
   }
};

} // namespace rti1516e
