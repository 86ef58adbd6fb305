#ifndef RTI_VariableLengthData_h
#define RTI_VariableLengthData_h

#include <RTI/SpecificConfig.h>

namespace rti1516e {

struct VariableLengthRecord;

// A run of bytes: attribute and parameter values, user-supplied tags, encoded handles and times.
//
// It either owns its bytes or borrows the caller's. Copies always own theirs. Sizes are in bytes. If memory
// for a copy runs out, std::bad_alloc leaves the object as it was. Assigning an object to itself is outside
// the contract.
class RTI_EXPORT VariableLengthData
{
public:
   // Empty: data() is null, size() is 0.
   VariableLengthData() noexcept;

   // Owns a copy of the given bytes. data may be null if size is 0.
   VariableLengthData(void const* data, unsigned int size);

   // Owns a copy of the other's bytes, also when the other only borrows them.
   VariableLengthData(VariableLengthData const& other);
   VariableLengthData& operator=(VariableLengthData const& other);

   // Takes over what the other holds and leaves it empty.
   VariableLengthData(VariableLengthData&& other) noexcept;
   VariableLengthData& operator=(VariableLengthData&& other) noexcept;

   ~VariableLengthData();

   // The bytes, valid until this object is changed or destroyed; of no use, and perhaps null, if there are
   // none.
   void const* data() const noexcept;
   unsigned int size() const noexcept;

   // Gives up the present bytes and owns a copy of the given ones.
   void setData(void const* data, unsigned int size);

   // Gives up the present bytes and borrows the given ones: the caller keeps them alive and frees them. If
   // there is no memory for the small record behind the object, std::bad_alloc leaves it empty.
   void setDataPointer(void* data, unsigned int size);

   // Gives up the present bytes and owns the given ones, which are released once: through the deleter, or as
   // an array of char (delete[]) if there is none. If there is no memory for the small record behind the
   // object, they are released at once, and std::bad_alloc leaves the object empty.
   void takeDataPointer(void* data, unsigned int size, void (*deleter)(void*) = nullptr);

private:
   friend struct VariableLengthDataAccess;
   void replace(VariableLengthRecord* record) noexcept;

   VariableLengthRecord* _record;
};

} // namespace rti1516e

#endif
