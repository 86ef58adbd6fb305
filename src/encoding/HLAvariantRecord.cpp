#include "src/encoding/ElementOperations.h"
#include "src/encoding/Failure.h"
#include "src/encoding/Variant.h"

#include <RTI/encoding/HLAvariantRecord.h>

#include <utility>

namespace rti1516e {

namespace {

void requireReplaceable(Variant const& record, DataElement const& discriminant, DataElement const& value)
{
   Entry const* const present = record.alternative(discriminant);
   if (present != nullptr && !present->element().isSameTypeAs(value)) {
      failure::raise(failure::typeMismatch);
   }
}

} // namespace

HLAvariantRecord::HLAvariantRecord(DataElement const& discriminantPrototype)
   : _body(new Variant(discriminantPrototype))
{}

HLAvariantRecord::HLAvariantRecord(HLAvariantRecord const& other)
   : DataElement(other), _body(new Variant(*other._body))
{}

HLAvariantRecord::~HLAvariantRecord() { delete _body; }

HLAvariantRecord& HLAvariantRecord::operator=(HLAvariantRecord const& other)
{
   delete std::exchange(_body, new Variant(*other._body));
   return *this;
}

RTI_DEFINE_DATA_ELEMENT_OPERATIONS(HLAvariantRecord)

void HLAvariantRecord::addVariant(DataElement const& discriminant, DataElement const& valuePrototype)
{
   _body->setAlternative(discriminant, Entry::clone(valuePrototype));
}

void HLAvariantRecord::addVariantPointer(DataElement const& discriminant, DataElement* valuePrototype)
{
   _body->setAlternative(discriminant, Entry::lent(valuePrototype));
}

void HLAvariantRecord::setDiscriminant(DataElement const& discriminant)
{
   _body->setDiscriminant(discriminant);
}

void HLAvariantRecord::setVariant(DataElement const& discriminant, DataElement const& value)
{
   requireReplaceable(*_body, discriminant, value);
   addVariant(discriminant, value);
}

void HLAvariantRecord::setVariantPointer(DataElement const& discriminant, DataElement* value)
{
   requireReplaceable(*_body, discriminant, failure::required(value, failure::noElement));
   addVariantPointer(discriminant, value);
}

DataElement const& HLAvariantRecord::getDiscriminant() const { return _body->discriminant(); }

DataElement const& HLAvariantRecord::getVariant() const
{
   Entry const* const selected = _body->alternative(_body->discriminant());
   return failure::required(selected, failure::nothingSelected).element();
}

bool HLAvariantRecord::hasMatchingDiscriminantTypeAs(DataElement const& discriminant) const
{
   return _body->discriminant().isSameTypeAs(discriminant);
}

bool HLAvariantRecord::isSameTypeAs(DataElement const& discriminant, DataElement const& value) const
{
   Entry const* const selected = _body->alternative(discriminant);
   return selected != nullptr && selected->element().isSameTypeAs(value);
}

} // namespace rti1516e
