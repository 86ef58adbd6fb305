#include "src/encoding/ElementOperations.h"

#include <RTI/encoding/DataElement.h>

#include <typeinfo>

namespace rti1516e {

DataElement::~DataElement() = default;

void DataElement::encode(VariableLengthData& buffer) const { buffer = encode(); }

VariableLengthData DataElement::encode() const
{
   std::vector<char> buffer;
   encodeInto(buffer);
   return dataOf(buffer);
}

void DataElement::decode(VariableLengthData const& encoded) { decodeFrom(Input(encoded).buffer(), 0); }

bool DataElement::isSameTypeAs(DataElement const& other) const { return typeid(*this) == typeid(other); }

Integer64 DataElement::hash() const { return 1; }

VariableLengthData dataOf(std::vector<char> const& octets)
{
   return VariableLengthData(octets.data(), checkedCount(octets.size()));
}

} // namespace rti1516e
