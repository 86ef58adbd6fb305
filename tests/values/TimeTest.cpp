#include "tests/values/Bytes.h"

#include <RTI/Exception.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace {

using namespace rti1516e;

enum class Role
{
   none,
   origin, // the initial time and the zero interval
   final,
   epsilon
};

// What is expected of a number, as a time and as an interval.
template <class Number>
struct Row
{
   Number number;
   Bytes encoded;
   std::wstring text;
   Role role = Role::none;
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
   static inline std::wstring const timeName = L"HLAinteger64Time";
   static inline std::wstring const intervalName = L"HLAinteger64Interval";
   static inline std::vector<Row<Number>> const rows = {
      {0, {0, 0, 0, 0, 0, 0, 0, 0}, L"0", Role::origin},
      {1, {0, 0, 0, 0, 0, 0, 0, 1}, L"1", Role::epsilon},
      {2, {0, 0, 0, 0, 0, 0, 0, 2}, L"2"},
      {5, {0, 0, 0, 0, 0, 0, 0, 5}, L"5"},
      {-1, {255, 255, 255, 255, 255, 255, 255, 255}, L"-1"},
      {-3, {255, 255, 255, 255, 255, 255, 255, 253}, L"-3"},
      {0x0102030405060708, {1, 2, 3, 4, 5, 6, 7, 8}, L"72623859790382856"},
      {greatest, {127, 255, 255, 255, 255, 255, 255, 255}, L"9223372036854775807", Role::final},
      {least, {128, 0, 0, 0, 0, 0, 0, 0}, L"-9223372036854775808"},
   };
};

struct FloatFamily
{
   using Number = double;
   using Time = HLAfloat64Time;
   using Interval = HLAfloat64Interval;
   using Factory = HLAfloat64TimeFactory;
   using Foreign = IntegerFamily;

   static constexpr Number greatest = 1.7976931348623157e308;
   static constexpr Number infinite = std::numeric_limits<Number>::infinity();
   static inline std::wstring const timeName = L"HLAfloat64Time";
   static inline std::wstring const intervalName = L"HLAfloat64Interval";
   static inline std::vector<Row<Number>> const rows = {
      {0.0, {0, 0, 0, 0, 0, 0, 0, 0}, L"0", Role::origin},
      {-0.0, {128, 0, 0, 0, 0, 0, 0, 0}, L"-0", Role::origin},
      {1.0, {0x3F, 0xF0, 0, 0, 0, 0, 0, 0}, L"1"},
      {1.5, {0x3F, 0xF8, 0, 0, 0, 0, 0, 0}, L"1.5"},
      {-12345678.0, {0xC1, 0x67, 0x8C, 0x29, 0xC0, 0, 0, 0}, L"-1.23457e+07"},
      {2.2250738585072014e-308, {0, 0x10, 0, 0, 0, 0, 0, 0}, L"2.22507e-308", Role::epsilon},
      {4.9406564584124654e-324, {0, 0, 0, 0, 0, 0, 0, 1}, L"4.94066e-324"},
      {greatest, {0x7F, 0xEF, 255, 255, 255, 255, 255, 255}, L"1.79769e+308", Role::final},
      {infinite, {0x7F, 0xF0, 0, 0, 0, 0, 0, 0}, L"inf"},
      {std::nan(""), {0x7F, 0xF8, 0, 0, 0, 0, 0, 0}, L"nan"},
   };
};

// Byte for byte, so that -0.0 and what is not a number count.
template <class Value, class Number>
bool holds(Value const& value, Number number)
{
   return bytesOf(value.encode()) == bytesOf(Value(number).encode());
}

// Runs what must fail for want of bytes.
template <class Operation>
void expectTooSmall(Operation operation)
{
   try {
      operation();
      FAIL() << "accepted too small a buffer";
   } catch (CouldNotDecode const& exception) {
      EXPECT_EQ(exception.what(), L"Buffer to small!");
   }
}

template <class Family>
struct StandardTime : testing::Test
{};
using Families = testing::Types<IntegerFamily, FloatFamily>;
TYPED_TEST_SUITE(StandardTime, Families, );

// What times and intervals have in common.
template <class F, class V, class B>
struct Quantity
{
   using Family = F;
   using Value = V;
   using Base = B;
   static std::wstring name() { return std::is_same_v<B, LogicalTime> ? F::timeName : F::intervalName; }
};
template <class Q>
struct StandardQuantity : testing::Test
{};
using Quantities = testing::Types<Quantity<IntegerFamily, HLAinteger64Time, LogicalTime>,
                                  Quantity<IntegerFamily, HLAinteger64Interval, LogicalTimeInterval>,
                                  Quantity<FloatFamily, HLAfloat64Time, LogicalTime>,
                                  Quantity<FloatFamily, HLAfloat64Interval, LogicalTimeInterval>>;
TYPED_TEST_SUITE(StandardQuantity, Quantities, );

TYPED_TEST(StandardQuantity, IsEncodedDecodedAndPrinted)
{
   using Value = typename TypeParam::Value;
   using Number = typename TypeParam::Family::Number;
   for (auto const& row : TypeParam::Family::rows) {
      SCOPED_TRACE(testing::Message() << row.number);
      Value const value(row.number);
      EXPECT_EQ(value.encodedLength(), 8U);
      EXPECT_EQ(bytesOf(value.encode()), row.encoded);
      EXPECT_EQ(value.toString(), TypeParam::name() + L"<" + row.text + L">");
      std::wostringstream stream;
      stream << static_cast<typename TypeParam::Base const&>(value);
      EXPECT_EQ(stream.str(), value.toString());

      Bytes buffer(9, 0xAA);
      EXPECT_EQ(value.encode(buffer.data(), buffer.size()), 8U);
      EXPECT_EQ(Bytes(buffer.begin(), buffer.end() - 1), row.encoded);
      EXPECT_EQ(buffer.back(), 0xAA);
      Value decoded(Number(77));
      decoded.decode(buffer.data(), 9);
      EXPECT_TRUE(holds(decoded, row.number));
      decoded = Value(Number(77));
      decoded.decode(VariableLengthData(buffer.data(), 9));
      for (unsigned int size = 0; size < 8; ++size) {
         Bytes small(9, 0xAA);
         expectTooSmall([&] { value.encode(small.data(), size); });
         EXPECT_EQ(small, Bytes(9, 0xAA));
         expectTooSmall([&] { decoded.decode(small.data(), size); });
         expectTooSmall([&] { decoded.decode(VariableLengthData(small.data(), size)); });
      }
      expectTooSmall([&] { decoded.decode(VariableLengthData()); });
      EXPECT_TRUE(holds(decoded, row.number));
   }
}

TYPED_TEST(StandardQuantity, ComparesAndCopiesTheNumber)
{
   using Value = typename TypeParam::Value;
   using Base = typename TypeParam::Base;
   for (auto const& a : TypeParam::Family::rows) {
      Value original(a.number);
      Value const copy(original);
      Value const copyOfBase(static_cast<Base const&>(original));
      Value assigned;
      EXPECT_EQ(&(assigned = original), &assigned);
      Value assignedBase;
      Base& base = assignedBase;
      EXPECT_EQ(&(base = original), &base);
      Value const& itself = original;
      original = itself;
      EXPECT_TRUE(holds(original, a.number));
      original = Value(7);
      EXPECT_EQ(static_cast<typename TypeParam::Family::Number>(original), 7);
      for (Value const* each : {&copy, &copyOfBase, static_cast<Value const*>(&assigned),
                                static_cast<Value const*>(&assignedBase)}) {
         EXPECT_TRUE(holds(*each, a.number));
      }
      for (auto const& b : TypeParam::Family::rows) {
         SCOPED_TRACE(testing::Message() << a.number << " and " << b.number);
         Value const right(b.number);
         Base const& other = right;
         EXPECT_EQ(copy < other, a.number < b.number);
         EXPECT_EQ(copy > other, a.number > b.number);
         EXPECT_EQ(copy <= other, a.number <= b.number);
         EXPECT_EQ(copy >= other, a.number >= b.number);
         EXPECT_EQ(copy == other, a.number == b.number);
         EXPECT_EQ(copy == right, a.number == b.number);
      }
   }
}

TYPED_TEST(StandardTime, KnowsItsDistinguishedValues)
{
   for (auto const& row : TypeParam::rows) {
      SCOPED_TRACE(testing::Message() << row.number);
      typename TypeParam::Time time(row.number);
      typename TypeParam::Interval interval(row.number);
      EXPECT_EQ(time.isInitial(), row.role == Role::origin);
      EXPECT_EQ(time.isFinal(), row.role == Role::final);
      EXPECT_EQ(interval.isZero(), row.role == Role::origin);
      EXPECT_EQ(interval.isEpsilon(), row.role == Role::epsilon);
      time.setInitial();
      EXPECT_TRUE(holds(time, 0));
      time.setFinal();
      EXPECT_TRUE(time.isFinal());
      interval.setZero();
      EXPECT_TRUE(holds(interval, 0));
      interval.setEpsilon();
      EXPECT_TRUE(interval.isEpsilon());
      time.setTime(row.number);
      interval.setInterval(row.number);
      EXPECT_TRUE(holds(time, row.number) && holds(typename TypeParam::Time(time.getTime()), row.number));
      EXPECT_TRUE(holds(interval, row.number) &&
                  holds(typename TypeParam::Interval(interval.getInterval()), row.number));
   }
   EXPECT_TRUE(holds(typename TypeParam::Time(), 0));
   EXPECT_TRUE(holds(typename TypeParam::Interval(), 0));
}

template <class Value, class Base>
void expectForeignIsRefused(Value& value, Base const& foreign)
{
   Base& base = value;
   EXPECT_THROW(Value{foreign}, std::bad_cast);
   EXPECT_THROW(base = foreign, std::bad_cast);
   EXPECT_THROW(static_cast<void>(base < foreign), std::bad_cast);
   EXPECT_THROW(static_cast<void>(base > foreign), std::bad_cast);
   EXPECT_THROW(static_cast<void>(base <= foreign), std::bad_cast);
   EXPECT_THROW(static_cast<void>(base >= foreign), std::bad_cast);
   EXPECT_THROW(static_cast<void>(base == foreign), std::bad_cast);
}

TYPED_TEST(StandardTime, RefusesAnotherImplementation)
{
   typename TypeParam::Time time(3);
   typename TypeParam::Interval interval(4);
   typename TypeParam::Foreign::Time const foreignTime;
   typename TypeParam::Foreign::Interval const foreignInterval(1);
   expectForeignIsRefused<typename TypeParam::Time, LogicalTime>(time, foreignTime);
   expectForeignIsRefused<typename TypeParam::Interval, LogicalTimeInterval>(interval, foreignInterval);
   EXPECT_THROW(time += foreignInterval, std::bad_cast);
   EXPECT_THROW(time -= foreignInterval, std::bad_cast);
   EXPECT_THROW(interval += foreignInterval, std::bad_cast);
   EXPECT_THROW(interval -= foreignInterval, std::bad_cast);
   EXPECT_THROW(interval.setToDifference(time, foreignTime), std::bad_cast);
   EXPECT_THROW(interval.setToDifference(foreignTime, time), std::bad_cast);
   EXPECT_TRUE(holds(time, 3));
   EXPECT_TRUE(holds(interval, 4));
}

TYPED_TEST(StandardTime, IsMadeByItsFactory)
{
   using Time = typename TypeParam::Time;
   using Interval = typename TypeParam::Interval;
   typename TypeParam::Factory original;
   typename TypeParam::Factory factory(original);
   EXPECT_EQ(factory.getName(), TypeParam::timeName);
   EXPECT_EQ(Time().implementationName(), TypeParam::timeName);
   EXPECT_EQ(Interval(7).implementationName(), TypeParam::timeName);

   EXPECT_TRUE(dynamic_cast<Time&>(*factory.makeInitial()).isInitial());
   EXPECT_TRUE(dynamic_cast<Time&>(*factory.makeFinal()).isFinal());
   EXPECT_TRUE(dynamic_cast<Interval&>(*factory.makeZero()).isZero());
   EXPECT_TRUE(dynamic_cast<Interval&>(*factory.makeEpsilon()).isEpsilon());

   for (auto const& row : TypeParam::rows) {
      SCOPED_TRACE(testing::Message() << row.number);
      EXPECT_TRUE(holds(*factory.makeLogicalTime(row.number), row.number));
      EXPECT_TRUE(holds(*factory.makeLogicalTimeInterval(row.number), row.number));
      Bytes bytes = row.encoded;
      bytes.push_back(0xAA);
      auto* const raw = bytes.data();
      VariableLengthData const data(raw, 9);
      EXPECT_EQ(bytesOf(dynamic_cast<Time&>(*factory.decodeLogicalTime(raw, 9)).encode()), row.encoded);
      EXPECT_EQ(bytesOf(dynamic_cast<Time&>(*factory.decodeLogicalTime(data)).encode()), row.encoded);
      EXPECT_EQ(bytesOf(dynamic_cast<Interval&>(*factory.decodeLogicalTimeInterval(raw, 9)).encode()),
                row.encoded);
      EXPECT_EQ(bytesOf(dynamic_cast<Interval&>(*factory.decodeLogicalTimeInterval(data)).encode()),
                row.encoded);
      VariableLengthData const small(raw, 7);
      expectTooSmall([&] { factory.decodeLogicalTime(raw, 7); });
      expectTooSmall([&] { factory.decodeLogicalTime(small); });
      expectTooSmall([&] { factory.decodeLogicalTimeInterval(raw, 7); });
      expectTooSmall([&] { factory.decodeLogicalTimeInterval(small); });
   }
}

TYPED_TEST(StandardTime, IsPrintedInNoLocalesManner)
{
   struct Manner : std::numpunct<wchar_t>
   {
      wchar_t do_decimal_point() const override { return L','; }
      wchar_t do_thousands_sep() const override { return L'.'; }
      std::string do_grouping() const override { return "\1"; }
   };
   std::locale const before = std::locale::global(std::locale(std::locale::classic(), new Manner));
   for (auto const& row : TypeParam::rows) {
      EXPECT_EQ(typename TypeParam::Time(row.number).toString(),
                TypeParam::timeName + L"<" + row.text + L">");
   }
   std::locale::global(before);
}

std::wstring nameOf(std::auto_ptr<LogicalTimeFactory> factory)
{
   return factory.get() == nullptr ? L"none" : factory->getName();
}

// The library's own selector and that of the default time library know the same names.
TEST(TimeFactorySelectors, KnowTheStandardNamesExactly)
{
   struct
   {
      std::wstring given, selected;
   } const rows[] = {
      {L"HLAinteger64Time", L"HLAinteger64Time"},
      {L"HLAfloat64Time", L"HLAfloat64Time"},
      {L"", L"HLAfloat64Time"},
      {L"hlainteger64time", L"none"},
      {L"HLAinteger64Time ", L"none"},
      {L" HLAfloat64Time", L"none"},
      {L"HLAfloat64", L"none"},
      {std::wstring(L"HLAfloat64Time\0", 15), L"none"},
      {std::wstring(1, L'\0'), L"none"},
   };
   for (auto* const select : {&HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory,
                              &LogicalTimeFactoryFactory::makeLogicalTimeFactory}) {
      for (auto const& row : rows) {
         EXPECT_EQ(nameOf(select(row.given)), row.selected) << testing::PrintToString(row.given);
      }
      auto const one = select(L"");
      auto const other = select(L"");
      EXPECT_NE(one.get(), other.get());
   }
}

// Made before the library's static objects, as those of a library in the place of libfedtime1516e are.
struct Early
{
   std::wstring const ofFactory = HLAinteger64TimeFactory().getName();
   std::wstring const ofTime = HLAfloat64Time(1.5).implementationName();
   std::wstring const selected =
      nameOf(HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(L"HLAinteger64Time"));
   std::wstring const byDefault = nameOf(HLAlogicalTimeFactoryFactory::makeLogicalTimeFactory(L""));
};
Early const early [[gnu::init_priority(101)]];

TEST(TimeFactorySelectors, WorkForStaticObjects)
{
   EXPECT_EQ(early.ofFactory, HLAinteger64TimeName);
   EXPECT_EQ(early.ofTime, HLAfloat64TimeName);
   EXPECT_EQ(early.selected, HLAinteger64TimeName);
   EXPECT_EQ(early.byDefault, HLAfloat64TimeName);
}

// What adding and subtracting an interval make of a time or an interval.
template <class Value, class Interval, class Number>
void expectArithmetic(Number left, Number right, Number sum, Number difference)
{
   SCOPED_TRACE(testing::Message() << left << " and " << right);
   Value value(left);
   EXPECT_EQ(&(value += Interval(right)), &value);
   EXPECT_TRUE(holds(value, sum)) << "sum: " << static_cast<Number>(value);
   value = Value(left);
   EXPECT_EQ(&(value -= Interval(right)), &value);
   EXPECT_TRUE(holds(value, difference)) << "difference: " << static_cast<Number>(value);
}

template <class Number>
struct Arithmetic
{
   Number left, right, sum, difference;
};

template <class Time, class Interval, class Number>
void expectIntervalArithmetic(Arithmetic<Number> const& row)
{
   expectArithmetic<Interval, Interval>(row.left, row.right, row.sum, row.difference);
   Interval distance;
   distance.setToDifference(Time(row.left), Time(row.right));
   EXPECT_TRUE(holds(distance, row.difference));
}

TEST(HLAinteger64, WrapsAround)
{
   constexpr auto least = IntegerFamily::least;
   constexpr auto greatest = IntegerFamily::greatest;
   Arithmetic<Integer64> const rows[] = {
      {40, 2, 42, 38},
      {3, -5, -2, 8},
      {greatest, 1, least, greatest - 1},
      {least, 1, least + 1, greatest},
      {greatest, greatest, -2, 0},
      {-1, least, greatest, greatest},
      {0, least, least, least},
   };
   for (auto const& row : rows) {
      expectArithmetic<HLAinteger64Time, HLAinteger64Interval>(row.left, row.right, row.sum, row.difference);
      expectIntervalArithmetic<HLAinteger64Time, HLAinteger64Interval>(row);
   }
}

TEST(HLAfloat64, IntervalsAddAndSubtractPlainly)
{
   constexpr auto greatest = FloatFamily::greatest;
   constexpr auto infinite = FloatFamily::infinite;
   Arithmetic<double> const rows[] = {
      {1.5, 0.25, 1.75, 1.25},
      {1e20, 1.0, 1e20, 1e20},
      {greatest, 1.0, greatest, greatest},
      {greatest, greatest, infinite, 0.0},
      {infinite, 1.0, infinite, infinite},
   };
   for (auto const& row : rows) {
      expectIntervalArithmetic<HLAfloat64Time, HLAfloat64Interval>(row);
   }
}

TEST(HLAfloat64, AnyIntervalButZeroChangesATime)
{
   constexpr auto greatest = FloatFamily::greatest;
   constexpr auto infinite = FloatFamily::infinite;
   Arithmetic<double> const rows[] = {
      {1.5, 0.25, 1.75, 1.25},
      {5.0, 0.0, 5.0, 5.0},
      {5.0, -0.0, 5.0, 5.0},
      {-0.0, 0.0, 0.0, -0.0},
      {0.0, 1.0, 1.0, -1.0},
      // Absorbed: one bit pattern up or down, for negative times away from zero and towards it.
      {1e20, 1.0, 100000000000000016384.0, 99999999999999983616.0},
      {1e20, -1.0, 100000000000000016384.0, 99999999999999983616.0},
      {-1e20, 1.0, -100000000000000016384.0, -99999999999999983616.0},
      {1.0, 2.2250738585072014e-308, 1.0000000000000002, 0.9999999999999999},
      {greatest, 1.0, infinite, 1.7976931348623155e308},
      {-infinite, 0.0, -infinite, -infinite},
   };
   for (auto const& row : rows) {
      expectArithmetic<HLAfloat64Time, HLAfloat64Interval>(row.left, row.right, row.sum, row.difference);
   }
   // Infinity steps too: up to what is not a number, down to the greatest finite time.
   HLAfloat64Time time(infinite);
   time += HLAfloat64Interval(1.0);
   EXPECT_EQ(bytesOf(time.encode()), (Bytes{0x7F, 0xF0, 0, 0, 0, 0, 0, 1}));
   time = HLAfloat64Time(infinite);
   time -= HLAfloat64Interval(1.0);
   EXPECT_TRUE(time.isFinal());
}

} // namespace
