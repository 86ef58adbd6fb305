// The handles: a federate's opaque names for federates, classes, instances, attributes, parameters,
// dimensions, regions and retractable messages. The infrastructure assigns them; a default-constructed one
// names nothing.
#ifndef RTI_Handle_h
#define RTI_Handle_h

#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>

namespace rti1516e {

// Every handle class is one 32-bit number of the infrastructure's, 0 for none, and is passed by value.
//
// encode gives 4 bytes, most significant first; the ambassador's decode...Handle services turn them back into
// a handle. The form with a buffer returns the number of bytes written, always 4, and throws CouldNotEncode
// if the buffer is smaller, leaving it untouched. Comparison orders by the number, unsigned.
#define RTI_HANDLE_CLASS(HandleKind)                                                             \
   class HandleKind##Implementation;                                                             \
                                                                                                 \
   class RTI_EXPORT HandleKind                                                                   \
   {                                                                                             \
   public:                                                                                       \
      HandleKind() noexcept : _value(0) {}                                                       \
      bool isValid() const noexcept { return _value != 0; }                                      \
      bool operator==(HandleKind const& other) const noexcept { return _value == other._value; } \
      bool operator!=(HandleKind const& other) const noexcept { return _value != other._value; } \
      bool operator<(HandleKind const& other) const noexcept { return _value < other._value; }   \
      long hash() const noexcept;                                                                \
      VariableLengthData encode() const;                                                         \
      size_t encode(void* buffer, size_t bufferSize) const;                                      \
      size_t encodedLength() const noexcept;                                                     \
      std::wstring toString() const;                                                             \
                                                                                                 \
   protected:                                                                                    \
      friend struct HandleAccess;                                                                \
      /* The implementation of a handle is its number, carried by the pointer itself. */         \
      explicit HandleKind(HandleKind##Implementation* implementation) noexcept;                  \
      /* Reads the first 4 bytes; throws CouldNotDecode if there are fewer. */                   \
      explicit HandleKind(VariableLengthData const& encodedValue);                               \
      HandleKind##Implementation* getImplementation() const noexcept;                            \
                                                                                                 \
   private:                                                                                      \
      std::uint32_t _value;                                                                      \
   };                                                                                            \
                                                                                                 \
   RTI_EXPORT std::wostream& operator<<(std::wostream& stream, HandleKind const& handle);

#define RTI_FOR_EACH_HANDLE(X) \
   X(FederateHandle)           \
   X(ObjectClassHandle)        \
   X(InteractionClassHandle)   \
   X(ObjectInstanceHandle)     \
   X(AttributeHandle)          \
   X(ParameterHandle)          \
   X(DimensionHandle)          \
   X(RegionHandle)

RTI_FOR_EACH_HANDLE(RTI_HANDLE_CLASS)

#undef RTI_HANDLE_CLASS

// Names a message that was sent with a time stamp, so that it can be retracted. It is the infrastructure's
// number, 0 for none, and further bytes of the infrastructure's that travel with it unchanged.
class RTI_EXPORT MessageRetractionHandle
{
public:
   MessageRetractionHandle() noexcept;
   MessageRetractionHandle(MessageRetractionHandle const& other);
   MessageRetractionHandle(MessageRetractionHandle&& other) noexcept;
   MessageRetractionHandle& operator=(MessageRetractionHandle other) noexcept;
   ~MessageRetractionHandle();

   bool isValid() const noexcept;

   // Compare the numbers alone. operator< orders them as signed numbers, unlike the other handles.
   bool operator==(MessageRetractionHandle const& other) const noexcept;
   bool operator!=(MessageRetractionHandle const& other) const noexcept;
   bool operator<(MessageRetractionHandle const& other) const noexcept;

   long hash() const noexcept;

   // The number in 4 bytes, the length of the further bytes in 4, the further bytes. The form with a buffer
   // returns encodedLength(), and throws CouldNotEncode if the buffer is smaller, leaving it untouched.
   VariableLengthData encode() const;
   size_t encode(void* buffer, size_t bufferSize) const;
   size_t encodedLength() const noexcept;

   std::wstring toString() const;

protected:
   friend struct HandleAccess;
   explicit MessageRetractionHandle(VariableLengthData const& encodedValue);

private:
   struct Implementation;
   std::uint32_t number() const noexcept;

   Implementation* _implementation;
};

RTI_EXPORT std::wostream& operator<<(std::wostream& stream, MessageRetractionHandle const& handle);

} // namespace rti1516e

// Handles as keys of unordered containers: by what their hash() gives.
#define RTI_HANDLE_HASH(HandleKind)                                             \
   template <>                                                                  \
   struct std::hash<rti1516e::HandleKind>                                       \
   {                                                                            \
      std::size_t operator()(rti1516e::HandleKind const& handle) const noexcept \
      {                                                                         \
         return static_cast<std::size_t>(handle.hash());                        \
      }                                                                         \
   };
RTI_FOR_EACH_HANDLE(RTI_HANDLE_HASH)
RTI_HANDLE_HASH(MessageRetractionHandle)
#undef RTI_HANDLE_HASH

#endif
