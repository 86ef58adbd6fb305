#ifndef RTI_HLAvariantRecord_h
#define RTI_HLAvariantRecord_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

class Variant;

RTI_AUTO_PTR_BEGIN

// A discriminant and the one of several alternatives that its value selects. An alternative stands under the
// hash() of a discriminant's value; values of equal hash select the same alternative. The alternative is
// encoded behind the discriminant, aligned to the largest octet boundary of all alternatives; the record's
// octet boundary is the larger of that and the discriminant's.
//
// A discriminant that selects nothing is no error: it is encoded with the padding that an alternative would
// need, and decoded without looking for that padding.
//
// An alternative is owned by the record, which has cloned it, or lent to it by pointer: then the caller keeps
// it alive, and the record reads it, decodes into it and never deletes it. A decode that fails may leave the
// discriminant, and parts of the alternative, changed.
class RTI_EXPORT HLAvariantRecord : public DataElement
{
public:
   // The discriminant is a clone of the prototype; no alternatives. Given another HLAvariantRecord, this is a
   // copy of it: pass it as DataElement const& for a variant record as the discriminant.
   explicit HLAvariantRecord(DataElement const& discriminantPrototype);

   // Owns clones of the other's discriminant and alternatives, lent ones included.
   HLAvariantRecord(HLAvariantRecord const& other);

   ~HLAvariantRecord() override;

   RTI_DATA_ELEMENT_OPERATIONS

   // Puts a clone of the given alternative, or the alternative itself, lent, under the discriminant's hash,
   // in the place of one that stands there.
   virtual void addVariant(DataElement const& discriminant, DataElement const& valuePrototype);
   virtual void addVariantPointer(DataElement const& discriminant, DataElement* valuePrototype);

   // Replaces the discriminant by a clone of the given element, whatever its type.
   virtual void setDiscriminant(DataElement const& discriminant);

   // As addVariant, but EncoderException "Non-matching type" if an alternative of another type stands there.
   // The record's own discriminant is not changed: setDiscriminant selects the alternative.
   virtual void setVariant(DataElement const& discriminant, DataElement const& value);
   virtual void setVariantPointer(DataElement const& discriminant, DataElement* value);

   // Valid until it is replaced or the record destroyed. getVariant is the alternative that the present
   // discriminant selects; EncoderException "Discriminant is not mapped to a value" if there is none.
   virtual DataElement const& getDiscriminant() const;
   virtual DataElement const& getVariant() const;

   // Whether an element is of the discriminant's type.
   virtual bool hasMatchingDiscriminantTypeAs(DataElement const& discriminant) const;

   // Whether a value is of the type of the alternative that the given discriminant selects. False if it
   // selects none.
   virtual bool isSameTypeAs(DataElement const& discriminant, DataElement const& value) const;
   using DataElement::isSameTypeAs;

private:
   friend struct ElementAccess;
   HLAvariantRecord& operator=(HLAvariantRecord const& other);

   Variant* _body;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

#endif
