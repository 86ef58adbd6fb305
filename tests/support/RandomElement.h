// Elements of any shape, nested, made from octets.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/encoding/DataElement.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace contract {

// What elements that can be decoded into one another have in common. A letter tells the kind: A and V are
// arrays, R and D records, L a long array, # a foreign element, small letters from 'a' on the basic elements
// in the order of their list, and * opaque data. The parts are the element of an array, the fields, or the
// alternatives, which are selected by octets from 1 on.
struct Shape
{
   char letter;
   std::vector<Shape> parts;
   std::size_t length = 0; // of a fixed array
};

// Reads a shape: a letter for each element, any other one for *, and a number below 8 for each length. It has
// few elements, so that what is legitimate takes little memory: many of them where an alternative of a
// variant record is never selected, or in records without an octet, cost much for few octets. But one may be
// a long array, all of whose octets have to be there.
class ShapeReader
{
public:
   explicit ShapeReader(Octets& octets) : _octets(octets) {}
   Shape read(int depth = 5, std::size_t copies = 1);

private:
   static constexpr std::size_t mostElements = 24;

   Octets& _octets;
   std::size_t _elements = 0;
   bool _isInVariant = false; // or behind one
};

// An element of the shape; its variant records select nothing.
std::unique_ptr<rti1516e::DataElement> elementOf(Shape const& shape);

// Any value of the shape by the letter of the standard, with no regard to time, behind what is in the buffer.
unsigned int boundaryOf(Shape const& shape);
void encodeAny(Shape const& shape, Octets& values, std::vector<char>& buffer);

} // namespace contract
