#ifndef RTI_HLAvariableArray_h
#define RTI_HLAvariableArray_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

class CountedList;

RTI_AUTO_PTR_BEGIN

// Any number of elements of one type, encoded as their number (32-bit big-endian) and one after another, each
// aligned to its own octet boundary. The array's octet boundary is the largest of 4 and its elements', or of
// 4 and the prototype's while it is empty.
//
// An element is owned by the array, which has cloned it, or lent to it by pointer: then the caller keeps it
// alive, and the array reads it, decodes into it and never deletes it.
//
// Decoding resizes the array to the number that it finds: it decodes into the elements that there are, adds
// clones of the prototype, and takes away the last ones. Three things to know of it:
// - The count is looked for at the next multiple of 4 from the index on, although the array is encoded on its
//   own octet boundary: pass an index that is a multiple of getOctetBoundary().
// - A number larger than the number of octets left fails before anything is changed, and so does one that
//   would add more clones than there are octets for at the least length of the prototype (0 for a class of
//   the federate's own): EncoderException "HLAvariableArray cannot decode (indata too short)". Elements
//   without octets (empty records) are decoded only up to the number of octets left.
// - A failure in an element leaves those before it changed and the array resized.
class RTI_EXPORT HLAvariableArray : public DataElement
{
public:
   // Empty; keeps a clone of the prototype. Given another HLAvariableArray, this is a copy of it: pass it as
   // DataElement const& for an array of arrays.
   explicit HLAvariableArray(DataElement const& prototype);

   // Owns clones of the other's elements, lent ones included.
   HLAvariableArray(HLAvariableArray const& other);
   HLAvariableArray& operator=(HLAvariableArray const&) = delete;

   ~HLAvariableArray() override;

   RTI_DATA_ELEMENT_OPERATIONS

   virtual size_t size() const;

   // Puts a clone of the given element in the place of the one at the index. EncoderException "Array index
   // out of bounds" if the index is not below size(), "Element doesn't match prototype" if the element is not
   // of the prototype's type.
   virtual void set(size_t index, DataElement const& element);

   // The same, but lends the element itself.
   virtual void setElementPointer(size_t index, DataElement* element);

   // Valid until the element is replaced or taken away or the array destroyed. An index that is not below
   // size() is outside the contract of get; operator[] answers it with EncoderException "Array index out of
   // bounds".
   virtual DataElement const& get(size_t index) const;
   DataElement const& operator[](size_t index) const;

   // Whether an element is of the prototype's type.
   virtual bool hasPrototypeSameTypeAs(DataElement const& other) const;

   // Appends a clone of the given element, or the element itself, lent. Neither is compared with the
   // prototype.
   virtual void addElement(DataElement const& element);
   virtual void addElementPointer(DataElement* element);

private:
   friend struct ElementAccess;

   CountedList* _body;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

#endif
