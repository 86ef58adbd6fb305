// Properties that hold of every element, tried on random nested ones.
#include "tests/support/RandomElement.h"

#include "tests/support/ForeignElement.h"
#include "tests/values/encoding/Elements.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace {

using namespace contract;

// An array of elements without octets would not be decoded again.
bool hasEmptyParts(Shape const& shape)
{
   bool const empty = shape.parts.empty() ? std::string("ARD").find(shape.letter) != std::string::npos
                                          : shape.letter == 'A' && shape.length == 0;
   return empty || std::any_of(shape.parts.begin(), shape.parts.end(), hasEmptyParts);
}

TEST(RandomElements, AreDecodedAndEncodedByTheLetter)
{
   std::mt19937 random(1);
   std::string const letters = "AVRDAVRD#abcdefghijklmnopqrst";
   std::uint8_t shapeOctets[2000], valueOctets[2000];
   std::size_t octetsSeen = 0;
   for (int n = 0; n < 1000; ++n) {
      SCOPED_TRACE(n);
      for (std::size_t i = 0; i < std::size(shapeOctets); ++i) {
         shapeOctets[i] = static_cast<std::uint8_t>(letters[random() % letters.size()]);
         valueOctets[i] = static_cast<std::uint8_t>(random());
      }
      contract::Octets shapes(shapeOctets, sizeof shapeOctets), values(valueOctets, sizeof valueOctets);
      Shape const shape = ShapeReader(shapes).read();
      auto const element = elementOf(shape);
      for (int times = hasEmptyParts(shape) ? 0 : 2; times > 0; --times) { // each over what was there
         ::Octets encoded;
         encodeAny(shape, values, encoded);
         octetsSeen += encoded.size();
         std::size_t const start = boundaryOf(shape);
         EXPECT_EQ(element->decodeFrom(joined(joined(::Octets(start), encoded), {'a'}), start),
                   start + encoded.size());
         expectEncoding(*element, encoded, boundaryOf(shape));
      }
   }
   EXPECT_GT(octetsSeen, 10'000U);
   EXPECT_EQ(ForeignElement::live, 0);
}

// What the fuzzer has found worth keeping, where there is none to go on with it.
TEST(RandomElements, OfTheCorpusAreDecodedOrRefused)
{
   int inputs = 0;
   for (auto const& file : std::filesystem::directory_iterator(FUZZ_CORPUS)) {
      std::ifstream stream(file.path(), std::ios::binary);
      std::vector<char> const input{std::istreambuf_iterator<char>(stream), {}};
      LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(input.data()), input.size());
      ++inputs;
   }
   EXPECT_GT(inputs, 0);
}

} // namespace
