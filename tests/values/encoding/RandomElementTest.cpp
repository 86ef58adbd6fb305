// Properties that hold of every element, tried on random nested ones.
#include "tests/support/RandomElement.h"

#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Octets.h"

#include <algorithm>
#include <gtest/gtest.h>
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
   auto const made = [&random](std::string const& letters) {
      std::vector<std::uint8_t> octets(2000);
      for (auto& octet : octets) {
         octet = letters.empty() ? static_cast<std::uint8_t>(random())
                                 : static_cast<std::uint8_t>(letters[random() % letters.size()]);
      }
      return octets;
   };
   std::size_t octetsSeen = 0;
   for (int n = 0; n < 1000; ++n) {
      SCOPED_TRACE(n);
      auto const octetsOfShape = made("AVRDAVRD#abcdefghijklmnopqrst");
      auto const octetsOfValues = made("");
      contract::Octets shapes(octetsOfShape.data(), octetsOfShape.size());
      contract::Octets values(octetsOfValues.data(), octetsOfValues.size());
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
      ::Octets within(start, 'b');
      within.insert(within.end(), encoded.begin(), encoded.end());
      within.insert(within.end(), 3, 'a');
      EXPECT_EQ(other->decodeFrom(within, start), within.size() - 3);
      EXPECT_EQ(octetsOf(other->encode()), encoded);
   }
   EXPECT_GT(octetsSeen, 10'000U);
   EXPECT_EQ(ForeignElement::live, 0);
}

} // namespace
