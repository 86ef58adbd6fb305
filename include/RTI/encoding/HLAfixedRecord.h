#ifndef RTI_HLAfixedRecord_h
#define RTI_HLAfixedRecord_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

class ElementList;

RTI_AUTO_PTR_BEGIN

// Fields of any types, encoded one after another, each aligned to its own octet boundary. The record's octet
// boundary is the largest of its fields', 1 without any.
//
// A field is owned by the record, which has cloned it, or lent to it by pointer: then the caller keeps it
// alive, and the record reads it, decodes into it and never deletes it.
//
// An index that is not below size() is outside the contract. A decode that fails leaves the fields that were
// decoded before changed.
class RTI_EXPORT HLAfixedRecord : public DataElement
{
public:
   // Without fields.
   HLAfixedRecord();

   // Owns clones of the other's fields, lent ones included.
   HLAfixedRecord(HLAfixedRecord const& other);

   ~HLAfixedRecord() override;

   RTI_DATA_ELEMENT_OPERATIONS

   // Appends a clone of the given element as a field, or the element itself, lent.
   virtual void appendElement(DataElement const& element);
   virtual void appendElementPointer(DataElement* element);

   virtual size_t size() const;

   // Valid until the field is replaced or the record destroyed.
   virtual DataElement const& get(size_t index) const;
   DataElement const& operator[](size_t index) const;

   // Whether an element is of the type of the field at the index.
   virtual bool hasElementSameTypeAs(size_t index, DataElement const& element) const;

   // Puts a clone of the given element in the place of the field at the index. EncoderException "Non-matching
   // type" if it is of another type.
   virtual void set(size_t index, DataElement const& element);

   // The same, but lends the element itself.
   virtual void setElementPointer(size_t index, DataElement* element);

private:
   friend struct ElementAccess;
   HLAfixedRecord& operator=(HLAfixedRecord const& other);

   ElementList* _body;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

#endif
