// A logical time implementation of the tests' own, "TestTime", and the time library that gives it: this
// process defines LogicalTimeFactoryFactory::makeLogicalTimeFactory in front of the default time library's.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/Exception.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <atomic>
#include <functional>
#include <string>

namespace contract {

// Done first in each of the implementation's operations, which it is told.
inline std::function<void(std::string const& operation)> inTime = [](auto const&) {};

// How many objects of a class are alive.
template <class Counted>
struct Living
{
   Living() { ++count; }
   Living(Living const&) { ++count; }
   Living& operator=(Living const&) = default;
   ~Living() { --count; }

   static inline std::atomic<int> count = 0;
};

// What times and intervals have in common: the numbers are those of a standard one, but encoded behind a
// mark. Only exactly that many bytes are decoded.
template <class Base, unsigned int mark>
class TestValue : public Base, public Living<TestValue<Base, mark>>
{
public:
   using Base::operator=;
   explicit TestValue(rti1516e::Integer64 number) : Base(number) {}
   ~TestValue() override { inTime("destroy"); }

   static Bytes encoded(std::uint64_t number) { return Bytes().byte(mark).int64(number); }

   rti1516e::VariableLengthData encode() const override
   {
      inTime("encode");
      auto const number = static_cast<rti1516e::Integer64>(*this);
      return rti1516e::VariableLengthData(encoded(static_cast<std::uint64_t>(number)).data(), length);
   }
   size_t encodedLength() const override
   {
      inTime("encodedLength");
      return length;
   }
   void decode(void* buffer, size_t bufferSize) override
   {
      inTime("decode");
      auto* const bytes = static_cast<unsigned char*>(buffer);
      if (bufferSize != length || bytes[0] != mark) {
         throw rti1516e::CouldNotDecode(L"not the bytes of a TestTime");
      }
      Base::decode(bytes + 1, length - 1);
   }
   std::wstring implementationName() const override { return L"TestTime"; }

private:
   static constexpr unsigned int length = 9;
};

using TestTime = TestValue<rti1516e::HLAinteger64Time, 0x7A>;
using TestInterval = TestValue<rti1516e::HLAinteger64Interval, 0x7B>;

struct TestTimeFactory : rti1516e::HLAinteger64TimeFactory, Living<TestTimeFactory>
{
   using Time = std::auto_ptr<rti1516e::LogicalTime>;
   using Interval = std::auto_ptr<rti1516e::LogicalTimeInterval>;

   // Makes the next time that is decoded, or made as the final one, an empty pointer.
   static inline std::atomic<bool> decodesNothing = false;
   static inline std::atomic<bool> hasNoFinal = false;
   // What the time library gives instead of a new one.
   static inline TestTimeFactory* toBeGiven = nullptr;

   Time makeFinal() override
   {
      inTime("makeFinal");
      return hasNoFinal ? Time() : Time(new TestTime(INT64_MAX));
   }
   Time decodeLogicalTime(void* buffer, size_t bufferSize) override
   {
      return decodesNothing ? Time() : decoded<Time, TestTime>(buffer, bufferSize);
   }
   Interval decodeLogicalTimeInterval(void* buffer, size_t bufferSize) override
   {
      return decoded<Interval, TestInterval>(buffer, bufferSize);
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
