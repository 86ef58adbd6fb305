// An element of a federate's own.
#pragma once

#include <RTI/encoding/DataElement.h>

#include <memory>
#include <vector>

// Three octets on a boundary of 2, of which the last is its value. It counts how many of its kind there are
// and how often each operation is called.
class ForeignElement : public rti1516e::DataElement
{
public:
   ForeignElement() { ++live; }
   ForeignElement(ForeignElement const& other) : DataElement(other), value(other.value) { ++live; }
   ForeignElement& operator=(ForeignElement const&) = delete;
   ~ForeignElement() override { --live; }

   std::auto_ptr<rti1516e::DataElement> clone() const override
   {
      return std::auto_ptr<rti1516e::DataElement>(new ForeignElement(*this));
   }
   void encodeInto(std::vector<char>& buffer) const override
   {
      ++encoded;
      buffer.resize(buffer.size() + buffer.size() % 2);
      buffer.insert(buffer.end(), {'\x0F', '\x0E', value});
   }
   size_t decodeFrom(std::vector<char> const& buffer, size_t index) override
   {
      if (index > buffer.size() || buffer.size() - index < 3) {
         throw rti1516e::EncoderException(L"too short for a foreign element");
      }
      value = buffer[index + 2];
      return index + 3;
   }
   size_t getEncodedLength() const override
   {
      ++measured;
      return 3;
   }
   unsigned int getOctetBoundary() const override
   {
      ++measured;
      return 2;
   }

   char value = 0;
   static inline int live = 0;
   static inline int measured = 0;
   static inline int encoded = 0;
};
