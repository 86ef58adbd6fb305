// The bytes that every type of the interface travels as, written without the library's help.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/RTI1516.h>

#include <memory>
#include <string>
#include <utility>

namespace contract {

using namespace rti1516e;

// Of an enumeration: the first and the last enumerator, and what is added to one to make its code.
template <class Enum>
struct Enumerators;
#define CONTRACT_ENUMERATORS(Enum, first_, last_, offset_) \
   template <>                                             \
   struct Enumerators<Enum>                                \
   {                                                       \
      static constexpr int first = first_;                 \
      static constexpr int last = last_, offset = offset_; \
   };
CONTRACT_ENUMERATORS(CallbackModel, HLA_IMMEDIATE, HLA_EVOKED, 0)
CONTRACT_ENUMERATORS(OrderType, RECEIVE, TIMESTAMP, -1)
CONTRACT_ENUMERATORS(TransportationType, RELIABLE, BEST_EFFORT, 0)
CONTRACT_ENUMERATORS(ResignAction, UNCONDITIONALLY_DIVEST_ATTRIBUTES, NO_ACTION, 0)
CONTRACT_ENUMERATORS(ServiceGroup, FEDERATION_MANAGEMENT, SUPPORT_SERVICES, 1)
CONTRACT_ENUMERATORS(SynchronizationPointFailureReason, 0, SYNCHRONIZATION_SET_MEMBER_NOT_JOINED, 0)
CONTRACT_ENUMERATORS(SaveFailureReason, RTI_UNABLE_TO_SAVE, SAVE_ABORTED, 0)
CONTRACT_ENUMERATORS(RestoreFailureReason, RTI_UNABLE_TO_RESTORE, RESTORE_ABORTED, 0)
CONTRACT_ENUMERATORS(SaveStatus, NO_SAVE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_SAVE, 0)
CONTRACT_ENUMERATORS(RestoreStatus, NO_RESTORE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_RESTORE, 0)
#undef CONTRACT_ENUMERATORS

class Encoding
{
public:
   Bytes bytes;

   void put(bool value) { bytes.int32(value ? 1 : 0); }
   void put(unsigned long value) { bytes.int64(value); }
   void put(double value) { bytes.real(value); }
   // A pair that stands in two characters differs from one that stands in one.
   void put(std::wstring const& value)
   {
      std::u16string units;
      char16_t high = 0;
      for (wchar_t const character : value) {
         auto const code = static_cast<std::uint32_t>(character);
         if (high / 0x400 == 0x36 && code / 0x400 == 0x37) {
            units.push_back(u'|');
         }
         if (code > 0xFFFF) {
            units.push_back(static_cast<char16_t>(0xD800 + (code - 0x10000) / 0x400));
         }
         units.push_back(static_cast<char16_t>(code > 0xFFFF ? 0xDC00 + code % 0x400 : code));
         high = units.back();
      }
      bytes.text(units);
   }
   void put(VariableLengthData const& value) { bytes.counted(Bytes(value.data(), value.size())); }

   // Times and handles encode themselves.
   template <class Own>
   auto put(Own const& value) -> decltype(value.encode(), void())
   {
      VariableLengthData const own = value.encode();
      bytes.append(Bytes(own.data(), own.size()));
   }
   void put(LogicalTimeFactory const& value) { put(value.getName()); }
   void put(FederateAmbassador const&) {} // whose token stands before the message
   template <class T>
   void put(std::auto_ptr<T> const& value)
   {
      if (value.get() != nullptr) {
         put(*value);
      }
   }

   void put(CallbackModel value) { bytes.int32(value == HLA_EVOKED ? 1 : 2); }
   template <class Enum>
   auto put(Enum value) -> decltype(Enumerators<Enum>::offset, void())
   {
      bytes.int32(static_cast<std::uint32_t>(value + Enumerators<Enum>::offset));
   }

   template <class First, class Second>
   void put(std::pair<First, Second> const& value)
   {
      putAll(value.first, value.second);
   }
   template <class Container>
   auto put(Container const& values) -> decltype(values.begin(), values.size(), void(values.empty()))
   {
      bytes.int32(static_cast<std::uint32_t>(values.size()));
      for (auto const& value : values) {
         put(value);
      }
   }

   void put(RangeBounds const& value) { putAll(value.getLowerBound(), value.getUpperBound()); }
   void put(TimeQueryReturn const& value) { putAll(value.timeIsValid, value.time); }
   void put(FederateRestoreStatus const& value)
   {
      putAll(value.preRestoreHandle, value.postRestoreHandle, value.status);
   }
   void put(FederationExecutionInformation const& value)
   {
      putAll(value.federationExecutionName, value.logicalTimeImplementationName);
   }
   void put(SupplementalRemoveInfo const& value)
   {
      put(value.hasProducingFederate);
      putIf(value.hasProducingFederate, value.producingFederate);
   }
   template <class Info>
   auto put(Info const& value) -> decltype(value.sentRegions, void())
   {
      putAll(value.hasProducingFederate, value.hasSentRegions);
      putIf(value.hasProducingFederate, value.producingFederate);
      putIf(value.hasSentRegions, value.sentRegions);
   }

   template <class... T>
   void putAll(T const&... values)
   {
      (put(values), ...);
   }

private:
   template <class T>
   void putIf(bool present, T const& value)
   {
      if (present) {
         put(value);
      }
   }
};

inline constexpr auto encoded = [](auto const&... values) {
   Encoding encoding;
   encoding.putAll(values...);
   return encoding.bytes;
};

} // namespace contract
