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
#include <type_traits>

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
   Shape shape{letter, {}};
   if (letter == 'V') {
      shape.parts.push_back(read(depth - 1, copies));
   } else if (letter == 'A') {
      shape.length = _octets.octet() & 7U;
      shape.parts.push_back(read(depth - 1, copies * std::max<std::size_t>(shape.length, 1)));
   } else {
      _isInVariant = _isInVariant || letter == 'D';
      for (unsigned int left = _octets.octet() & 7U; left != 0; --left) {
         shape.parts.push_back(read(depth - 1, copies));
      }
   }
   return shape;
}

// Texts of some characters; of anything else, whatever the octets stand for.
template <class Basic>
ElementMaker::Element ElementMaker::basic() const
{
   auto element = std::make_unique<Basic>();
   using Value = decltype(element->get());
   if (_values == nullptr) {
      return element;
   }
   if constexpr (std::is_class_v<Value> && !std::is_same_v<Value, OctetPair>) {
      auto const size = _values->below(9);
      element->set(
         Value(size, static_cast<typename Value::value_type>(_values->octet() << _values->below(10))));
   } else {
      std::uint32_t const octets[] = {_values->int32(), _values->int32()};
      element->decode(VariableLengthData(octets, sizeof octets));
   }
   return element;
}

ElementMaker::Element ElementMaker::basic(char letter)
{
   char first = 'a';
#define MAKE_IF_ASKED(Name, Value) \
   if (letter == first++) {        \
      return basic<Name>();        \
   }
   RTI_FOR_EACH_BASIC_ELEMENT(MAKE_IF_ASKED)
#undef MAKE_IF_ASKED
   if (letter == '#') {
      return std::make_unique<ForeignElement>();
   }
   return std::make_unique<HLAopaqueData>("opaque", below(7));
}

DataElement* ElementMaker::lent(Shape const& shape)
{
   _lent.push_back(make(shape));
   return _lent.back().get();
}

ElementMaker::Element ElementMaker::make(Shape const& shape)
{
   switch (shape.letter) {
   case 'A':
   case 'L': {
      auto array = std::make_unique<HLAfixedArray>(*make(shape.parts[0]), shape.length);
      for (std::size_t i = 0; _values != nullptr && shape.letter == 'A' && i < shape.length; ++i) {
         if (below(2) == 0) {
            array->set(i, *make(shape.parts[0]));
         } else {
            array->setElementPointer(i, lent(shape.parts[0]));
         }
      }
      return array;
   }
   case 'V': {
      auto array = std::make_unique<HLAvariableArray>(*make(shape.parts[0]));
      bool const lends = below(4) == 1;
      for (unsigned int left = below(6); left != 0; --left) {
         if (lends && below(2) == 0) {
            array->addElementPointer(lent(shape.parts[0]));
         } else {
            array->addElement(*make(shape.parts[0]));
         }
      }
      return array;
   }
   case 'R': {
      auto record = std::make_unique<HLAfixedRecord>();
      for (Shape const& part : shape.parts) {
         if (below(4) == 1) {
            record->appendElementPointer(lent(part));
         } else {
            record->appendElement(*make(part));
         }
      }
      return record;
   }
   case 'D': {
      auto const alternatives = static_cast<unsigned int>(shape.parts.size());
      // Without values it selects none.
      auto const selected = _values != nullptr && alternatives != 0 ? 1 + below(alternatives) : 0;
      auto record = std::make_unique<HLAvariantRecord>(HLAoctet(static_cast<char>(selected)));
      for (unsigned int i = 0; i < alternatives; ++i) {
         record->addVariant(HLAoctet(static_cast<char>(i + 1)), *make(shape.parts[i]));
      }
      return record;
   }
   default:
      return basic(shape.letter);
   }
}

unsigned int boundaryOf(Shape const& shape)
{
   if (shape.parts.empty() && std::strchr("ARD", shape.letter) == nullptr) {
      return ElementMaker().make(shape)->getOctetBoundary(); // the basic elements have tests of their own
   }
   unsigned int largest = shape.letter == 'V' ? 4 : 1;
   for (Shape const& part : shape.parts) {
      largest = shape.letter == 'A' && shape.length == 0 ? 1 : std::max(largest, boundaryOf(part));
   }
   return largest;
}

void encodeByLetter(Shape const& shape, DataElement const& element, std::vector<char>& buffer)
{
   auto const pad = [&buffer, boundary = boundaryOf(shape)] {
      buffer.resize((buffer.size() + boundary - 1) / boundary * boundary);
   };
   auto const encodeEach = [&](auto const& elements) {
      for (std::size_t i = 0; i < elements.size(); ++i) {
         encodeByLetter(shape.parts[shape.letter == 'R' ? i : 0], elements.get(i), buffer);
      }
   };
   pad();
   if (auto const* fixed = dynamic_cast<HLAfixedArray const*>(&element)) {
      encodeEach(*fixed);
   } else if (auto const* variable = dynamic_cast<HLAvariableArray const*>(&element)) {
      buffer.insert(buffer.end(), {0, 0, 0, static_cast<char>(variable->size())});
      encodeEach(*variable);
   } else if (auto const* record = dynamic_cast<HLAfixedRecord const*>(&element)) {
      encodeEach(*record);
   } else if (auto const* variant = dynamic_cast<HLAvariantRecord const*>(&element)) {
      char const selected = static_cast<HLAoctet const&>(variant->getDiscriminant()).get();
      buffer.push_back(selected);
      if (!shape.parts.empty()) {
         pad();
         encodeByLetter(shape.parts[static_cast<std::size_t>(selected - 1)], variant->getVariant(), buffer);
      }
   } else {
      VariableLengthData const leaf = element.encode();
      auto const* const octets = static_cast<char const*>(leaf.data());
      buffer.insert(buffer.end(), octets, octets + leaf.size());
   }
}

} // namespace contract
