#include "bench/EncodingFloors.h"

namespace bench {

namespace {

template <class Number>
class PlainCell final : public Cell<Number>
{
public:
   explicit PlainCell(Number value) : _value(value) {}
   Number get() const override { return _value; }
   void set(Number value) override { _value = value; }

private:
   Number _value;
};

} // namespace

template <class Number>
std::unique_ptr<Cell<Number>> makeCell(Number value)
{
   return std::make_unique<PlainCell<Number>>(value);
}

template std::unique_ptr<Cell<char>> makeCell(char);
template std::unique_ptr<Cell<std::int16_t>> makeCell(std::int16_t);
template std::unique_ptr<Cell<std::int32_t>> makeCell(std::int32_t);
template std::unique_ptr<Cell<std::int64_t>> makeCell(std::int64_t);
template std::unique_ptr<Cell<float>> makeCell(float);
template std::unique_ptr<Cell<double>> makeCell(double);

} // namespace bench
