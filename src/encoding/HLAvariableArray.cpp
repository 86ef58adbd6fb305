#include "src/encoding/CountedList.h"
#include "src/encoding/ElementOperations.h"
#include "src/encoding/Replaceable.h"

#include <RTI/encoding/HLAvariableArray.h>

namespace rti1516e {

HLAvariableArray::HLAvariableArray(DataElement const& prototype) : _body(new CountedList(prototype)) {}

HLAvariableArray::HLAvariableArray(HLAvariableArray const& other)
   : DataElement(other), _body(new CountedList(*other._body))
{}

HLAvariableArray::~HLAvariableArray() { delete _body; }

RTI_DEFINE_DATA_ELEMENT_OPERATIONS(HLAvariableArray)

size_t HLAvariableArray::size() const { return _body->elements().size(); }

void HLAvariableArray::set(size_t index, DataElement const& element)
{
   requireReplaceable(*this, index, element);
   _body->elements().replace(index, element);
}

void HLAvariableArray::setElementPointer(size_t index, DataElement* element)
{
   requireReplaceable(*this, index, failure::required(element, failure::noElement));
   _body->elements().replace(index, element);
}

DataElement const& HLAvariableArray::get(size_t index) const { return _body->elements().at(index); }

DataElement const& HLAvariableArray::operator[](size_t index) const { return _body->elements().at(index); }

bool HLAvariableArray::hasPrototypeSameTypeAs(DataElement const& other) const
{
   return _body->prototype().isSameTypeAs(other);
}

void HLAvariableArray::addElement(DataElement const& element) { _body->elements().append(element); }

void HLAvariableArray::addElementPointer(DataElement* element) { _body->elements().append(element); }

} // namespace rti1516e
