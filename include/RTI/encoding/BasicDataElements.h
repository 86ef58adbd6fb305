// The nineteen basic data elements, each of which wraps one value of a simple C++ type.
#ifndef RTI_BasicDataElements_h
#define RTI_BasicDataElements_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>
#include <RTI/encoding/DataElement.h>
#include <RTI/encoding/EncodingConfig.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

// Each class and the type of its value: X(class, value).
//
// The numbers are two's complement or IEEE 754, in the byte order that the name ends in, and like the single
// octets aligned to their own length. An octet pair is `first`, `second` in big-endian order and `second`,
// `first` in little-endian order. A boolean is a 32-bit big-endian 1 or 0; decoding takes any number but 1
// for false. Characters of HLAunicodeChar and HLAunicodeString are 16-bit big-endian code units of UTF-16.
// The strings are a 32-bit big-endian count (of characters, of code units) and what it counts, without a
// terminator, aligned to 4.
//
// In a HLAunicodeString, a character beyond U+FFFF is encoded as a surrogate pair, and what is no character
// (beyond U+10FFFF) as U+FFFD; decoding makes one character of a pair and keeps a lone surrogate. An
// HLAunicodeChar beyond U+FFFF cannot be encoded: EncoderException.
#define RTI_FOR_EACH_BASIC_ELEMENT(X) \
   X(HLAASCIIchar, char)              \
   X(HLAASCIIstring, std::string)     \
   X(HLAboolean, bool)                \
   X(HLAbyte, Octet)                  \
   X(HLAfloat32BE, float)             \
   X(HLAfloat32LE, float)             \
   X(HLAfloat64BE, double)            \
   X(HLAfloat64LE, double)            \
   X(HLAinteger16BE, Integer16)       \
   X(HLAinteger16LE, Integer16)       \
   X(HLAinteger32BE, Integer32)       \
   X(HLAinteger32LE, Integer32)       \
   X(HLAinteger64BE, Integer64)       \
   X(HLAinteger64LE, Integer64)       \
   X(HLAoctet, Octet)                 \
   X(HLAoctetPairBE, OctetPair)       \
   X(HLAoctetPairLE, OctetPair)       \
   X(HLAunicodeChar, wchar_t)         \
   X(HLAunicodeString, std::wstring)

namespace rti1516e {

template <class Element>
class BasicBody;

// A basic element keeps its value itself, or uses a variable of the caller's: then it reads the value from
// there and decodes into there, and the caller keeps the variable alive. set and the assignments store a
// value in the element itself and give up the variable, which they do not change; setDataPointer(0) goes
// back to the value that the element kept before. A copy never shares the variable.
//
// A failed decode leaves the value as it was: EncoderException "Index is out of bounds" if the octets do not
// reach, "Array index out of bounds" if a string's count is larger than the number of octets from the count
// on.
#define RTI_BASIC_ELEMENT(Name, Value)               \
   class RTI_EXPORT Name : public DataElement        \
   {                                                 \
   public:                                           \
      /* Keeps 0, false or the empty string. */      \
      Name();                                        \
      explicit Name(Value const& value);             \
      /* Uses the caller's variable. */              \
      explicit Name(Value* data);                    \
      Name(Name const& other);                       \
      ~Name() override;                              \
                                                     \
      Name& operator=(Name const& other);            \
      Name& operator=(Value value);                  \
      operator Value() const;                        \
                                                     \
      RTI_DATA_ELEMENT_OPERATIONS                    \
      Integer64 hash() const override;               \
                                                     \
      virtual void setDataPointer(Value* data);      \
      virtual void set(Value value);                 \
      virtual Value get() const;                     \
                                                     \
   private:                                          \
      friend struct ElementAccess;                   \
      explicit Name(BasicBody<Name>& body) noexcept; \
                                                     \
      BasicBody<Name>* _body;                        \
   };

RTI_AUTO_PTR_BEGIN
RTI_FOR_EACH_BASIC_ELEMENT(RTI_BASIC_ELEMENT)
RTI_AUTO_PTR_END

#undef RTI_BASIC_ELEMENT

} // namespace rti1516e

#endif
