#include "tests/support/RandomElement.h"

#include "tests/support/ForeignElement.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace contract {

using namespace rti1516e;

Shape ShapeReader::read(int depth, std::size_t copies)
{
   auto const letter = static_cast<char>(_octets.octet());
   _elements += copies;
   if (letter == 'L' && copies == 1 && !_isInVariant && _elements < mostElements) {
      _elements = mostElements;
      return {'L', {read(0)}, 20000};
   }
   if (std::strchr("AVRD", letter) == nullptr || letter == '\0' || depth == 0 || _elements >= mostElements) {
      return {letter == '#' || std::islower(letter) != 0 ? letter : '*', {}};
   }
   Shape shape{letter, {}, letter == 'A' ? _octets.octet() & 7U : 0};
   std::size_t const parts = letter == 'A' || letter == 'V' ? 1 : _octets.octet() & 7U;
   _isInVariant = _isInVariant || letter == 'D';
   while (shape.parts.size() < parts) {
      shape.parts.push_back(read(depth - 1, copies * std::max<std::size_t>(shape.length, 1)));
   }
   return shape;
}

std::unique_ptr<DataElement> elementOf(Shape const& shape)
{
   switch (shape.letter) {
   case 'A':
   case 'L':
      return std::make_unique<HLAfixedArray>(*elementOf(shape.parts[0]), shape.length);
   case 'V':
      return std::make_unique<HLAvariableArray>(*elementOf(shape.parts[0]));
   case 'R': {
      auto record = std::make_unique<HLAfixedRecord>();
      for (Shape const& part : shape.parts) {
         record->appendElement(*elementOf(part));
      }
      return record;
   }
   case 'D': {
      auto record = std::make_unique<HLAvariantRecord>(HLAoctet('\0'));
      char discriminant = 0;
      for (Shape const& part : shape.parts) {
         record->addVariant(HLAoctet(++discriminant), *elementOf(part));
      }
      return record;
   }
   case '#':
      return std::make_unique<ForeignElement>();
   default:
      break;
   }
   char first = 'a';
#define MAKE_IF_ASKED(Name, Value)     \
   if (shape.letter == first++) {      \
      return std::make_unique<Name>(); \
   }
   RTI_FOR_EACH_BASIC_ELEMENT(MAKE_IF_ASKED)
#undef MAKE_IF_ASKED
   return std::make_unique<HLAopaqueData>();
}

unsigned int boundaryOf(Shape const& shape)
{
   if (shape.parts.empty() && std::strchr("ARD", shape.letter) == nullptr) {
      return elementOf(shape)->getOctetBoundary(); // the basic elements have tests of their own
   }
   unsigned int largest = shape.letter == 'V' ? 4 : 1;
   for (Shape const& part : shape.parts) {
      largest = shape.letter == 'A' && shape.length == 0 ? 1 : std::max(largest, boundaryOf(part));
   }
   return largest;
}

void encodeAny(Shape const& shape, Octets& values, std::vector<char>& buffer)
{
   auto const pad = [&buffer, boundary = boundaryOf(shape)] {
      buffer.resize((buffer.size() + boundary - 1) / boundary * boundary);
   };
   pad();
   switch (shape.letter) {
   case 'V':
   case 'A':
   case 'R': {
      std::size_t times = shape.letter == 'A' ? shape.length : 1;
      if (shape.letter == 'V') {
         times = values.below(6);
         buffer.insert(buffer.end(), {0, 0, 0, static_cast<char>(times)});
      }
      for (; times > 0; --times) {
         for (Shape const& part : shape.parts) {
            encodeAny(part, values, buffer);
         }
      }
      break;
   }
   case 'D': {
      auto const selected = values.below(static_cast<unsigned int>(shape.parts.size()));
      buffer.push_back(static_cast<char>(selected + 1));
      pad();
      encodeAny(shape.parts[selected], values, buffer);
      break;
   }
   default: {
      // What some octets stand for, in texts and opaque data behind a count.
      Bytes some;
      if (std::strchr("acdefghijklmnopqr#", shape.letter) == nullptr) {
         some.int32(values.below(9));
      }
      while (some.size() < 24) {
         some.byte(values.octet());
      }
      auto const leaf = elementOf(shape);
      leaf->decode(VariableLengthData(some.data(), static_cast<unsigned int>(some.size())));
      leaf->encodeInto(buffer);
   }
   }
}

} // namespace contract
