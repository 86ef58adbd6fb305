#include "src/encoding/ElementList.h"
#include "src/encoding/ElementOperations.h"
#include "src/encoding/Replaceable.h"

#include <RTI/encoding/HLAfixedArray.h>

#include <memory>
#include <utility>

namespace rti1516e {

HLAfixedArray::HLAfixedArray(DataElement const& prototype, size_t length) : _body(nullptr)
{
   auto body = std::make_unique<ElementList>(ElementList::For::array);
   body->appendClones(prototype, length);
   _body = body.release();
}

HLAfixedArray::HLAfixedArray(HLAfixedArray const& other)
   : DataElement(other), _body(new ElementList(*other._body))
{}

HLAfixedArray::~HLAfixedArray() { delete _body; }

HLAfixedArray& HLAfixedArray::operator=(HLAfixedArray const& other)
{
   delete std::exchange(_body, new ElementList(*other._body));
   return *this;
}

RTI_DEFINE_DATA_ELEMENT_OPERATIONS(HLAfixedArray)

size_t HLAfixedArray::size() const { return _body->size(); }

void HLAfixedArray::set(size_t index, DataElement const& element)
{
   requireReplaceable(*this, index, element);
   _body->replace(index, element);
}

void HLAfixedArray::setElementPointer(size_t index, DataElement* element)
{
   requireReplaceable(*this, index, failure::required(element, failure::noElement));
   _body->replace(index, element);
}

DataElement const& HLAfixedArray::get(size_t index) const { return _body->at(index); }

DataElement const& HLAfixedArray::operator[](size_t index) const { return _body->at(index); }

bool HLAfixedArray::hasPrototypeSameTypeAs(DataElement const& other) const
{
   return !_body->empty() && _body->at(0).isSameTypeAs(other);
}

} // namespace rti1516e
