// The order of the virtual functions in the standard times and the elements, which federates are built
// against.
#if defined(__x86_64__)
#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>
#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <vector>

namespace {

using namespace rti1516e;

// The virtual functions of a class in the order in which they are expected.
template <class Class>
class Slots
{
public:
   // The type of the function tells overloads apart.
   template <class Result, class... Arguments>
   Slots& add(Result (Class::*function)(Arguments...))
   {
      return addPointer(function);
   }

   template <class Result, class... Arguments>
   Slots& addConst(Result (Class::*function)(Arguments...) const)
   {
      return addPointer(function);
   }

   // The destructor has the first two slots.
   void expectInOrder() const
   {
      std::vector<std::size_t> expected(_slots.size());
      std::iota(expected.begin(), expected.end(), 2U);
      EXPECT_EQ(_slots, expected);
   }

private:
   // A pointer to a virtual function holds one more than the offset of the function's slot.
   template <class Function>
   Slots& addPointer(Function function)
   {
      std::size_t offsetAndOne;
      std::memcpy(&offsetAndOne, &function, sizeof offsetAndOne);
      _slots.push_back((offsetAndOne - 1) / sizeof(void*));
      return *this;
   }

   std::vector<std::size_t> _slots;
};

// The functions that times and intervals have in common.
template <class Base, class Class>
void addAssignmentAndOrder(Slots<Class>& slots)
{
   slots.template add<Base&, Base const&>(&Class::operator=)
      .template add<Base&, LogicalTimeInterval const&>(&Class::operator+=)
      .template add<Base&, LogicalTimeInterval const&>(&Class::operator-=)
      .template addConst<bool, Base const&>(&Class::operator>)
      .template addConst<bool, Base const&>(&Class::operator<)
      .template addConst<bool, Base const&>(&Class::operator==)
      .template addConst<bool, Base const&>(&Class::operator>=)
      .template addConst<bool, Base const&>(&Class::operator<=);
}

template <class Class>
void addCodingAndText(Slots<Class>& slots)
{
   slots.template addConst<size_t, void*, size_t>(&Class::encode)
      .template addConst<VariableLengthData>(&Class::encode)
      .addConst(&Class::encodedLength)
      .template add<void, void*, size_t>(&Class::decode)
      .template add<void, VariableLengthData const&>(&Class::decode)
      .addConst(&Class::toString)
      .addConst(&Class::implementationName)
      .template add<Class&, Class const&>(&Class::operator=);
}

template <class Time, class Interval, class Factory>
void expectSlotsInOrder()
{
   Slots<Time> time;
   time.add(&Time::setInitial).addConst(&Time::isInitial).add(&Time::setFinal).addConst(&Time::isFinal);
   addAssignmentAndOrder<LogicalTime>(time);
   addCodingAndText(time);
   time.addConst(&Time::getTime).add(&Time::setTime).expectInOrder();

   Slots<Interval> interval;
   interval.add(&Interval::setZero).addConst(&Interval::isZero);
   interval.add(&Interval::setEpsilon).addConst(&Interval::isEpsilon);
   addAssignmentAndOrder<LogicalTimeInterval>(interval);
   interval.add(&Interval::setToDifference);
   addCodingAndText(interval);
   interval.addConst(&Interval::getInterval).add(&Interval::setInterval).expectInOrder();

   using MadeTime = std::auto_ptr<LogicalTime>;
   using MadeInterval = std::auto_ptr<LogicalTimeInterval>;
   Slots<Factory>()
      .add(&Factory::makeInitial)
      .add(&Factory::makeFinal)
      .add(&Factory::makeZero)
      .add(&Factory::makeEpsilon)
      .template add<MadeTime, void*, size_t>(&Factory::decodeLogicalTime)
      .template add<MadeTime, VariableLengthData const&>(&Factory::decodeLogicalTime)
      .template add<MadeInterval, void*, size_t>(&Factory::decodeLogicalTimeInterval)
      .template add<MadeInterval, VariableLengthData const&>(&Factory::decodeLogicalTimeInterval)
      .addConst(&Factory::getName)
      .add(&Factory::makeLogicalTime)
      .add(&Factory::makeLogicalTimeInterval)
      .expectInOrder();
}

TEST(SlotOrder, OfTheStandardTimes)
{
   expectSlotsInOrder<HLAinteger64Time, HLAinteger64Interval, HLAinteger64TimeFactory>();
   expectSlotsInOrder<HLAfloat64Time, HLAfloat64Interval, HLAfloat64TimeFactory>();
}

template <class Class>
Slots<Class> elementSlots()
{
   Slots<Class> slots;
   slots.addConst(&Class::clone)
      .template addConst<void, VariableLengthData&>(&Class::encode)
      .template addConst<VariableLengthData>(&Class::encode)
      .addConst(&Class::encodeInto)
      .add(&Class::decode)
      .add(&Class::decodeFrom)
      .addConst(&Class::getEncodedLength)
      .addConst(&Class::getOctetBoundary)
      .addConst(static_cast<bool (Class::*)(DataElement const&) const>(&DataElement::isSameTypeAs))
      .addConst(static_cast<Integer64 (Class::*)() const>(&Class::hash));
   return slots;
}

template <class Class>
Slots<Class> arraySlots()
{
   Slots<Class> slots = elementSlots<Class>();
   slots.addConst(&Class::size)
      .add(&Class::set)
      .add(&Class::setElementPointer)
      .addConst(&Class::get)
      .addConst(&Class::hasPrototypeSameTypeAs);
   return slots;
}

TEST(SlotOrder, OfTheElements)
{
   elementSlots<DataElement>().expectInOrder();
#define EXPECT_SLOTS(Name, Value) \
   elementSlots<Name>().add(&Name::setDataPointer).add(&Name::set).addConst(&Name::get).expectInOrder();
   RTI_FOR_EACH_BASIC_ELEMENT(EXPECT_SLOTS)
#undef EXPECT_SLOTS
   arraySlots<HLAfixedArray>().expectInOrder();
   arraySlots<HLAvariableArray>()
      .add(&HLAvariableArray::addElement)
      .add(&HLAvariableArray::addElementPointer)
      .expectInOrder();
   elementSlots<HLAfixedRecord>()
      .add(&HLAfixedRecord::appendElement)
      .add(&HLAfixedRecord::appendElementPointer)
      .addConst(&HLAfixedRecord::size)
      .addConst(&HLAfixedRecord::get)
      .addConst(&HLAfixedRecord::hasElementSameTypeAs)
      .add(&HLAfixedRecord::set)
      .add(&HLAfixedRecord::setElementPointer)
      .expectInOrder();
   elementSlots<HLAvariantRecord>()
      .add(&HLAvariantRecord::addVariant)
      .add(&HLAvariantRecord::addVariantPointer)
      .add(&HLAvariantRecord::setDiscriminant)
      .add(&HLAvariantRecord::setVariant)
      .add(&HLAvariantRecord::setVariantPointer)
      .addConst(&HLAvariantRecord::getDiscriminant)
      .addConst(&HLAvariantRecord::getVariant)
      .addConst(&HLAvariantRecord::hasMatchingDiscriminantTypeAs)
      .addConst<bool, DataElement const&, DataElement const&>(&HLAvariantRecord::isSameTypeAs)
      .expectInOrder();
   elementSlots<HLAopaqueData>()
      .addConst(&HLAopaqueData::bufferLength)
      .addConst(&HLAopaqueData::dataLength)
      .addConst(&HLAopaqueData::get)
      .add(&HLAopaqueData::set)
      .add(&HLAopaqueData::setDataPointer)
      .expectInOrder();
}

} // namespace

#endif
