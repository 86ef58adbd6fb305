#include "src/values/VariableLengthRecord.h"

#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

namespace rti1516e {

namespace {

using Record = VariableLengthRecord;
static_assert(std::is_trivially_destructible_v<Record>);

Record* copyOf(void const* data, unsigned int size)
{
   void* const memory = ::operator new(sizeof(Record) + size);
   void* const copy = static_cast<char*>(memory) + sizeof(Record);
   if (size != 0) {
      std::memcpy(copy, data, size);
   }
   return new (memory) Record{copy, size, false, nullptr};
}

// Null where memory is wanting.
Record* referTo(void* data, unsigned int size, bool owns, void (*deleter)(void*)) noexcept
{
   void* const memory = ::operator new(sizeof(Record), std::nothrow);
   return memory == nullptr ? nullptr : new (memory) Record{data, size, owns, deleter};
}

void releaseBytes(void* data, void (*deleter)(void*)) noexcept
{
   if (deleter != nullptr) {
      deleter(data);
   } else {
      delete[] static_cast<char*>(data);
   }
}

void release(Record* record) noexcept
{
   if (record == nullptr) {
      return;
   }
   if (record->owns) {
      releaseBytes(record->data, record->deleter);
   }
   ::operator delete(record);
}

} // namespace

// What is new is complete before what is old goes, so that a failure loses nothing.
void VariableLengthData::replace(Record* record) noexcept { release(std::exchange(_record, record)); }

VariableLengthData::VariableLengthData() noexcept : _record(nullptr) {}

VariableLengthData::VariableLengthData(void const* data, unsigned int size) : _record(copyOf(data, size)) {}

VariableLengthData::VariableLengthData(VariableLengthData const& other)
   : _record(other._record == nullptr ? nullptr : copyOf(other._record->data, other._record->size))
{}

VariableLengthData& VariableLengthData::operator=(VariableLengthData const& other)
{
   *this = VariableLengthData(other);
   return *this;
}

VariableLengthData::VariableLengthData(VariableLengthData&& other) noexcept
   : _record(std::exchange(other._record, nullptr))
{}

VariableLengthData& VariableLengthData::operator=(VariableLengthData&& other) noexcept
{
   replace(std::exchange(other._record, nullptr));
   return *this;
}

VariableLengthData::~VariableLengthData() { release(_record); }

void const* VariableLengthData::data() const noexcept { return VariableLengthDataAccess::data(*this); }

unsigned int VariableLengthData::size() const noexcept { return VariableLengthDataAccess::size(*this); }

void VariableLengthData::setData(void const* data, unsigned int size) { replace(copyOf(data, size)); }

void VariableLengthData::setDataPointer(void* data, unsigned int size)
{
   replace(referTo(data, size, false, nullptr));
}

void VariableLengthData::takeDataPointer(void* data, unsigned int size, void (*deleter)(void*))
{
   Record* const record = referTo(data, size, true, deleter);
   if (record == nullptr) {
      releaseBytes(data, deleter); // they are ours already, and nothing holds them
   }
   replace(record);
}

} // namespace rti1516e
