// Reads the arguments of callbacks out of bridge messages. Everything read is a copy: the message is gone
// when the federate is called.
#pragma once

#include "src/messages/ByteWrapper.h"
#include "src/messages/EnumCodes.h"
#include "src/values/HandleAccess.h"

#include <RTI/Typedefs.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace tovu1516e {

using rti1516e::ByteWrapper;

// How a value of the type is read; the value it is read into is a new one. What has no specialisation below
// cannot be received.
template <class T, class = void>
struct Decoder;

template <class Enum>
struct Decoder<Enum, std::enable_if_t<EnumCodes<Enum>::exist>>
{
   static void read(ByteWrapper& from, Enum& value) noexcept
   {
      value = receivedEnumerator<Enum>(from.get<std::uint32_t>());
   }
};

template <class Handle>
struct Decoder<Handle, std::enable_if_t<rti1516e::isHandle<Handle>>>
{
   static void read(ByteWrapper& from, Handle& value) noexcept
   {
      value = rti1516e::HandleAccess::make<Handle>(from.get<std::uint32_t>());
   }
};

#define TOVU_DECODER(Type)                              \
   template <>                                          \
   struct Decoder<Type>                                 \
   {                                                    \
      static void read(ByteWrapper& from, Type& value); \
   };
TOVU_DECODER(std::wstring)
TOVU_DECODER(rti1516e::VariableLengthData)
TOVU_DECODER(rti1516e::MessageRetractionHandle)
TOVU_DECODER(rti1516e::SupplementalReflectInfo)
TOVU_DECODER(rti1516e::SupplementalReceiveInfo)
TOVU_DECODER(rti1516e::SupplementalRemoveInfo)
#undef TOVU_DECODER

// A size or a number of elements. One below 1 is none.
inline std::uint32_t readSize(ByteWrapper& from) noexcept
{
   auto const size = static_cast<std::int32_t>(from.get<std::uint32_t>());
   return static_cast<std::uint32_t>(size > 0 ? size : 0);
}

// A value on its own.
template <class T>
T readValue(ByteWrapper& from)
{
   T value{};
   Decoder<T>::read(from, value);
   return value;
}

template <class First, class Second>
struct Decoder<std::pair<First, Second>>
{
   static void read(ByteWrapper& from, std::pair<First, Second>& value)
   {
      Decoder<First>::read(from, value.first);
      Decoder<Second>::read(from, value.second);
   }
};

// The two records without a default constructor.
template <>
inline rti1516e::FederateRestoreStatus readValue(ByteWrapper& from)
{
   auto const preHandle = readValue<rti1516e::FederateHandle>(from);
   auto const postHandle = readValue<rti1516e::FederateHandle>(from);
   return {preHandle, postHandle, readValue<rti1516e::RestoreStatus>(from)};
}

template <>
inline rti1516e::FederationExecutionInformation readValue(ByteWrapper& from)
{
   auto const name = readValue<std::wstring>(from);
   return {name, readValue<std::wstring>(from)};
}

// Sets, maps and vectors: a count, then that many elements.
template <class ReadElement>
void readElements(ByteWrapper& from, ReadElement readElement)
{
   for (std::uint32_t count = readSize(from); count > 0; --count) {
      readElement();
   }
}

template <class Element>
struct Decoder<std::set<Element>>
{
   static void read(ByteWrapper& from, std::set<Element>& value)
   {
      readElements(from, [&] { value.insert(value.end(), readValue<Element>(from)); });
   }
};

template <class Element>
struct Decoder<std::vector<Element>>
{
   static void read(ByteWrapper& from, std::vector<Element>& value)
   {
      readElements(from, [&] { value.push_back(readValue<Element>(from)); });
   }
};

// Values are copied to where they stand in the map. The core sends them in the order of their handles. Of two
// with the same handle the first stays.
template <class Handle>
struct Decoder<std::map<Handle, rti1516e::VariableLengthData>>
{
   static void read(ByteWrapper& from, std::map<Handle, rti1516e::VariableLengthData>& value)
   {
      readElements(from, [&] {
         auto const handle = readValue<Handle>(from);
         if (std::uint32_t const size = readSize(from); size != 0) {
            value.try_emplace(value.end(), handle, from.current(), size);
            from.advance(size);
         } else {
            value.try_emplace(value.end(), handle);
         }
      });
   }
};

} // namespace tovu1516e
