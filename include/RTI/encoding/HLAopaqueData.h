#ifndef RTI_HLAopaqueData_h
#define RTI_HLAopaqueData_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace rti1516e {

class OpaqueBytes;

RTI_AUTO_PTR_BEGIN

// A run of octets that means something to the federates alone, encoded as its length (32-bit big-endian) and
// the octets. The octet boundary is 4. Lengths are at most 4294967295.
//
// The element owns its octets, or uses a buffer of the caller's: then it reads them from there and decodes
// into there, up to the buffer's capacity, and the caller keeps the buffer alive. It takes the address of the
// buffer from the pointer that it is given once, when it is given it.
//
// decodeFrom takes the index as it is, without looking for the next multiple of 4. A failed decode leaves the
// element as it was: EncoderException "HLAopaqueData cannot decode (indata too short)" if there is no room
// for a length, "Array index out of bounds" if the length reaches beyond the octets, "Insufficient external
// storage" if it is above the capacity of the caller's buffer.
class RTI_EXPORT HLAopaqueData : public DataElement
{
public:
   // No octets.
   HLAopaqueData();

   // Owns a copy of the given octets.
   HLAopaqueData(Octet const* data, size_t length);

   // Uses the caller's buffer *data, which has room for bufferLength octets, of which dataLength are in use.
   HLAopaqueData(Octet** data, size_t bufferLength, size_t dataLength);

   // Owns a copy of the octets in use.
   HLAopaqueData(HLAopaqueData const& other);

   ~HLAopaqueData() override;

   RTI_DATA_ELEMENT_OPERATIONS

   virtual size_t bufferLength() const;
   virtual size_t dataLength() const;

   // The octets, valid until the element is changed or destroyed.
   virtual Octet const* get() const;
   operator Octet const*() const;

   // Gives up the present octets and owns a copy of the given ones.
   virtual void set(Octet const* data, size_t length);

   // Gives up the present octets and uses the caller's buffer, as the constructor does.
   virtual void setDataPointer(Octet** data, size_t bufferLength, size_t dataLength);

private:
   friend struct ElementAccess;
   HLAopaqueData& operator=(HLAopaqueData const& other);

   OpaqueBytes* _body;
};

RTI_AUTO_PTR_END

} // namespace rti1516e

#endif
