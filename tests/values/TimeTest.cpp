#include "tests/values/Octets.h"

#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <cmath>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>
#include <typeinfo>

namespace {

using namespace rti1516e;

// What is expected of a number, as a time and as an interval.
template <class Number>
struct Row
{
   Number number;
   char const* encoded;
   std::wstring text;
};

template <class Number>
struct Sum
{
   Number left, right, sum, difference;
};

struct FloatFamily;

struct IntegerFamily
{
   using Number = Integer64;
   using Time = HLAinteger64Time;
   using Interval = HLAinteger64Interval;
   using Factory = HLAinteger64TimeFactory;
   using Foreign = FloatFamily;

   static constexpr Number least = std::numeric_limits<Number>::min();
   static constexpr Number greatest = std::numeric_limits<Number>::max();
   static constexpr Number epsilon = 1;
   static inline std::wstring const name = L"HLAinteger64";
   static inline Row<Number> const rows[] = {
      {0, "0000000000000000", L"0"},
      {1, "0000000000000001", L"1"},
      {-3, "fffffffffffffffd", L"-3"},
      {0x0102030405060708, "0102030405060708", L"72623859790382856"},
      {greatest, "7fffffffffffffff", L"9223372036854775807"},
      {least, "8000000000000000", L"-9223372036854775808"},
   };
   static inline Sum<Number> const intervalSums[] = {
      {3, -5, -2, 8},
      {greatest, 1, least, greatest - 1},
      {least, 1, least + 1, greatest},
      {greatest, greatest, -2, 0},
      {-1, least, greatest, greatest},
   };
   static inline auto const& timeSums = intervalSums;
};

struct FloatFamily
{
   using Number = double;
   using Time = HLAfloat64Time;
   using Interval = HLAfloat64Interval;
   using Factory = HLAfloat64TimeFactory;
   using Foreign = IntegerFamily;

   static constexpr Number greatest = std::numeric_limits<Number>::max();
   static constexpr Number epsilon = std::numeric_limits<Number>::min();
   static constexpr Number infinite = std::numeric_limits<Number>::infinity();
   static inline std::wstring const name = L"HLAfloat64";
   static inline Row<Number> const rows[] = {
      {0.0, "0000000000000000", L"0"},
      {-0.0, "8000000000000000", L"-0"},
      {1.5, "3ff8000000000000", L"1.5"},
      {-12345678.0, "c1678c29c0000000", L"-1.23457e+07"},
      {epsilon, "0010000000000000", L"2.22507e-308"},
      {4.9406564584124654e-324, "0000000000000001", L"4.94066e-324"},
      {greatest, "7fefffffffffffff", L"1.79769e+308"},
      {infinite, "7ff0000000000000", L"inf"},
      {std::nan(""), "7ff8000000000000", L"nan"},
   };
   static inline Sum<Number> const intervalSums[] = {
      {1.5, 0.25, 1.75, 1.25},
      {1e20, 1.0, 1e20, 1e20},
      {greatest, greatest, infinite, 0.0},
      {infinite, 1.0, infinite, infinite},
   };
   // Any interval but zero changes a time: one that would be absorbed by one bit pattern up or down, which
   // for negative times is away from zero and towards it.
   static inline Sum<Number> const timeSums[] = {
      {1.5, 0.25, 1.75, 1.25},
      {5.0, -0.0, 5.0, 5.0},
      {-0.0, 0.0, 0.0, -0.0},
      {1e20, -1.0, 100000000000000016384.0, 99999999999999983616.0},
      {-1e20, 1.0, -100000000000000016384.0, -99999999999999983616.0},
      {greatest, 1.0, infinite, 1.7976931348623155e308},
      {-infinite, 0.0, -infinite, -infinite},
   };
};

// Byte for byte, so that -0.0 and what is not a number count.
template <class Value, class Number>
bool holds(Value const& value, Number number)
{
   return octetsOf(value.encode()) == octetsOf(Value(number).encode());
}

template <class Family>
class StandardTime : public testing::Test
{};
using Families = testing::Types<IntegerFamily, FloatFamily>;
TYPED_TEST_SUITE(StandardTime, Families, );

Caught const tooSmall{"CouldNotDecode", L"Buffer to small!"};

// In a locale that no time may be printed in.
struct Manner : std::numpunct<wchar_t>
{
   wchar_t do_decimal_point() const override { return L','; }
   wchar_t do_thousands_sep() const override { return L'.'; }
   std::string do_grouping() const override { return "\1"; }
};

template <class Family, class Value, class Base>
void isItsNumber(std::wstring const& name)
{
   for (auto const& row : Family::rows) {
      SCOPED_TRACE(row.encoded);
      Octets const encoded = octets(row.encoded);
      Value const value(row.number);
      std::wostringstream stream;
      stream << static_cast<Base const&>(value);
      EXPECT_EQ(stream.str(), name + L"<" + row.text + L">");
      EXPECT_EQ(value.toString(), stream.str());
      EXPECT_EQ(value.implementationName(), Family::name + L"Time");
      expectEncoding(value, encoded, tooSmall);

      Value const copy(value), copyOfBase(static_cast<Base const&>(value));
      Value assigned, assignedBase, decoded, decodedData;
      assigned = value;
      EXPECT_EQ(&(static_cast<Base&>(assignedBase) = value), &assignedBase);
      for (std::size_t size = 0; size <= 9; ++size) {
         Octets from = encoded;
         from.resize(size, 'a');
         Caught const expected = size < 8 ? tooSmall : Caught();
         EXPECT_EQ(caughtFrom([&] { decoded.decode(from.data(), size); }), expected);
         EXPECT_EQ(caughtFrom([&] { decodedData.decode(dataOf(from)); }), expected);
      }
      for (Value const& each : {copy, copyOfBase, assigned, assignedBase, decoded, decodedData}) {
         EXPECT_TRUE(holds(Value(static_cast<typename Family::Number>(each)), row.number));
      }
      for (auto const& other : Family::rows) {
         Value const right(other.number);
         Base const& base = right;
         EXPECT_EQ(value < base, row.number < other.number);
         EXPECT_EQ(value > base, row.number > other.number);
         EXPECT_EQ(value <= base, row.number <= other.number);
         EXPECT_EQ(value >= base, row.number >= other.number);
         EXPECT_EQ(value == base, row.number == other.number);
         EXPECT_EQ(value == right, row.number == other.number);
      }
   }
   EXPECT_TRUE(holds(Value(), 0));
}

TYPED_TEST(StandardTime, IsItsNumber)
{
   auto const before = std::locale::global(std::locale(std::locale::classic(), new Manner));
   isItsNumber<TypeParam, typename TypeParam::Time, LogicalTime>(TypeParam::name + L"Time");
   isItsNumber<TypeParam, typename TypeParam::Interval, LogicalTimeInterval>(TypeParam::name + L"Interval");
   std::locale::global(before);
}

TYPED_TEST(StandardTime, IsMadeByItsFactoryAndKnowsItsDistinguishedValues)
{
   using Time = typename TypeParam::Time;
   using Interval = typename TypeParam::Interval;
   typename TypeParam::Factory original;
   typename TypeParam::Factory factory(original);
   EXPECT_EQ(factory.getName(), TypeParam::name + L"Time");
   EXPECT_TRUE(dynamic_cast<Time&>(*factory.makeInitial()).isInitial());
   EXPECT_TRUE(dynamic_cast<Time&>(*factory.makeFinal()).isFinal());
   EXPECT_TRUE(dynamic_cast<Interval&>(*factory.makeZero()).isZero());
   EXPECT_TRUE(dynamic_cast<Interval&>(*factory.makeEpsilon()).isEpsilon());
   for (auto const& row : TypeParam::rows) {
      SCOPED_TRACE(row.encoded);
      Octets encoded = octets(row.encoded);
      VariableLengthData const less(encoded.data(), 7);
      EXPECT_EQ(caughtFrom([&] { factory.decodeLogicalTime(less); }), tooSmall);
      EXPECT_EQ(caughtFrom([&] { factory.decodeLogicalTimeInterval(encoded.data(), 7); }), tooSmall);
      EXPECT_TRUE(holds(*factory.makeLogicalTime(row.number), row.number));
      EXPECT_TRUE(holds(dynamic_cast<Time&>(*factory.decodeLogicalTime(encoded.data(), 8)), row.number));
      EXPECT_TRUE(holds(Interval(*factory.decodeLogicalTimeInterval(encoded.data(), 8)), row.number));
      Time time(*factory.decodeLogicalTime(dataOf(encoded)));
      Interval interval(*factory.makeLogicalTimeInterval(row.number));
      EXPECT_EQ(time.isInitial(), row.number == 0);
      EXPECT_EQ(time.isFinal(), row.number == TypeParam::greatest);
      EXPECT_EQ(interval.isZero(), row.number == 0);
      EXPECT_EQ(interval.isEpsilon(), row.number == TypeParam::epsilon);
      time.setInitial();
      interval.setZero();
      EXPECT_TRUE(time.isInitial() && interval.isZero());
      time.setFinal();
      interval.setEpsilon();
      EXPECT_TRUE(time.isFinal() && interval.isEpsilon());
      time.setTime(row.number);
      interval.setInterval(row.number);
      EXPECT_TRUE(holds(Time(time.getTime()), row.number) &&
                  holds(Interval(interval.getInterval()), row.number));
   }
}

// What adding and subtracting an interval make of a time or an interval.
template <class Value, class Interval, class Sums>
void expectSums(Sums const& sums)
{
   for (auto const& row : sums) {
      SCOPED_TRACE(testing::Message() << row.left << " and " << row.right);
      Value more(row.left), less(row.left);
      EXPECT_EQ(&(more += Interval(row.right)), &more);
      EXPECT_EQ(&(less -= Interval(row.right)), &less);
      EXPECT_TRUE(holds(more, row.sum) && holds(less, row.difference)) << more << less;
   }
}

TYPED_TEST(StandardTime, IsAddedTo)
{
   using Time = typename TypeParam::Time;
   using Interval = typename TypeParam::Interval;
   expectSums<Time, Interval>(TypeParam::timeSums);
   expectSums<Interval, Interval>(TypeParam::intervalSums);
   for (auto const& row : TypeParam::intervalSums) {
      Interval distance;
      distance.setToDifference(Time(row.left), Time(row.right));
      EXPECT_TRUE(holds(distance, row.difference)) << distance;
   }
}

TYPED_TEST(StandardTime, RefusesAnotherImplementation)
{
   typename TypeParam::Time time(3);
   typename TypeParam::Interval interval(3);
   typename TypeParam::Foreign::Time const foreignTime;
   typename TypeParam::Foreign::Interval const foreignInterval(1);
   LogicalTime& base = time;
   EXPECT_THROW(typename TypeParam::Time{static_cast<LogicalTime const&>(foreignTime)}, std::bad_cast);
   EXPECT_THROW(base = foreignTime, std::bad_cast);
   EXPECT_THROW(static_cast<void>(base == foreignTime), std::bad_cast);
   EXPECT_THROW(time += foreignInterval, std::bad_cast);
   EXPECT_THROW(interval -= foreignInterval, std::bad_cast);
   EXPECT_THROW(interval.setToDifference(foreignTime, time), std::bad_cast);
   EXPECT_TRUE(holds(time, 3) && holds(interval, 3));
}

std::wstring nameOf(std::auto_ptr<LogicalTimeFactory> factory)
{
   return factory.get() == nullptr ? L"none" : factory->getName();
}

// Made before the library's static objects, as those of a library in the place of libfedtime1516e are.
struct Early
{
   std::wstring const name = nameOf(LogicalTimeFactoryFactory::makeLogicalTimeFactory(L"HLAinteger64Time"));
   std::wstring const ofTime = HLAfloat64Time(1.5).implementationName();
};
Early const early [[gnu::init_priority(101)]];

// The library's own selector and that of the default time library know the same names.
TEST(TimeFactorySelectors, KnowTheStandardNamesExactly)
{
   EXPECT_EQ(early.name, L"HLAinteger64Time");
   EXPECT_EQ(early.ofTime, L"HLAfloat64Time");
   std::wstring const rows[][2] = {
      {L"HLAinteger64Time", L"HLAinteger64Time"},
      {L"HLAfloat64Time", L"HLAfloat64Time"},
      {L"", L"HLAfloat64Time"},
      {L"hlainteger64time", L"none"},
      {L"HLAfloat64", L"none"},
      {{L"HLAfloat64Time\0", 15}, L"none"},
   };
   for (auto* const select : {&HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory,
                              &LogicalTimeFactoryFactory::makeLogicalTimeFactory}) {
      for (auto const& [given, selected] : rows) {
         EXPECT_EQ(nameOf(select(given)), selected) << testing::PrintToString(given);
      }
      auto const one = select(L"");
      EXPECT_NE(select(L"").get(), one.get());
   }
}

} // namespace
