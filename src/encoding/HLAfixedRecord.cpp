#include "src/encoding/ElementList.h"
#include "src/encoding/ElementOperations.h"
#include "src/encoding/Failure.h"

#include <RTI/encoding/HLAfixedRecord.h>

#include <utility>

namespace rti1516e {

HLAfixedRecord::HLAfixedRecord() : _body(new ElementList(ElementList::For::record)) {}

HLAfixedRecord::HLAfixedRecord(HLAfixedRecord const& other)
   : DataElement(other), _body(new ElementList(*other._body))
{}

HLAfixedRecord::~HLAfixedRecord() { delete _body; }

HLAfixedRecord& HLAfixedRecord::operator=(HLAfixedRecord const& other)
{
   delete std::exchange(_body, new ElementList(*other._body));
   return *this;
}

RTI_DEFINE_DATA_ELEMENT_OPERATIONS(HLAfixedRecord)

void HLAfixedRecord::appendElement(DataElement const& element) { _body->append(element); }

void HLAfixedRecord::appendElementPointer(DataElement* element) { _body->append(element); }

size_t HLAfixedRecord::size() const { return _body->size(); }

DataElement const& HLAfixedRecord::get(size_t index) const { return _body->at(index); }

DataElement const& HLAfixedRecord::operator[](size_t index) const { return _body->at(index); }

bool HLAfixedRecord::hasElementSameTypeAs(size_t index, DataElement const& element) const
{
   return _body->at(index).isSameTypeAs(element);
}

void HLAfixedRecord::set(size_t index, DataElement const& element)
{
   if (!hasElementSameTypeAs(index, element)) {
      failure::raise(failure::typeMismatch);
   }
   _body->replace(index, element);
}

void HLAfixedRecord::setElementPointer(size_t index, DataElement* element)
{
   if (!hasElementSameTypeAs(index, failure::required(element, failure::noElement))) {
      failure::raise(failure::typeMismatch);
   }
   _body->replace(index, element);
}

} // namespace rti1516e
