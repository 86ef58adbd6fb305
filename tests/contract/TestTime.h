// A logical time implementation of the tests' own, "TestTime", and the time library that gives it: this
// process defines LogicalTimeFactoryFactory::makeLogicalTimeFactory in front of the default time library's.
#pragma once

#include "Bytes.h"

#include <RTI/Exception.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <new>
#include <string>

namespace contract {

// What an operation of the implementation does before its work, such as to throw.
class Faults
{
public:
   static void set(std::string const& operation, std::function<void()> fault) { all()[operation] = fault; }
   static void clear() { all().clear(); }
   static void at(std::string const& operation)
   {
      auto const fault = all().find(operation);
      if (fault != all().end()) {
         fault->second();
      }
   }

private:
   static std::map<std::string, std::function<void()>>& all()
   {
      static std::map<std::string, std::function<void()>> faults;
      return faults;
   }
};

// Counts the objects of a class that are alive.
template <class Counted>
class Living
{
public:
   Living() { ++count; }
   Living(Living const&) { ++count; }
   Living& operator=(Living const&) = default;
   ~Living() { --count; }

   static inline std::atomic<int> count = 0;
};

// What times and intervals have in common: a number, encoded as a mark and the number in what is left of an
// encoded length. Only exactly that many bytes are decoded.
template <class Base, unsigned int length>
class TestValue : public Base, public Living<TestValue<Base, length>>
{
public:
   explicit TestValue(std::uint64_t number) : _number(number) {}
   ~TestValue() override { Faults::at("destroy"); }

   static Bytes encoded(std::uint64_t number)
   {
      Bytes bytes("7A");
      for (unsigned int i = length - 1; i > 0; --i) {
         bytes.byte(i > 8 ? 0U : static_cast<unsigned int>(number >> 8 * (i - 1) & 0xFFU));
      }
      return bytes;
   }

   Base& operator=(Base const& other) override
   {
      _number = numberOf(other);
      return *this;
   }
   bool operator>(Base const& other) const override { return _number > numberOf(other); }
   bool operator<(Base const& other) const override { return _number < numberOf(other); }
   bool operator==(Base const& other) const override { return _number == numberOf(other); }
   bool operator>=(Base const& other) const override { return _number >= numberOf(other); }
   bool operator<=(Base const& other) const override { return _number <= numberOf(other); }

   size_t encode(void* buffer, size_t bufferSize) const override
   {
      if (bufferSize < length) {
         throw rti1516e::CouldNotEncode(L"too small");
      }
      std::memcpy(buffer, encoded(_number).data(), length);
      return length;
   }
   rti1516e::VariableLengthData encode() const override
   {
      Faults::at("encode");
      rti1516e::VariableLengthData bytes(encoded(_number).data(), length);
      if (bytes.size() != length) {
         throw std::bad_alloc();
      }
      return bytes;
   }
   size_t encodedLength() const override
   {
      Faults::at("encodedLength");
      return length;
   }
   void decode(void* buffer, size_t bufferSize) override
   {
      Faults::at("decode");
      auto const* const bytes = static_cast<unsigned char const*>(buffer);
      if (bufferSize != length || bytes[0] != 0x7A) {
         throw rti1516e::CouldNotDecode(L"not the bytes of a TestTime");
      }
      _number = 0;
      for (unsigned int i = 1; i < length; ++i) {
         _number = _number << 8 | bytes[i];
      }
   }
   void decode(rti1516e::VariableLengthData const& encodedValue) override
   {
      Bytes copy(encodedValue.data(), encodedValue.size());
      decode(const_cast<unsigned char*>(copy.data()), copy.size());
   }
   std::wstring toString() const override { return L"Test<" + std::to_wstring(_number) + L">"; }
   std::wstring implementationName() const override { return L"TestTime"; }

protected:
   std::uint64_t& number() { return _number; }
   std::uint64_t number() const { return _number; }
   static std::uint64_t numberOf(Base const& other) { return dynamic_cast<TestValue const&>(other)._number; }

private:
   std::uint64_t _number;
};

class TestTime;

class TestInterval : public TestValue<rti1516e::LogicalTimeInterval, 3>
{
public:
   using TestValue::operator=;
   explicit TestInterval(std::uint64_t number) : TestValue(number) {}

   std::uint64_t get() const { return number(); }
   void setZero() override { number() = 0; }
   bool isZero() const override { return number() == 0; }
   void setEpsilon() override { number() = 1; }
   bool isEpsilon() const override { return number() == 1; }
   rti1516e::LogicalTimeInterval& operator+=(rti1516e::LogicalTimeInterval const& addend) override
   {
      number() += numberOf(addend);
      return *this;
   }
   rti1516e::LogicalTimeInterval& operator-=(rti1516e::LogicalTimeInterval const& subtrahend) override
   {
      number() -= numberOf(subtrahend);
      return *this;
   }
   void setToDifference(rti1516e::LogicalTime const& minuend,
                        rti1516e::LogicalTime const& subtrahend) override;
};

class TestTime : public TestValue<rti1516e::LogicalTime, 11>
{
public:
   using TestValue::operator=;
   explicit TestTime(std::uint64_t number) : TestValue(number) {}

   std::uint64_t get() const { return number(); }
   void setInitial() override { number() = 0; }
   bool isInitial() const override { return number() == 0; }
   void setFinal() override { number() = UINT64_MAX; }
   bool isFinal() const override { return number() == UINT64_MAX; }
   rti1516e::LogicalTime& operator+=(rti1516e::LogicalTimeInterval const& addend) override
   {
      number() += dynamic_cast<TestInterval const&>(addend).get();
      return *this;
   }
   rti1516e::LogicalTime& operator-=(rti1516e::LogicalTimeInterval const& subtrahend) override
   {
      number() -= dynamic_cast<TestInterval const&>(subtrahend).get();
      return *this;
   }
};

inline void TestInterval::setToDifference(rti1516e::LogicalTime const& minuend,
                                          rti1516e::LogicalTime const& subtrahend)
{
   number() = dynamic_cast<TestTime const&>(minuend).get() - dynamic_cast<TestTime const&>(subtrahend).get();
}

class TestTimeFactory : public rti1516e::LogicalTimeFactory, public Living<TestTimeFactory>
{
public:
   using Time = std::auto_ptr<rti1516e::LogicalTime>;
   using Interval = std::auto_ptr<rti1516e::LogicalTimeInterval>;

   // Makes the next time that is decoded, or made as the final one, an empty pointer.
   static inline std::atomic<bool> decodesNothing = false;
   static inline std::atomic<bool> hasNoFinal = false;

   Time makeInitial() override { return Time(new TestTime(0)); }
   Time makeFinal() override
   {
      Faults::at("makeFinal");
      return hasNoFinal ? Time() : Time(new TestTime(UINT64_MAX));
   }
   Interval makeZero() override { return Interval(new TestInterval(0)); }
   Interval makeEpsilon() override { return Interval(new TestInterval(1)); }
   Time decodeLogicalTime(void* buffer, size_t bufferSize) override
   {
      return decodesNothing ? Time() : decoded<Time, TestTime>(buffer, bufferSize);
   }
   Time decodeLogicalTime(rti1516e::VariableLengthData const& bytes) override
   {
      Bytes copy(bytes.data(), bytes.size());
      return decodeLogicalTime(const_cast<unsigned char*>(copy.data()), copy.size());
   }
   Interval decodeLogicalTimeInterval(void* buffer, size_t bufferSize) override
   {
      return decoded<Interval, TestInterval>(buffer, bufferSize);
   }
   Interval decodeLogicalTimeInterval(rti1516e::VariableLengthData const& bytes) override
   {
      Bytes copy(bytes.data(), bytes.size());
      return decodeLogicalTimeInterval(const_cast<unsigned char*>(copy.data()), copy.size());
   }
   std::wstring getName() const override { return L"TestTime"; }

private:
   template <class Pointer, class Value>
   static Pointer decoded(void* buffer, size_t bufferSize)
   {
      Pointer value(new Value(0));
      value->decode(buffer, bufferSize);
      return value;
   }
};

} // namespace contract
