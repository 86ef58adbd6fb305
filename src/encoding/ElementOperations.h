// The operations that every element of the library has, upon its body. A body has
//   measure(wanted)    its length and its octet boundary, determined anew for everything in it
//   write(out, index)  encodes, at an aligned index \  with the boundaries that measure
//   read(in, index)    decodes                      /  found; return the index behind
// so that an element is looked through once to be measured and once for its octets, however deep it is. Where
// all bodies of a class have one boundary, they write the padding in front of them themselves.
#pragma once

#include "src/encoding/Extent.h"
#include "src/encoding/Input.h"
#include "src/encoding/Output.h"

#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>

#include <cstddef>
#include <vector>

namespace rti1516e {

// A copy of the octets.
VariableLengthData dataOf(std::vector<char> const& octets);

template <class Body>
void encodeAtEnd(Body const& body, std::vector<char>& buffer)
{
   std::size_t const end = buffer.size();
   Extent const extent = body.measure(Wanted::room);
   std::size_t const start = alignInMemory(end, extent.boundary);
   try {
      Output out(buffer, start - end + extent.length);
      out.finish(body.write(out, start));
   } catch (...) {
      buffer.resize(end);
      throw;
   }
}

template <class Body>
VariableLengthData encodeAlone(Body const& body)
{
   Extent const extent = body.measure(Wanted::room);
   if (extent.foreign) {
      std::vector<char> buffer;
      encodeAtEnd(body, buffer);
      return dataOf(buffer);
   }
   Output out(checkedCount(extent.length), commonBoundary<Body> == 0);
   return out.data(body.write(out, 0));
}

template <class Body>
std::size_t decodeAt(Body& body, Input const& in, std::size_t index)
{
   body.measure(Wanted::boundary);
   return body.read(in, index);
}

#define RTI_DEFINE_DATA_ELEMENT_OPERATIONS(Name)                                                          \
   std::auto_ptr<DataElement> Name::clone() const { return std::auto_ptr<DataElement>(new Name(*this)); } \
   void Name::encode(VariableLengthData& buffer) const { buffer = encodeAlone(*_body); }                  \
   VariableLengthData Name::encode() const { return encodeAlone(*_body); }                                \
   void Name::encodeInto(std::vector<Octet>& buffer) const { encodeAtEnd(*_body, buffer); }               \
   void Name::decode(VariableLengthData const& encoded) { decodeAt(*_body, Input(encoded), 0); }          \
   size_t Name::decodeFrom(std::vector<Octet> const& buffer, size_t index)                                \
   {                                                                                                      \
      return decodeAt(*_body, Input(buffer), index);                                                      \
   }                                                                                                      \
   size_t Name::getEncodedLength() const { return _body->measure(Wanted::lengthInAnyCase).length; }       \
   unsigned int Name::getOctetBoundary() const { return _body->measure(Wanted::boundary).boundary; }

} // namespace rti1516e
