#ifndef RTI_DataElement_h
#define RTI_DataElement_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/EncodingConfig.h>
#include <RTI/encoding/EncodingExceptions.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

RTI_AUTO_PTR_BEGIN

// A value that can be turned into its HLA encoding and back: a basic element, an array, a record, or a class
// of the federate's own. Lengths, indexes and boundaries are in octets.
//
// Unless an operation says otherwise, a failure is EncoderException or, if memory runs out, std::bad_alloc;
// either leaves the element and the buffer as they were. Elements may be read by several threads at once, but
// not while one changes them. An element must not contain itself.
class RTI_EXPORT DataElement
{
public:
   virtual ~DataElement();

   // A new element of the same type with the same value, which owns everything it holds.
   virtual std::auto_ptr<DataElement> clone() const = 0;

   // The encoding alone, without padding: getEncodedLength() octets, at most 4294967295. The first form
   // replaces what the buffer holds.
   virtual void encode(VariableLengthData& buffer) const;
   virtual VariableLengthData encode() const;

   // Appends zero octets up to the next multiple of getOctetBoundary(), and then the encoding.
   virtual void encodeInto(std::vector<Octet>& buffer) const = 0;

   // Takes the value from the start of an encoding. Octets behind it are ignored.
   virtual void decode(VariableLengthData const& encoded);

   // Takes the value from an encoding at the given index of a buffer, and returns the index just behind it.
   // No padding is skipped: the caller passes an index that is a multiple of getOctetBoundary().
   virtual size_t decodeFrom(std::vector<Octet> const& buffer, size_t index) = 0;

   virtual size_t getEncodedLength() const = 0;
   virtual unsigned int getOctetBoundary() const = 0;

   // Whether both are objects of the same class. For arrays and records, that says nothing of their contents.
   virtual bool isSameTypeAs(DataElement const& other) const;

   // Selects the alternative of a variant record whose discriminant this element is. Here it is 1; the basic
   // elements make it of their value.
   virtual Integer64 hash() const;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

// Declares what every concrete element of the library has of the above.
#define RTI_DATA_ELEMENT_OPERATIONS                                            \
   std::auto_ptr<DataElement> clone() const override;                          \
   void encode(VariableLengthData& buffer) const override;                     \
   VariableLengthData encode() const override;                                 \
   void encodeInto(std::vector<Octet>& buffer) const override;                 \
   void decode(VariableLengthData const& encoded) override;                    \
   size_t decodeFrom(std::vector<Octet> const& buffer, size_t index) override; \
   size_t getEncodedLength() const override;                                   \
   unsigned int getOctetBoundary() const override;

#endif
