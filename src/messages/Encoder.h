// Writes the arguments of services into bridge messages.
#pragma once

#include "src/messages/ByteWrapper.h"
#include "src/messages/CallbackToken.h"
#include "src/messages/EnumCodes.h"
#include "src/values/HandleAccess.h"
#include "src/values/Utf16.h"
#include "src/values/VariableLengthRecord.h"

#include <RTI/Enums.h>
#include <RTI/RangeBounds.h>
#include <RTI/Typedefs.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace tovu1516e {

using rti1516e::ByteWrapper;

// In bytes. Sizes are summed up in 64 bits, so that no sum wraps before it is compared with what a Java array
// can hold.
using MessageSize = std::uint64_t;

// How a value of the type stands in a message: size tells the bytes it takes, write writes just so many. What
// has no specialisation below cannot be sent.
template <class T, class = void>
struct Encoder;

// The encoding of a time or an interval, as its own encode() gave it. It goes into a message bare, as the
// last argument.
struct EncodedTime
{
   rti1516e::VariableLengthData bytes;
};

// What takes one 32-bit number.
struct WordEncoder
{
   static constexpr MessageSize wordSize = 4;
   template <class T>
   static constexpr MessageSize size(T const&) noexcept
   {
      return wordSize;
   }
};

// 2 stands for whatever is not evoked.
template <>
struct Encoder<rti1516e::CallbackModel> : WordEncoder
{
   static void write(ByteWrapper& to, rti1516e::CallbackModel model) noexcept
   {
      to.put<std::uint32_t>(model == rti1516e::HLA_EVOKED ? 1 : 2);
   }
};

template <class Enum>
struct Encoder<Enum, std::enable_if_t<EnumCodes<Enum>::exist>> : WordEncoder
{
   static void write(ByteWrapper& to, Enum value) noexcept { to.put(codeOf(value)); }
};

template <class Handle>
struct Encoder<Handle, std::enable_if_t<rti1516e::isHandle<Handle>>> : WordEncoder
{
   static void write(ByteWrapper& to, Handle handle) noexcept
   {
      to.put(rti1516e::HandleAccess::number(handle));
   }
};

template <>
struct Encoder<bool> : WordEncoder
{
   static void write(ByteWrapper& to, bool value) noexcept { to.put<std::uint32_t>(value ? 1 : 0); }
};

template <>
struct Encoder<CallbackToken> : WordEncoder
{
   static void write(ByteWrapper& to, CallbackToken token) noexcept { to.put(token.value); }
};

template <>
struct Encoder<double>
{
   static MessageSize size(double) noexcept { return sizeof(double); }
   static void write(ByteWrapper& to, double value) noexcept
   {
      std::uint64_t bits;
      static_assert(sizeof bits == sizeof value);
      std::memcpy(&bits, &value, sizeof bits);
      to.put(bits);
   }
};

template <>
struct Encoder<std::wstring>
{
   static MessageSize size(std::wstring const& text) noexcept
   {
      return WordEncoder::wordSize +
             sizeof(char16_t) * static_cast<MessageSize>(rti1516e::utf16::length(text));
   }
   static void write(ByteWrapper& to, std::wstring const& text) noexcept;
};

template <>
struct Encoder<rti1516e::VariableLengthData>
{
   using Access = rti1516e::VariableLengthDataAccess;

   static MessageSize size(rti1516e::VariableLengthData const& data) noexcept
   {
      return WordEncoder::wordSize + Access::size(data);
   }
   static void write(ByteWrapper& to, rti1516e::VariableLengthData const& data) noexcept
   {
      to.put<std::uint32_t>(Access::size(data));
      to.putBytes(Access::data(data), Access::size(data));
   }
};

template <>
struct Encoder<EncodedTime>
{
   static MessageSize size(EncodedTime const& time) noexcept { return time.bytes.size(); }
   static void write(ByteWrapper& to, EncodedTime const& time) noexcept
   {
      to.putBytes(time.bytes.data(), time.bytes.size());
   }
};

// The bounds are 32-bit numbers in 64 bits each.
template <>
struct Encoder<rti1516e::RangeBounds>
{
   static MessageSize size(rti1516e::RangeBounds const&) noexcept { return 2 * sizeof(std::uint64_t); }
   static void write(ByteWrapper& to, rti1516e::RangeBounds const& bounds) noexcept
   {
      to.put<std::uint64_t>(static_cast<std::uint32_t>(bounds.getLowerBound()));
      to.put<std::uint64_t>(static_cast<std::uint32_t>(bounds.getUpperBound()));
   }
};

template <>
struct Encoder<rti1516e::MessageRetractionHandle>
{
   static MessageSize size(rti1516e::MessageRetractionHandle const& handle) noexcept
   {
      return handle.encodedLength();
   }
   static void write(ByteWrapper& to, rti1516e::MessageRetractionHandle const& handle)
   {
      to.advance(handle.encode(to.current(), handle.encodedLength()));
   }
};

// Entries of maps and elements of pair vectors: the one, then the other.
template <class First, class Second>
struct Encoder<std::pair<First, Second>>
{
   static MessageSize size(std::pair<First, Second> const& pair) noexcept
   {
      return Encoder<std::remove_const_t<First>>::size(pair.first) + Encoder<Second>::size(pair.second);
   }
   static void write(ByteWrapper& to, std::pair<First, Second> const& pair) noexcept
   {
      Encoder<std::remove_const_t<First>>::write(to, pair.first);
      Encoder<Second>::write(to, pair.second);
   }
};

// Sets, maps and vectors: a count, then the elements in the container's own order.
template <class Container>
struct ContainerEncoder
{
   using Element = Encoder<typename Container::value_type>;

   static MessageSize size(Container const& elements) noexcept
   {
      if constexpr (std::is_base_of_v<WordEncoder, Element>) {
         return WordEncoder::wordSize * (1 + static_cast<MessageSize>(elements.size()));
      } else {
         MessageSize size = WordEncoder::wordSize;
         for (auto const& element : elements) {
            size += Element::size(element);
         }
         return size;
      }
   }

   static void write(ByteWrapper& to, Container const& elements) noexcept
   {
      to.put(static_cast<std::uint32_t>(elements.size()));
      for (auto const& element : elements) {
         Element::write(to, element);
      }
   }
};

template <class Element>
struct Encoder<std::set<Element>> : ContainerEncoder<std::set<Element>>
{};
template <class Element>
struct Encoder<std::vector<Element>> : ContainerEncoder<std::vector<Element>>
{};
template <class Key, class Value>
struct Encoder<std::map<Key, Value>> : ContainerEncoder<std::map<Key, Value>>
{};

} // namespace tovu1516e
