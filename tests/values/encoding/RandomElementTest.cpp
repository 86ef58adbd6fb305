// Properties that hold of every element, tried on random nested ones.
#include "tests/support/RandomElement.h"

#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Elements.h"

#include <algorithm>
#include <random>

namespace {

using namespace contract;

// An array of elements without octets would not be decoded again.
bool hasEmptyParts(Shape const& shape)
{
   bool const empty = shape.parts.empty() ? std::string("ARD").find(shape.letter) != std::string::npos
                                          : shape.letter == 'A' && shape.length == 0;
   return empty || std::any_of(shape.parts.begin(), shape.parts.end(), hasEmptyParts);
}

TEST(RandomElements, EncodeByTheLetterAndBack)
{
   std::mt19937 random(1);
   std::string const letters = "AVRDAVRD#abcdefghijklmnopqrst";
   std::uint8_t shapeOctets[2000], valueOctets[2000];
   std::size_t octetsSeen = 0;
   for (int n = 0; n < 1000; ++n) {
      SCOPED_TRACE(n);
      std::generate(std::begin(shapeOctets), std::end(shapeOctets),
                    [&] { return static_cast<std::uint8_t>(letters[random() % letters.size()]); });
      std::generate(std::begin(valueOctets), std::end(valueOctets),
                    [&] { return static_cast<std::uint8_t>(random()); });
      contract::Octets shapes(shapeOctets, sizeof shapeOctets), values(valueOctets, sizeof valueOctets);
      Shape const shape = ShapeReader(shapes).read();
      if (hasEmptyParts(shape)) {
         continue;
      }
      ElementMaker maker(&values);
      auto const element = maker.make(shape);
      ::Octets encoded;
      encodeByLetter(shape, *element, encoded);
      expectEncoding(*element, encoded, boundaryOf(shape));
      octetsSeen += encoded.size();

      auto const other = maker.make(shape);
      std::size_t const start = boundaryOf(shape);
      EXPECT_EQ(other->decodeFrom(joined(joined(::Octets(start), encoded), {'a'}), start),
                start + encoded.size());
      EXPECT_EQ(octetsOf(other->encode()), encoded);
   }
   EXPECT_GT(octetsSeen, 10'000U);
   EXPECT_EQ(ForeignElement::live, 0);
}

} // namespace
