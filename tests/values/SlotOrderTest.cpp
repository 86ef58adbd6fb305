// The order of the virtual functions of the standard times must not change.
#include "tests/values/Slots.h"

#include <RTI/time/HLAfloat64TimeFactory.h>
#include <RTI/time/HLAinteger64TimeFactory.h>

#include <gtest/gtest.h>
#include <memory>

#if defined(RTI1516E_SLOT_ORDER_IS_KNOWN)

namespace {

using namespace rti1516e;

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

} // namespace

#endif
