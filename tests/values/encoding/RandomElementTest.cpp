// Properties that hold of every element, tried on random nested ones.
#include "tests/values/encoding/ForeignElement.h"
#include "tests/values/encoding/Octets.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace rti1516e;
using Element = std::unique_ptr<DataElement>;

enum class Kind
{
   octet,
   integer16,
   float64,
   asciiString,
   unicodeString,
   opaque,
   foreign,
   fixedArray,
   variableArray,
   fixedRecord,
   variantRecord
};

// What elements that can be decoded into one another have in common.
struct Shape
{
   Kind kind;
   std::vector<Shape> parts; // the element of an array, the fields of a record, the alternatives of a variant
   std::size_t length = 0;   // of a fixed array
};

class Generator
{
public:
   explicit Generator(std::uint32_t seed) : _random(seed) {}

   std::size_t below(std::size_t bound) { return bound == 0 ? 0 : _random() % bound; }

   Shape shape(int depth)
   {
      auto const kind = static_cast<Kind>(depth == 0 || below(3) == 0 ? below(7) : 7 + below(4));
      // An array of elements without octets would not be decoded again.
      Shape shape{kind, {}, 1 + below(4)};
      if (kind >= Kind::fixedArray) {
         for (std::size_t n = kind >= Kind::fixedRecord ? 1 + below(4) : 1; n != 0; --n) {
            shape.parts.push_back(this->shape(depth - 1));
         }
      }
      return shape;
   }

   // An element of random values, some of them lent by this generator.
   Element element(Shape const& shape)
   {
      switch (shape.kind) {
      case Kind::octet:
         return std::make_unique<HLAoctet>(static_cast<char>(_random()));
      case Kind::integer16:
         return std::make_unique<HLAinteger16LE>(static_cast<Integer16>(_random()));
      case Kind::float64:
         return std::make_unique<HLAfloat64BE>(static_cast<double>(_random()) / 7);
      case Kind::asciiString:
         return std::make_unique<HLAASCIIstring>(std::string(below(9), static_cast<char>(_random())));
      case Kind::unicodeString:
         return std::make_unique<HLAunicodeString>(std::wstring(
            below(5), static_cast<wchar_t>(below(2) == 0 ? below(0xD800) : 0x10000 + below(99))));
      case Kind::opaque:
         return std::make_unique<HLAopaqueData>("opaque", below(7));
      case Kind::foreign:
         return std::make_unique<ForeignElement>();
      case Kind::fixedArray: {
         auto array = std::make_unique<HLAfixedArray>(*element(shape.parts[0]), shape.length);
         for (std::size_t i = 0; i < shape.length; ++i) {
            if (below(2) == 0) {
               array->set(i, *element(shape.parts[0]));
            } else {
               array->setElementPointer(i, lent(shape.parts[0]));
            }
         }
         return array;
      }
      case Kind::variableArray: {
         auto array = std::make_unique<HLAvariableArray>(*element(shape.parts[0]));
         bool const lends = below(4) == 0;
         for (std::size_t n = below(6); n != 0; --n) {
            if (lends && below(2) == 0) {
               array->addElementPointer(lent(shape.parts[0]));
            } else {
               array->addElement(*element(shape.parts[0]));
            }
         }
         return array;
      }
      case Kind::fixedRecord: {
         auto record = std::make_unique<HLAfixedRecord>();
         for (Shape const& part : shape.parts) {
            if (below(4) == 0) {
               record->appendElementPointer(lent(part));
            } else {
               record->appendElement(*element(part));
            }
         }
         return record;
      }
      case Kind::variantRecord: {
         auto record =
            std::make_unique<HLAvariantRecord>(HLAoctet(static_cast<char>(below(shape.parts.size()))));
         for (std::size_t i = 0; i < shape.parts.size(); ++i) {
            record->addVariant(HLAoctet(static_cast<char>(i)), *element(shape.parts[i]));
         }
         return record;
      }
      }
      return nullptr;
   }

private:
   DataElement* lent(Shape const& shape)
   {
      _lent.push_back(element(shape));
      return _lent.back().get();
   }

   std::mt19937 _random;
   std::vector<Element> _lent;
};

// The encoding by its letter, with no regard to time: what an element is made of follows from its shape.
unsigned int boundaryOf(Shape const& shape)
{
   unsigned int largest = shape.kind == Kind::variableArray ? 4 : 1;
   for (Shape const& part : shape.parts) {
      largest = std::max(largest, boundaryOf(part));
   }
   constexpr unsigned int ofKind[] = {1, 2, 8, 4, 4, 4, 2};
   return shape.kind < Kind::fixedArray ? ofKind[static_cast<int>(shape.kind)] : largest;
}

void pad(Octets& buffer, unsigned int boundary)
{
   while (buffer.size() % boundary != 0) {
      buffer.push_back(0);
   }
}

void encodeByLetter(Shape const& shape, DataElement const& element, Octets& buffer)
{
   pad(buffer, boundaryOf(shape));
   if (auto const* fixed = dynamic_cast<HLAfixedArray const*>(&element)) {
      for (std::size_t i = 0; i < fixed->size(); ++i) {
         encodeByLetter(shape.parts[0], fixed->get(i), buffer);
      }
   } else if (auto const* variable = dynamic_cast<HLAvariableArray const*>(&element)) {
      buffer.insert(buffer.end(), {0, 0, 0, static_cast<char>(variable->size())});
      for (std::size_t i = 0; i < variable->size(); ++i) {
         encodeByLetter(shape.parts[0], variable->get(i), buffer);
      }
   } else if (auto const* record = dynamic_cast<HLAfixedRecord const*>(&element)) {
      for (std::size_t i = 0; i < record->size(); ++i) {
         encodeByLetter(shape.parts[i], record->get(i), buffer);
      }
   } else if (auto const* variant = dynamic_cast<HLAvariantRecord const*>(&element)) {
      char const selected = static_cast<HLAoctet const&>(variant->getDiscriminant()).get();
      buffer.push_back(selected);
      pad(buffer, boundaryOf(shape));
      encodeByLetter(shape.parts[static_cast<std::size_t>(selected)], variant->getVariant(), buffer);
   } else {
      Octets const leaf = octetsOf(element.encode());
      buffer.insert(buffer.end(), leaf.begin(), leaf.end());
   }
}

TEST(RandomElements, EncodeByTheLetterAndBack)
{
   std::size_t octetsSeen = 0;
   for (std::uint32_t seed = 0; seed < 400; ++seed) {
      SCOPED_TRACE(seed);
      Generator generator(seed);
      Shape const shape = generator.shape(static_cast<int>(seed % 5));
      Element const element = generator.element(shape);
      Octets encoded;
      encodeByLetter(shape, *element, encoded);
      expectEncoding(*element, encoded, boundaryOf(shape));
      octetsSeen += encoded.size();

      Element const other = generator.element(shape);
      std::size_t const start = boundaryOf(shape);
      Octets within(start, 'b');
      within.insert(within.end(), encoded.begin(), encoded.end());
      EXPECT_EQ(other->decodeFrom(within, start), within.size());
      EXPECT_EQ(octetsOf(other->encode()), encoded);
      Element const anew = generator.element(shape);
      anew->decode(dataOf(encoded));
      expectEncoding(*anew, encoded, boundaryOf(shape));
   }
   EXPECT_GT(octetsSeen, 10000U);
   EXPECT_EQ(ForeignElement::live, 0);
}

} // namespace
