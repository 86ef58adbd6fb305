// The order of the virtual functions of the elements must not change.
#include "tests/values/Slots.h"

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <gtest/gtest.h>
#include <string>

#if defined(RTI1516E_SLOT_ORDER_IS_KNOWN)

namespace {

using namespace rti1516e;

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
