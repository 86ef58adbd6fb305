// What the encoding helpers cost, against floors written by hand.
#include "bench/EncodingFloors.h"
#include "bench/Ratios.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAvariableArray.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <functional>
#include <new>

namespace {

long allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
   ++allocations;
   if (void* const memory = std::malloc(size)) {
      return memory;
   }
   throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace bench {

// The fields in the order of HLAfixedRecord, at the offsets that their boundaries give.
void MixedCells::store(std::vector<char>& buffer) const
{
   buffer.clear();
   buffer.resize(length);
   char* const to = buffer.data();
   put(to, x->get());
   put(to + 8, y->get());
   put(to + 16, id->get());
   put(to + 20, flag->get());
   put(to + 24, speed->get());
   put(to + 28, kind->get());
   put(to + 30, letter->get());
   put(to + 32, time->get());
   put(to + 40, pair->get());
   put(to + 42, octet->get());
}

void MixedCells::load(std::vector<char> const& buffer)
{
   if (buffer.size() < 43) {
      throw std::bad_alloc();
   }
   char const* const from = buffer.data();
   x->set(get<double>(from));
   y->set(get<double>(from + 8));
   id->set(get<std::int32_t>(from + 16));
   flag->set(get<std::int32_t>(from + 20));
   speed->set(get<float>(from + 24));
   kind->set(get<std::int16_t>(from + 28));
   letter->set(get<std::int16_t>(from + 30));
   time->set(get<std::int64_t>(from + 32));
   pair->set(get<std::int16_t>(from + 40));
   octet->set(get<char>(from + 42));
}

} // namespace bench

namespace {

using namespace rti1516e;
using namespace bench;

std::vector<Claim> claims;

void measure(std::string const& name, std::function<void(benchmark::State&)> loop)
{
   benchmark::RegisterBenchmark(name.c_str(), std::move(loop));
}

template <class Operation>
void measureOperation(std::string const& name, Operation operation)
{
   measure(name, [operation](benchmark::State& state) mutable {
      long const before = allocations;
      for (auto _ : state) {
         operation();
         benchmark::ClobberMemory();
      }
      state.counters["allocations"] =
         static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
   });
}

void claim(std::string const& measured, std::string const& floor, double bound)
{
   claims.push_back({measured, floor, bound});
}

template <class Element, class Number>
HLAvariableArray arrayOf(std::vector<Number> const& numbers)
{
   HLAvariableArray array{Element()};
   for (Number const number : numbers) {
      array.addElement(Element(number));
   }
   return array;
}

void measureCoding(std::string const& name, std::shared_ptr<DataElement> element)
{
   measureOperation("encodeInto/" + name, [element, buffer = std::vector<char>()]() mutable {
      buffer.clear();
      element->encodeInto(buffer);
   });
   measureOperation("encode/" + name, [element]() { benchmark::DoNotOptimize(element->encode().data()); });
   VariableLengthData const data = element->encode();
   auto const begin = static_cast<char const*>(data.data());
   std::vector<char> const encoded(begin, begin + data.size());
   measureOperation("decodeFrom/" + name, [element, encoded]() { element->decodeFrom(encoded, 0); });
   measureOperation("decode/" + name, [element, data]() { element->decode(data); });
}

template <class Element, class Number>
void measureArray(std::string const& name)
{
   std::vector<Number> numbers(10000);
   for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = static_cast<Number>(i);
   }
   std::vector<char> room(numbers.size() * sizeof(Number));
   measureOperation("store/" + name, [numbers, room]() mutable { storeAll(numbers, room.data()); });
   measureOperation("load/" + name, [numbers, room]() mutable { loadAll(numbers, room.data()); });

   auto const cells = std::make_shared<Cells<Number>>();
   for (Number const number : numbers) {
      cells->push_back(makeCell(number));
   }
   measureOperation("virtual store/" + name, [cells, room]() mutable { storeAll(*cells, room.data()); });
   measureOperation("virtual load/" + name, [cells, room]() { loadAll(*cells, room.data()); });

   auto const array = std::make_shared<HLAvariableArray>(arrayOf<Element>(numbers));
   measureCoding(name, array);
   VariableLengthData const data = array->encode();
   measureOperation("decode anew/" + name, [data]() {
      HLAvariableArray fresh{Element()};
      fresh.decode(data);
   });

   // The same, of elements that the federate has made and lent one by one.
   auto const owned = std::make_shared<std::vector<Element>>(numbers.begin(), numbers.end());
   std::shared_ptr<HLAvariableArray> const lent(new HLAvariableArray{Element()},
                                                [owned](auto* a) { delete a; });
   for (Element& element : *owned) {
      lent->addElementPointer(&element);
   }
   measureCoding("lent " + name, lent);
   for (std::string const kind : {"", "lent "}) {
      for (std::string const operation : {"encodeInto/", "encode/"}) {
         claim(operation + kind + name, "store/" + name, 0);
         claim(operation + kind + name, "virtual store/" + name, 2);
      }
      for (std::string const operation : {"decodeFrom/", "decode/"}) {
         claim(operation + kind + name, "load/" + name, 0);
         claim(operation + kind + name, "virtual load/" + name, 2);
      }
   }
   claim("decode anew/" + name, "virtual load/" + name, 0);
}

void measureStrings()
{
   std::string const text(10000, 'x');
   measureOperation("copy/text", [text] {
      std::unique_ptr<char[]> const room(new char[text.size()]);
      std::memcpy(room.get(), text.data(), text.size());
      benchmark::DoNotOptimize(room.get());
   });
   measureOperation("copy from/text", [encoded = std::vector<char>(10000, 'x')] {
      std::string const copy(encoded.data(), encoded.size());
      benchmark::DoNotOptimize(copy.data());
   });
   std::wstring wide(10000, L'x');
   measureOperation("narrow/text", [wide] {
      std::unique_ptr<char[]> const room(new char[2 * wide.size()]);
      for (std::size_t i = 0; i < wide.size(); ++i) {
         put(room.get() + 2 * i, static_cast<std::uint16_t>(wide[i]));
      }
      benchmark::DoNotOptimize(room.get());
   });
   measureOperation("widen/text", [encoded = std::vector<char>(20000, 'x'), wide]() mutable {
      for (std::size_t i = 0; i < wide.size(); ++i) {
         wide[i] = static_cast<wchar_t>(get<std::uint16_t>(encoded.data() + 2 * i));
      }
      benchmark::DoNotOptimize(wide.data());
   });
   for (auto const& [element, name, out, in] :
        {std::tuple(std::shared_ptr<DataElement>(new HLAASCIIstring(text)), "HLAASCIIstring", "copy/text",
                    "copy from/text"),
         std::tuple(std::shared_ptr<DataElement>(new HLAunicodeString(wide)), "HLAunicodeString",
                    "narrow/text", "widen/text")}) {
      measureCoding(name, element);
      measureOperation(std::string("encodeInto anew/") + name, [element = element] {
         std::vector<char> buffer;
         element->encodeInto(buffer);
         benchmark::DoNotOptimize(buffer.data());
      });
      claim(std::string("encode/") + name, out, 1.5);
      claim(std::string("encodeInto anew/") + name, out, 1.5);
      claim(std::string("decode/") + name, in, 1.5);
   }
}

HLAfixedRecord mixedRecord()
{
   HLAfixedRecord record;
   record.appendElement(HLAfloat64BE(1.5));
   record.appendElement(HLAfloat64BE(-2.5));
   record.appendElement(HLAinteger32BE(3));
   record.appendElement(HLAboolean(true));
   record.appendElement(HLAfloat32BE(4.5F));
   record.appendElement(HLAinteger16BE(5));
   record.appendElement(HLAunicodeChar(L'6'));
   record.appendElement(HLAinteger64BE(8));
   record.appendElement(HLAoctetPairBE(OctetPair('7', '7')));
   record.appendElement(HLAoctet('9'));
   return record;
}

void measureRecord()
{
   auto const cells = std::make_shared<MixedCells>();
   std::vector<char> buffer;
   measureOperation("virtual store/record", [cells, buffer]() mutable { cells->store(buffer); });
   measureOperation("virtual load/record",
                    [cells, encoded = std::vector<char>(48)] { cells->load(encoded); });
   measureOperation("virtual store anew/record", [cells] {
      std::vector<char> fresh;
      cells->store(fresh);
      benchmark::DoNotOptimize(VariableLengthData(fresh.data(), 43).data());
   });
   measureCoding("record", std::make_shared<HLAfixedRecord>(mixedRecord()));
   claim("encodeInto/record", "virtual store/record", 2);
   claim("encode/record", "virtual store anew/record", 2);
   claim("decodeFrom/record", "virtual load/record", 2);
   claim("decode/record", "virtual load/record", 2);
}

// Leaves in four levels of arrays: as many as there are, by 4 by 5 by 5.
HLAvariableArray nested(std::size_t leaves)
{
   HLAvariableArray innermost{HLAinteger32BE()};
   for (int i = 0; i < 5; ++i) {
      innermost.addElement(HLAinteger32BE(i));
   }
   auto const repeated = [](DataElement const& element, std::size_t times) {
      HLAvariableArray array(element);
      for (; times != 0; --times) {
         array.addElement(element);
      }
      return array;
   };
   DataElement const& first = innermost;
   HLAvariableArray const second = repeated(first, 5);
   HLAvariableArray const third = repeated(static_cast<DataElement const&>(second), 4);
   return repeated(static_cast<DataElement const&>(third), leaves / 100);
}

void measureGrowth()
{
   for (std::size_t leaves = 100; leaves <= 1000000; leaves *= 10) {
      std::vector<int> const numbers(leaves, 7);
      auto const cells = std::make_shared<Cells<int>>();
      for (int const number : numbers) {
         cells->push_back(makeCell(number));
      }
      std::vector<char> room(leaves * sizeof(int));
      std::string const ofLeaves = std::to_string(leaves);
      measureOperation("virtual store/" + ofLeaves,
                       [cells, room]() mutable { storeAll(*cells, room.data()); });
      measureCoding("flat " + ofLeaves, std::make_shared<HLAvariableArray>(arrayOf<HLAinteger32BE>(numbers)));
      measureCoding("nested " + ofLeaves, std::make_shared<HLAvariableArray>(nested(leaves)));
      if (leaves > 100) {
         std::string const ofTenth = std::to_string(leaves / 10);
         claim("virtual store/" + ofLeaves, "virtual store/" + ofTenth, 0);
         for (std::string const operation : {"encodeInto/", "encode/", "decodeFrom/", "decode/"}) {
            for (std::string const form : {"flat ", "nested "}) {
               claim(operation + form + ofLeaves, operation + form + ofTenth, 11);
            }
         }
      }
   }
}

} // namespace

int main(int argc, char** argv)
{
   measureArray<HLAinteger32BE, int>("HLAinteger32BE");
   measureArray<HLAfloat64BE, double>("HLAfloat64BE");
   measureStrings();
   measureRecord();
   measureGrowth();
   return bench::run(argc, argv, claims);
}
