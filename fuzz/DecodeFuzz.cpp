// Decodes octets that nobody has made sure of. An input is the shape of an element, a few octets long, and
// what is decoded into one of that shape.
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <memory>
#include <new>
#include <vector>

namespace {

// What an input may cost beside itself. Decoding costs about what the octets hold, whatever they claim.
constexpr std::size_t mostMemory = std::size_t{64} << 20;

std::size_t memoryInUse = 0;
std::size_t memoryLimit = 0; // none while it is 0

} // namespace

void* operator new(std::size_t size, std::nothrow_t const&) noexcept
{
   void* const memory = std::malloc(std::max<std::size_t>(size, 1));
   if (memory == nullptr) {
      return nullptr;
   }
   memoryInUse += malloc_usable_size(memory);
   if (memoryLimit != 0 && memoryInUse > memoryLimit) {
      std::fputs("More memory in use than an input of this size may cost\n", stderr);
      std::abort();
   }
   return memory;
}

void* operator new(std::size_t size)
{
   void* const memory = operator new(size, std::nothrow);
   if (memory == nullptr) {
      throw std::bad_alloc();
   }
   return memory;
}

void operator delete(void* memory) noexcept
{
   memoryInUse -= memory == nullptr ? 0 : malloc_usable_size(memory);
   std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

using namespace rti1516e;

// The octets of a shape: a letter for each element, a digit for each length, read from the front. It has few
// elements, so that what is legitimate stays far below the limit of memory: many of them where an alternative
// of a variant record is never selected, or in records without an octet, cost much for few octets. But one
// may be a long array, all of whose octets have to be there.
class Shape
{
public:
   Shape(std::uint8_t const* octets, std::size_t size) : _next(octets), _end(octets + size) {}

   std::unique_ptr<DataElement> element(int depth = 5, std::size_t copies = 1)
   {
      char const letter = take();
      _elements += copies;
      if (letter == 'L' && copies == 1 && !_isInVariant && _elements < mostElements) {
         _elements = mostElements;
         return std::make_unique<HLAfixedArray>(*basicElement(take()), 20000);
      }
      if (depth > 0 && _elements < mostElements) {
         switch (letter) {
         case 'A':
            return fixedArray(depth - 1, copies);
         case 'V':
            return std::make_unique<HLAvariableArray>(*element(depth - 1, copies));
         case 'R':
            return fixedRecord(depth - 1, copies);
         case 'D':
            return variantRecord(depth - 1, copies);
         default:
            break;
         }
      }
      return basicElement(letter);
   }

private:
   char take() { return _next == _end ? '\0' : static_cast<char>(*_next++); }
   std::size_t number() { return static_cast<std::size_t>(take() & 7); }

   std::unique_ptr<DataElement> fixedArray(int depth, std::size_t copies)
   {
      std::size_t const length = number();
      return std::make_unique<HLAfixedArray>(*element(depth, copies * std::max<std::size_t>(length, 1)),
                                             length);
   }

   std::unique_ptr<DataElement> fixedRecord(int depth, std::size_t copies)
   {
      auto record = std::make_unique<HLAfixedRecord>();
      for (std::size_t fields = number(); fields != 0; --fields) {
         record->appendElement(*element(depth, copies));
      }
      return record;
   }

   std::unique_ptr<DataElement> variantRecord(int depth, std::size_t copies)
   {
      _isInVariant = true;
      auto record = std::make_unique<HLAvariantRecord>(HLAoctet());
      for (std::size_t values = number(); values != 0; --values) {
         record->addVariant(HLAoctet(static_cast<char>(values)), *element(depth, copies));
      }
      return record;
   }

   // The basic elements in alphabetical order, from 'a' on, and opaque data for every other letter.
   static std::unique_ptr<DataElement> basicElement(char letter)
   {
      char first = 'a';
#define MAKE_IF_ASKED(Name, Value)     \
   if (letter == first++) {            \
      return std::make_unique<Name>(); \
   }
      RTI_FOR_EACH_BASIC_ELEMENT(MAKE_IF_ASKED)
#undef MAKE_IF_ASKED
      return std::make_unique<HLAopaqueData>();
   }

   static constexpr std::size_t mostElements = 24;

   std::uint8_t const* _next;
   std::uint8_t const* _end;
   std::size_t _elements = 0;
   bool _isInVariant = false; // or behind one
};

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
   memoryLimit = memoryInUse + size + mostMemory;
   std::size_t const shapeLength = std::min<std::size_t>(data[0] & 31, size - 1);
   std::unique_ptr<DataElement> const element = Shape(data + 1, shapeLength).element();
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
   memoryLimit = 0;
   return 0;
}
