// What the encoding helpers cost, against floors written by hand.
#include "bench/EncodingFloors.h"
#include "bench/Ratios.h"
#include "bench/records/Comparison.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAvariableArray.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>

namespace bench {

using rti1516e::EncoderException;

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

void MixedCells::load(char const* from, std::size_t size)
{
   if (size < length) {
      throw EncoderException(L"too short");
   }
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

template <class Operation>
void measure(std::string const& name, Operation operation)
{
   benchmark::RegisterBenchmark(name.c_str(), [operation](benchmark::State& state) mutable {
      for (auto _ : state) {
         operation();
         benchmark::ClobberMemory();
      }
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
   measure("encodeInto/" + name, [element, buffer = std::vector<char>()]() mutable {
      buffer.clear();
      element->encodeInto(buffer);
   });
   measure("encode/" + name, [element]() { benchmark::DoNotOptimize(element->encode().data()); });
   VariableLengthData const data = element->encode();
   auto const begin = static_cast<char const*>(data.data());
   std::vector<char> const encoded(begin, begin + data.size());
   measure("decodeFrom/" + name, [element, encoded]() { element->decodeFrom(encoded, 0); });
   measure("decode/" + name, [element, data]() { element->decode(data); });
}

template <class Element, class Number>
void measureArray(std::string const& name)
{
   std::vector<Number> numbers(10000);
   for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = static_cast<Number>(i);
   }
   std::vector<char> room(numbers.size() * sizeof(Number));
   measure("store/" + name, [numbers, room]() mutable { storeAll(numbers, room.data()); });
   measure("load/" + name, [numbers, room]() mutable { loadAll(numbers, room.data()); });

   auto const cells = std::make_shared<Cells<Number>>();
   for (Number const number : numbers) {
      cells->push_back(makeCell(number));
   }
   measure("virtual store/" + name, [cells, room]() mutable { storeAll(*cells, room.data()); });
   measure("virtual load/" + name, [cells, room]() { loadAll(*cells, room.data()); });

   auto const array = std::make_shared<HLAvariableArray>(arrayOf<Element>(numbers));
   measureCoding(name, array);
   VariableLengthData const data = array->encode();
   measure("decode anew/" + name, [data]() {
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
   measure("copy/text", [text] {
      std::unique_ptr<char[]> const room(new char[text.size()]);
      std::memcpy(room.get(), text.data(), text.size());
      benchmark::DoNotOptimize(room.get());
   });
   measure("copy from/text", [encoded = std::vector<char>(10000, 'x')] {
      std::string const copy(encoded.data(), encoded.size());
      benchmark::DoNotOptimize(copy.data());
   });
   std::wstring wide(10000, L'x');
   measure("narrow/text", [wide] {
      std::unique_ptr<char[]> const room(new char[2 * wide.size()]);
      for (std::size_t i = 0; i < wide.size(); ++i) {
         put(room.get() + 2 * i, static_cast<std::uint16_t>(wide[i]));
      }
      benchmark::DoNotOptimize(room.get());
   });
   measure("widen/text", [encoded = std::vector<char>(20000, 'x'), wide]() mutable {
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
      measure(std::string("encodeInto anew/") + name, [element = element] {
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
   measure("virtual store/record", [cells, buffer]() mutable { cells->store(buffer); });
   std::vector<char> const encoded(MixedCells::length);
   measure("virtual load/record", [cells, encoded] { cells->load(encoded.data(), encoded.size()); });
   VariableLengthData const data(encoded.data(), MixedCells::length);
   measure("virtual load from data/record",
           [cells, data] { cells->load(static_cast<char const*>(data.data()), data.size()); });
   measure("virtual store anew/record", [cells] {
      std::vector<char> fresh;
      cells->store(fresh);
      benchmark::DoNotOptimize(VariableLengthData(fresh.data(), MixedCells::length).data());
   });
   measureCoding("record", std::make_shared<HLAfixedRecord>(mixedRecord()));
   claim("encodeInto/record", "virtual store/record", 2);
   claim("encode/record", "virtual store anew/record", 2);
   claim("decodeFrom/record", "virtual load/record", 2);
   claim("decode/record", "virtual load from data/record", 2);
}

// Four levels of arrays around the leaves, ten of each within the other but for the outermost.
struct Nesting
{
   explicit Nesting(std::size_t leaves)
      : outermost(std::max<std::size_t>(leaves / 1000, 1)), next(leaves / outermost / 100)
   {}

   std::size_t outermost;
   std::size_t next;
};

HLAvariableArray repeated(DataElement const& element, std::size_t times)
{
   HLAvariableArray array(element);
   for (; times != 0; --times) {
      array.addElement(element);
   }
   return array;
}

HLAvariableArray nestedArrays(Nesting const& nesting)
{
   HLAvariableArray const innermost = repeated(HLAinteger32BE(7), 10);
   HLAvariableArray const second = repeated(static_cast<DataElement const&>(innermost), 10);
   HLAvariableArray const third = repeated(static_cast<DataElement const&>(second), nesting.next);
   return repeated(static_cast<DataElement const&>(third), nesting.outermost);
}

// The same by hand: plain vectors in vectors of pointers, as elements that are made one by one have to be.
template <class Inner>
using Level = std::vector<std::unique_ptr<Inner>>;
using NestedCells = Level<Level<Level<Cells<int>>>>;

NestedCells nestedCells(Nesting const& nesting)
{
   NestedCells outermost;
   for (std::size_t i = 0; i < nesting.outermost; ++i) {
      Level<Level<Cells<int>>>& third = *outermost.emplace_back(new Level<Level<Cells<int>>>);
      for (std::size_t j = 0; j < nesting.next; ++j) {
         Level<Cells<int>>& second = *third.emplace_back(new Level<Cells<int>>);
         for (int k = 0; k < 10; ++k) {
            Cells<int>& innermost = *second.emplace_back(new Cells<int>);
            for (int l = 0; l < 10; ++l) {
               innermost.push_back(makeCell(7));
            }
         }
      }
   }
   return outermost;
}

char* storeNested(Cells<int> const& cells, char* to)
{
   put(to, static_cast<std::int32_t>(cells.size()));
   storeAll(cells, to + 4);
   return to + 4 + cells.size() * sizeof(int);
}

template <class Inner>
char* storeNested(Level<Inner> const& level, char* to)
{
   put(to, static_cast<std::int32_t>(level.size()));
   to += 4;
   for (auto const& inner : level) {
      to = storeNested(*inner, to);
   }
   return to;
}

// A larger number of leaves, and how the time grows from each to the next. That of the loops by hand tells
// how much of it is the machine's, whose caches hold only so much.
void measureGrowth()
{
   std::vector<std::string> const byHand = {"virtual store/flat ", "virtual store/nested "};
   std::vector<std::string> const byLibrary = {"encodeInto/", "encode/", "decodeFrom/", "decode/"};
   for (std::size_t leaves = 100; leaves <= 1000000; leaves *= 10) {
      std::string const ofLeaves = std::to_string(leaves);
      std::vector<char> room(2 * leaves * sizeof(int));
      std::vector<int> const numbers(leaves, 7);
      auto const cells = std::make_shared<Cells<int>>();
      for (int const number : numbers) {
         cells->push_back(makeCell(number));
      }
      measure(byHand[0] + ofLeaves, [cells, room]() mutable { storeAll(*cells, room.data()); });
      measureCoding("flat " + ofLeaves, std::make_shared<HLAvariableArray>(arrayOf<HLAinteger32BE>(numbers)));

      Nesting const nesting(leaves);
      auto const inCells = std::make_shared<NestedCells>(nestedCells(nesting));
      measure(byHand[1] + ofLeaves, [inCells, room]() mutable { storeNested(*inCells, room.data()); });
      measureCoding("nested " + ofLeaves, std::make_shared<HLAvariableArray>(nestedArrays(nesting)));
      if (leaves == 100) {
         continue;
      }
      std::string const ofTenth = std::to_string(leaves / 10);
      for (std::string const& loop : byHand) {
         claim(loop + ofLeaves, loop + ofTenth, 0);
      }
      for (std::string const& operation : byLibrary) {
         for (std::string const form : {"flat ", "nested "}) {
            claim(operation + form + ofLeaves, operation + form + ofTenth, 11);
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
   compareRecords(claims);
   return bench::run(argc, argv, claims);
}
