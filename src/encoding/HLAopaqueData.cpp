#include "src/encoding/ElementOperations.h"
#include "src/encoding/OpaqueBytes.h"

#include <RTI/encoding/HLAopaqueData.h>

namespace rti1516e {

HLAopaqueData::HLAopaqueData() : _body(new OpaqueBytes) {}

HLAopaqueData::HLAopaqueData(Octet const* data, size_t length) : _body(new OpaqueBytes(data, length)) {}

HLAopaqueData::HLAopaqueData(Octet** data, size_t bufferLength, size_t dataLength)
   : _body(new OpaqueBytes(data, bufferLength, dataLength))
{}

HLAopaqueData::HLAopaqueData(HLAopaqueData const& other)
   : DataElement(other), _body(new OpaqueBytes(*other._body))
{}

HLAopaqueData::~HLAopaqueData() { delete _body; }

HLAopaqueData& HLAopaqueData::operator=(HLAopaqueData const& other)
{
   *_body = *other._body;
   return *this;
}

RTI_DEFINE_DATA_ELEMENT_OPERATIONS(HLAopaqueData)

size_t HLAopaqueData::bufferLength() const { return _body->bufferLength(); }

size_t HLAopaqueData::dataLength() const { return _body->dataLength(); }

Octet const* HLAopaqueData::get() const { return _body->data(); }

HLAopaqueData::operator Octet const*() const { return _body->data(); }

void HLAopaqueData::set(Octet const* data, size_t length) { *_body = OpaqueBytes(data, length); }

void HLAopaqueData::setDataPointer(Octet** data, size_t bufferLength, size_t dataLength)
{
   *_body = OpaqueBytes(data, bufferLength, dataLength);
}

} // namespace rti1516e
