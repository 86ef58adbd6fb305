#include <RTI/VariableLengthData.h>

#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace rti1516e {

struct VariableLengthData::Bytes
{
   void* data;
   unsigned int size;
   void (*deleter)(void*);
   bool owns;

   void letGo() const noexcept
   {
      if (!owns) {
         return;
      }
      if (deleter != nullptr) {
         deleter(data);
      } else {
         delete[] static_cast<char*>(data);
      }
   }

   // Null where memory for the record is wanting.
   static Bytes* copyOf(void const* data, unsigned int size)
   {
      std::unique_ptr<char[]> copy(new char[size]);
      if (size != 0) {
         std::memcpy(copy.get(), data, size);
      }
      Bytes* const bytes = new (std::nothrow) Bytes{copy.get(), size, nullptr, true};
      if (bytes != nullptr) {
         copy.release();
      }
      return bytes;
   }
};

void VariableLengthData::release(Bytes* bytes) noexcept
{
   if (bytes != nullptr) {
      bytes->letGo();
      delete bytes;
   }
}

// What is new is complete before what is old goes, so that a failure loses nothing.
void VariableLengthData::replace(Bytes* bytes) noexcept { release(std::exchange(_bytes, bytes)); }

VariableLengthData::VariableLengthData() noexcept : _bytes(nullptr) {}

VariableLengthData::VariableLengthData(void const* data, unsigned int size)
   : _bytes(Bytes::copyOf(data, size))
{}

VariableLengthData::VariableLengthData(VariableLengthData const& other)
   : _bytes(other._bytes == nullptr ? nullptr : Bytes::copyOf(other.data(), other.size()))
{}

VariableLengthData& VariableLengthData::operator=(VariableLengthData const& other)
{
   *this = VariableLengthData(other);
   return *this;
}

VariableLengthData::VariableLengthData(VariableLengthData&& other) noexcept
   : _bytes(std::exchange(other._bytes, nullptr))
{}

VariableLengthData& VariableLengthData::operator=(VariableLengthData&& other) noexcept
{
   replace(std::exchange(other._bytes, nullptr));
   return *this;
}

VariableLengthData::~VariableLengthData() { release(_bytes); }

void const* VariableLengthData::data() const noexcept { return _bytes == nullptr ? nullptr : _bytes->data; }

unsigned int VariableLengthData::size() const noexcept { return _bytes == nullptr ? 0 : _bytes->size; }

void VariableLengthData::setData(void const* data, unsigned int size) { replace(Bytes::copyOf(data, size)); }

void VariableLengthData::setDataPointer(void* data, unsigned int size)
{
   replace(new (std::nothrow) Bytes{data, size, nullptr, false});
}

void VariableLengthData::takeDataPointer(void* data, unsigned int size, void (*deleter)(void*))
{
   Bytes const taken{data, size, deleter, true};
   Bytes* const bytes = new (std::nothrow) Bytes(taken);
   if (bytes == nullptr) {
      taken.letGo(); // they are ours already, and nothing holds them
   }
   replace(bytes);
}

} // namespace rti1516e
