#include "src/values/BigEndian.h"
#include "src/values/HandleAccess.h"

#include <RTI/Exception.h>

#include <cstring>
#include <ostream>
#include <utility>
#include <vector>

namespace rti1516e {

namespace {
constexpr std::size_t headerSize = 8; // the number and the length of the further bytes
} // namespace

// A handle that names nothing has no record.
struct MessageRetractionHandle::Implementation
{
   std::uint32_t number;
   std::vector<unsigned char> extra;

   static Implementation* copyOf(Implementation const* other)
   {
      return other == nullptr ? nullptr : new Implementation(*other);
   }
};

MessageRetractionHandle HandleAccess::retractionHandle(std::uint32_t number, void const* extra,
                                                       std::uint32_t extraLength)
{
   MessageRetractionHandle handle;
   if (number != 0 || extraLength != 0) {
      auto const* const bytes = static_cast<unsigned char const*>(extra);
      handle._implementation =
         new MessageRetractionHandle::Implementation{number, {bytes, bytes + extraLength}};
   }
   return handle;
}

MessageRetractionHandle HandleAccess::decodeRetractionHandle(void const* bytes, std::size_t length)
{
   auto const* const from = static_cast<unsigned char const*>(bytes);
   if (length < sizeof(std::uint32_t)) {
      return {};
   }
   auto const number = loadBigEndian<std::uint32_t>(from);
   auto const claimed = length < headerSize ? 0 : loadBigEndian<std::uint32_t>(from + 4);
   bool const complete = claimed != 0 && claimed <= length - headerSize;
   return retractionHandle(number, complete ? from + headerSize : nullptr, complete ? claimed : 0);
}

MessageRetractionHandle::MessageRetractionHandle() noexcept : _implementation(nullptr) {}

MessageRetractionHandle::MessageRetractionHandle(VariableLengthData const& encodedValue)
   : MessageRetractionHandle(HandleAccess::decodeRetractionHandle(encodedValue.data(), encodedValue.size()))
{}

MessageRetractionHandle::MessageRetractionHandle(MessageRetractionHandle const& other)
   : _implementation(Implementation::copyOf(other._implementation))
{}

MessageRetractionHandle::MessageRetractionHandle(MessageRetractionHandle&& other) noexcept
   : _implementation(std::exchange(other._implementation, nullptr))
{}

MessageRetractionHandle& MessageRetractionHandle::operator=(MessageRetractionHandle other) noexcept
{
   std::swap(_implementation, other._implementation);
   return *this;
}

MessageRetractionHandle::~MessageRetractionHandle() { delete _implementation; }

std::uint32_t MessageRetractionHandle::number() const noexcept
{
   return _implementation == nullptr ? 0 : _implementation->number;
}

bool MessageRetractionHandle::isValid() const noexcept { return number() != 0; }

bool MessageRetractionHandle::operator==(MessageRetractionHandle const& other) const noexcept
{
   return number() == other.number();
}

bool MessageRetractionHandle::operator!=(MessageRetractionHandle const& other) const noexcept
{
   return !(*this == other);
}

bool MessageRetractionHandle::operator<(MessageRetractionHandle const& other) const noexcept
{
   return static_cast<std::int32_t>(number()) < static_cast<std::int32_t>(other.number());
}

long MessageRetractionHandle::hash() const noexcept { return static_cast<std::int32_t>(number() * 37U); }

size_t MessageRetractionHandle::encodedLength() const noexcept
{
   return headerSize + (_implementation == nullptr ? 0 : _implementation->extra.size());
}

VariableLengthData MessageRetractionHandle::encode() const
{
   std::vector<unsigned char> bytes(encodedLength());
   encode(bytes.data(), bytes.size());
   return VariableLengthData(bytes.data(), static_cast<unsigned int>(bytes.size()));
}

size_t MessageRetractionHandle::encode(void* buffer, size_t bufferSize) const
{
   auto const length = encodedLength();
   if (bufferSize < length) {
      throw CouldNotEncode(L"Buffer needs to be atleast 4 bytes!");
   }
   auto const extraLength = static_cast<std::uint32_t>(length - headerSize);
   auto* const bytes = static_cast<unsigned char*>(buffer);
   storeBigEndian(bytes, number());
   storeBigEndian(bytes + 4, extraLength);
   if (extraLength != 0) {
      std::memcpy(bytes + headerSize, _implementation->extra.data(), extraLength);
   }
   return length;
}

std::wstring MessageRetractionHandle::toString() const
{
   return L"MessageRetractionHandle<" + std::to_wstring(number()) + L">";
}

std::wostream& operator<<(std::wostream& stream, MessageRetractionHandle const& handle)
{
   return stream << handle.toString();
}

} // namespace rti1516e
