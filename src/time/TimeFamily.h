// The members of a standard time implementation: of its time, its interval and its factory. Both
// implementations are this one text; what makes each what it is stands in its axis, which has
//
//   initial, final, zero, epsilon   the distinguished ones
//   sum, difference                 plain arithmetic
//   later, earlier                  a time to which an interval was added, from which one was subtracted
#pragma once

#include "src/time/TimeNumber.h"

#include <memory>
#include <string>

namespace rti1516e::time {

// A new time or interval made from its encoding.
template <class Base, class Class, class... Encoding>
std::auto_ptr<Base> decoded(Encoding&&... encoding)
{
   std::auto_ptr<Base> value(new Class);
   value->decode(encoding...);
   return value;
}

} // namespace rti1516e::time

// What times and intervals have in common. The value's cell is owned from its allocation on, so that a
// constructor given a value of another implementation leaks nothing.
#define RTI_DEFINE_TIME_NUMBER(Class, Base, get, set, Number)                                                \
   Class::Class() : _value(new Number()) {}                                                                  \
   Class::Class(Number value) : _value(new Number(value)) {}                                                 \
   Class::Class(Class const& value) : Base(value), _value(new Number(*value._value)) {}                      \
   Class::Class(Base const& value) : Class() { *_value = time::numberIn<Number, Class>(value); }             \
   Class::~Class() = default;                                                                                \
   Base& Class::operator=(Base const& value)                                                                 \
   {                                                                                                         \
      *_value = time::numberIn<Number, Class>(value);                                                        \
      return *this;                                                                                          \
   }                                                                                                         \
   bool Class::operator>(Base const& value) const { return *_value > time::numberIn<Number, Class>(value); } \
   bool Class::operator<(Base const& value) const { return *_value < time::numberIn<Number, Class>(value); } \
   bool Class::operator==(Base const& value) const                                                           \
   {                                                                                                         \
      return *_value == time::numberIn<Number, Class>(value);                                                \
   }                                                                                                         \
   bool Class::operator>=(Base const& value) const                                                           \
   {                                                                                                         \
      return *_value >= time::numberIn<Number, Class>(value);                                                \
   }                                                                                                         \
   bool Class::operator<=(Base const& value) const                                                           \
   {                                                                                                         \
      return *_value <= time::numberIn<Number, Class>(value);                                                \
   }                                                                                                         \
   size_t Class::encode(void* buffer, size_t bufferSize) const                                               \
   {                                                                                                         \
      return time::encode(*_value, buffer, bufferSize);                                                      \
   }                                                                                                         \
   VariableLengthData Class::encode() const { return time::encode(*_value); }                                \
   size_t Class::encodedLength() const { return time::encodedSize; }                                         \
   void Class::decode(void* buffer, size_t bufferSize)                                                       \
   {                                                                                                         \
      *_value = time::decode<Number>(buffer, bufferSize);                                                    \
   }                                                                                                         \
   void Class::decode(VariableLengthData const& encodedValue)                                                \
   {                                                                                                         \
      *_value = time::decode<Number>(encodedValue.data(), encodedValue.size());                              \
   }                                                                                                         \
   std::wstring Class::toString() const { return time::textOf(L"" #Class, *_value); }                        \
   Class& Class::operator=(Class const& value)                                                               \
   {                                                                                                         \
      *_value = *value._value;                                                                               \
      return *this;                                                                                          \
   }                                                                                                         \
   Number Class::get() const { return *_value; }                                                             \
   void Class::set(Number value) { *_value = value; }                                                        \
   Class::operator Number() const { return *_value; }

// A distinguished value: how it is set, and how it is asked for.
#define RTI_DEFINE_TIME_CONSTANT(Class, set, is, constant) \
   void Class::set() { *_value = constant; }               \
   bool Class::is() const { return *_value == constant; }

// Intervals are added to times and to other intervals.
#define RTI_DEFINE_TIME_ARITHMETIC(Class, Base, Interval, Number, plus, minus) \
   Base& Class::operator+=(LogicalTimeInterval const& addend)                  \
   {                                                                           \
      *_value = plus(*_value, time::numberIn<Number, Interval>(addend));       \
      return *this;                                                            \
   }                                                                           \
   Base& Class::operator-=(LogicalTimeInterval const& subtrahend)              \
   {                                                                           \
      *_value = minus(*_value, time::numberIn<Number, Interval>(subtrahend));  \
      return *this;                                                            \
   }

#define RTI_DEFINE_TIME_FACTORY(Factory, Time, Interval, Number, Axis)                                    \
   Factory::Factory() = default;                                                                          \
   Factory::Factory(Factory const&) = default;                                                            \
   Factory::~Factory() = default;                                                                         \
   std::auto_ptr<LogicalTime> Factory::makeInitial()                                                      \
   {                                                                                                      \
      return std::auto_ptr<LogicalTime>(new Time(Axis::initial));                                         \
   }                                                                                                      \
   std::auto_ptr<LogicalTime> Factory::makeFinal()                                                        \
   {                                                                                                      \
      std::auto_ptr<LogicalTime> final(new Time);                                                         \
      final->setFinal();                                                                                  \
      return final;                                                                                       \
   }                                                                                                      \
   std::auto_ptr<LogicalTimeInterval> Factory::makeZero()                                                 \
   {                                                                                                      \
      return std::auto_ptr<LogicalTimeInterval>(new Interval(Axis::zero));                                \
   }                                                                                                      \
   std::auto_ptr<LogicalTimeInterval> Factory::makeEpsilon()                                              \
   {                                                                                                      \
      return std::auto_ptr<LogicalTimeInterval>(new Interval(Axis::epsilon));                             \
   }                                                                                                      \
   std::auto_ptr<LogicalTime> Factory::decodeLogicalTime(void* buffer, size_t bufferSize)                 \
   {                                                                                                      \
      return time::decoded<LogicalTime, Time>(buffer, bufferSize);                                        \
   }                                                                                                      \
   std::auto_ptr<LogicalTime> Factory::decodeLogicalTime(VariableLengthData const& encodedLogicalTime)    \
   {                                                                                                      \
      return time::decoded<LogicalTime, Time>(encodedLogicalTime);                                        \
   }                                                                                                      \
   std::auto_ptr<LogicalTimeInterval> Factory::decodeLogicalTimeInterval(void* buffer, size_t bufferSize) \
   {                                                                                                      \
      return time::decoded<LogicalTimeInterval, Interval>(buffer, bufferSize);                            \
   }                                                                                                      \
   std::auto_ptr<LogicalTimeInterval> Factory::decodeLogicalTimeInterval(                                 \
      VariableLengthData const& encodedLogicalTimeInterval)                                               \
   {                                                                                                      \
      return time::decoded<LogicalTimeInterval, Interval>(encodedLogicalTimeInterval);                    \
   }                                                                                                      \
   std::wstring Factory::getName() const { return L"" #Time; }                                            \
   std::auto_ptr<Time> Factory::makeLogicalTime(Number value)                                             \
   {                                                                                                      \
      return std::auto_ptr<Time>(new Time(value));                                                        \
   }                                                                                                      \
   std::auto_ptr<Interval> Factory::makeLogicalTimeInterval(Number value)                                 \
   {                                                                                                      \
      return std::auto_ptr<Interval>(new Interval(value));                                                \
   }

// The whole implementation. It does not use the variable that holds its name, which is for federates: a
// library in the place of libfedtime1516e is loaded before, and its static objects may make times before
// there are any here.
#define RTI_DEFINE_TIME_FAMILY(Time, Interval, Factory, Number, Axis)                                       \
   std::wstring const Time##Name(L"" #Time);                                                                \
   RTI_DEFINE_TIME_NUMBER(Time, LogicalTime, getTime, setTime, Number)                                      \
   RTI_DEFINE_TIME_CONSTANT(Time, setInitial, isInitial, Axis::initial)                                     \
   RTI_DEFINE_TIME_CONSTANT(Time, setFinal, isFinal, Axis::final)                                           \
   RTI_DEFINE_TIME_ARITHMETIC(Time, LogicalTime, Interval, Number, Axis::later, Axis::earlier)              \
   std::wstring Time::implementationName() const { return L"" #Time; }                                      \
   RTI_DEFINE_TIME_NUMBER(Interval, LogicalTimeInterval, getInterval, setInterval, Number)                  \
   RTI_DEFINE_TIME_CONSTANT(Interval, setZero, isZero, Axis::zero)                                          \
   RTI_DEFINE_TIME_CONSTANT(Interval, setEpsilon, isEpsilon, Axis::epsilon)                                 \
   RTI_DEFINE_TIME_ARITHMETIC(Interval, LogicalTimeInterval, Interval, Number, Axis::sum, Axis::difference) \
   void Interval::setToDifference(LogicalTime const& minuend, LogicalTime const& subtrahend)                \
   {                                                                                                        \
      *_value =                                                                                             \
         Axis::difference(time::numberIn<Number, Time>(minuend), time::numberIn<Number, Time>(subtrahend)); \
   }                                                                                                        \
   std::wstring Interval::implementationName() const { return L"" #Time; }                                  \
   RTI_DEFINE_TIME_FACTORY(Factory, Time, Interval, Number, Axis)
