#ifndef RTI_HLAfixedArray_h
#define RTI_HLAfixedArray_h

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

// A fixed number of elements of one type, encoded one after another, each aligned to its own octet boundary.
// There is no count in the encoding. The array's octet boundary is the largest of its elements', 1 without
// any.
//
// An element is owned by the array, which has cloned it, or lent to it by pointer: then the caller keeps it
// alive, and the array reads it, decodes into it and never deletes it.
//
// An index that is not below size() fails with EncoderException "Array index out of bounds". A decode that
// fails leaves the elements that were decoded before changed.
class RTI_EXPORT HLAfixedArray : public DataElement
{
public:
   // Owns `length` clones of the prototype.
   HLAfixedArray(DataElement const& prototype, size_t length);

   // Owns clones of the other's elements, lent ones included.
   HLAfixedArray(HLAfixedArray const& other);

   ~HLAfixedArray() override;

   RTI_DATA_ELEMENT_OPERATIONS

   virtual size_t size() const;

   // Puts a clone of the given element in the place of the one at the index. EncoderException "Element
   // doesn't match prototype" if it is not of the first element's type.
   virtual void set(size_t index, DataElement const& element);

   // The same, but lends the element itself.
   virtual void setElementPointer(size_t index, DataElement* element);

   // Valid until the element is replaced or the array destroyed.
   virtual DataElement const& get(size_t index) const;
   DataElement const& operator[](size_t index) const;

   // Whether an element is of the first element's type. False if the array has no element.
   virtual bool hasPrototypeSameTypeAs(DataElement const& other) const;

private:
   friend struct ElementAccess;
   HLAfixedArray& operator=(HLAfixedArray const& other);

   ElementList* _body;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

#endif
