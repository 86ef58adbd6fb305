// What encoding and decoding cost without the library: the floors that its times are compared with.
#pragma once

#include "src/values/BigEndian.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace bench {

template <class Number>
using BitsOf = std::conditional_t<
   sizeof(Number) == 1, std::uint8_t,
   std::conditional_t<sizeof(Number) == 2, std::uint16_t,
                      std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>>>;

template <class Number>
void put(char* to, Number value)
{
   BitsOf<Number> bits;
   std::memcpy(&bits, &value, sizeof bits);
   rti1516e::storeBigEndian(to, bits);
}

template <class Number>
Number get(char const* from)
{
   auto const bits = rti1516e::loadBigEndian<BitsOf<Number>>(from);
   Number value;
   std::memcpy(&value, &bits, sizeof value);
   return value;
}

// The first floor: a loop over plain numbers.
template <class Number>
void storeAll(std::vector<Number> const& numbers, char* to)
{
   for (std::size_t i = 0; i < numbers.size(); ++i) {
      put(to + i * sizeof(Number), numbers[i]);
   }
}

template <class Number>
void loadAll(std::vector<Number>& numbers, char const* from)
{
   for (std::size_t i = 0; i < numbers.size(); ++i) {
      numbers[i] = get<Number>(from + i * sizeof(Number));
   }
}

// The second: the same loop with a virtual call for each.
template <class Number>
class Cell
{
public:
   virtual ~Cell() = default;
   virtual Number get() const = 0;
   virtual void set(Number value) = 0;
};

// Made out of sight of the loops, so that the calls stay calls.
template <class Number>
std::unique_ptr<Cell<Number>> makeCell(Number value);

template <class Number>
using Cells = std::vector<std::unique_ptr<Cell<Number>>>;

template <class Number>
void storeAll(Cells<Number> const& cells, char* to)
{
   for (std::size_t i = 0; i < cells.size(); ++i) {
      put(to + i * sizeof(Number), cells[i]->get());
   }
}

template <class Number>
void loadAll(Cells<Number>& cells, char const* from)
{
   for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i]->set(get<Number>(from + i * sizeof(Number)));
   }
}

// A record of ten fields written by hand, with a virtual call for each.
struct MixedCells
{
   static constexpr std::size_t length = 43;

   void store(std::vector<char>& buffer) const;
   void load(char const* from, std::size_t size);

   std::unique_ptr<Cell<double>> x = makeCell(1.5), y = makeCell(-2.5);
   std::unique_ptr<Cell<std::int32_t>> id = makeCell(3), flag = makeCell(1);
   std::unique_ptr<Cell<float>> speed = makeCell(4.5F);
   std::unique_ptr<Cell<std::int16_t>> kind = makeCell(std::int16_t{5}), letter = makeCell(std::int16_t{6}),
                                       pair = makeCell(std::int16_t{7});
   std::unique_ptr<Cell<std::int64_t>> time = makeCell(std::int64_t{8});
   std::unique_ptr<Cell<char>> octet = makeCell('9');
};

} // namespace bench
