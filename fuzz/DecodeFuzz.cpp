// Decodes octets that nobody has made sure of. An input is the shape of an element, a few octets long, and
// what is decoded into one of that shape.
#include "tests/support/RandomElement.h"

#include <RTI/Exception.h>
#include <RTI/VariableLengthData.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using namespace rti1516e;

void require(bool condition)
{
   if (!condition) {
      std::abort();
   }
}

// What is told of an element and what is written of it agree, whatever was decoded into it.
void requireConsistent(DataElement const& element)
{
   VariableLengthData const encoded = element.encode();
   require(encoded.size() == element.getEncodedLength());
   std::vector<char> buffer(1, 'b');
   element.encodeInto(buffer);
   std::size_t const start = buffer.size() - encoded.size();
   require(start % element.getOctetBoundary() == 0);
   require(encoded.size() == 0 || std::memcmp(buffer.data() + start, encoded.data(), encoded.size()) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
   if (size == 0) {
      return 0;
   }
   std::size_t const shapeLength = std::min<std::size_t>(data[0] & 31, size - 1);
   contract::Octets shapeOctets(data + 1, shapeLength);
   contract::Shape const shape = contract::ShapeReader(shapeOctets).read();
   std::unique_ptr<DataElement> const element = contract::elementOf(shape);
   // In memory of its exact length, so that a step beyond it is seen.
   std::vector<char> const octets(data + 1 + shapeLength, data + size);
   for (std::size_t const index : {std::size_t{0}, std::size_t{1}, octets.size()}) {
      std::unique_ptr<DataElement> const before(element->clone().release());
      try {
         std::size_t const end = element->decodeFrom(octets, index);
         // An element without octets may stand behind padding that is not there.
         std::size_t const boundary = element->getOctetBoundary();
         require(end >= index && end < std::max(octets.size(), index) + boundary);
      } catch (EncoderException const&) {
         // is what is to come of most inputs
      }
      requireConsistent(*element);
      try {
         before->decode(VariableLengthData(octets.data(), static_cast<unsigned int>(octets.size())));
      } catch (EncoderException const&) {
      }
      requireConsistent(*before);
   }
   return 0;
}
