// The codes that enumerators stand as in messages and results.
#pragma once

#include <RTI/Enums.h>

#include <cstdint>

namespace tovu1516e {

// The enumerators from first to last have the codes that are their values plus the offset.
//
// An enumerator or a code that is none ends the process with an assertion. It names the place where the
// core's makers look for it: a line of the unit that writes arguments and reads results (Encoder), or of the
// one that reads the arguments of callbacks (Decoder). A line of 0 stands where that never happens.
template <class Enum>
struct EnumCodes
{
   static constexpr bool exist = false;
};

#define TOVU_ENUM_CODES(Enum, first_, last_, offset_, written, returned, received) \
   template <>                                                                     \
   struct EnumCodes<rti1516e::Enum>                                                \
   {                                                                               \
      static constexpr bool exist = true;                                          \
      static constexpr int first = rti1516e::first_;                               \
      static constexpr int last = rti1516e::last_;                                 \
      static constexpr int offset = offset_;                                       \
      static constexpr int lineWritten = written;                                  \
      static constexpr int lineReturned = returned;                                \
      static constexpr int lineReceived = received;                                \
   };
// enumeration, first and last enumerator, offset, and the lines: written, returned, received
TOVU_ENUM_CODES(ResignAction, UNCONDITIONALLY_DIVEST_ATTRIBUTES, NO_ACTION, 0, 127, 0, 0)
TOVU_ENUM_CODES(TransportationType, RELIABLE, BEST_EFFORT, 0, 139, 247, 655)
TOVU_ENUM_CODES(OrderType, RECEIVE, TIMESTAMP, -1, 151, 263, 628)
TOVU_ENUM_CODES(ServiceGroup, FEDERATION_MANAGEMENT, SUPPORT_SERVICES, 1, 173, 0, 0)
TOVU_ENUM_CODES(SynchronizationPointFailureReason, SYNCHRONIZATION_POINT_LABEL_NOT_UNIQUE,
                SYNCHRONIZATION_SET_MEMBER_NOT_JOINED, 0, 0, 0, 112)
TOVU_ENUM_CODES(SaveFailureReason, RTI_UNABLE_TO_SAVE, SAVE_ABORTED, 0, 0, 0, 150)
TOVU_ENUM_CODES(RestoreFailureReason, RTI_UNABLE_TO_RESTORE, RESTORE_ABORTED, 0, 0, 0, 187)
TOVU_ENUM_CODES(RestoreStatus, NO_RESTORE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_RESTORE, 0, 0, 0,
                364)
TOVU_ENUM_CODES(SaveStatus, NO_SAVE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_SAVE, 0, 0, 0, 406)
#undef TOVU_ENUM_CODES

enum class Unit
{
   Encoder,
   Decoder
};

[[noreturn]] void failCode(Unit unit, int line) noexcept;

template <class Enum>
std::uint32_t codeOf(Enum value) noexcept
{
   using Codes = EnumCodes<Enum>;
   auto const number = static_cast<int>(value);
   if (number < Codes::first || number > Codes::last) {
      failCode(Unit::Encoder, Codes::lineWritten);
   }
   return static_cast<std::uint32_t>(number + Codes::offset);
}

template <class Enum>
Enum enumeratorOf(std::int32_t code, Unit unit, int line) noexcept
{
   using Codes = EnumCodes<Enum>;
   auto const number = static_cast<std::int64_t>(code) - Codes::offset;
   if (number < Codes::first || number > Codes::last) {
      failCode(unit, line);
   }
   return static_cast<Enum>(number);
}

// What a service has returned.
template <class Enum>
Enum returnedEnumerator(std::int32_t code) noexcept
{
   return enumeratorOf<Enum>(code, Unit::Encoder, EnumCodes<Enum>::lineReturned);
}

// What came with a callback.
template <class Enum>
Enum receivedEnumerator(std::uint32_t code) noexcept
{
   return enumeratorOf<Enum>(static_cast<std::int32_t>(code), Unit::Decoder, EnumCodes<Enum>::lineReceived);
}

} // namespace tovu1516e
