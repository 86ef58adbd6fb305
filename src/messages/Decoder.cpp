#include "src/messages/Decoder.h"

#include "src/jvm/Assertion.h"
#include "src/values/Utf16.h"

namespace tovu1516e {
namespace {

// An enumerator whose code is its value less an offset.
template <class Enum>
void readEnumerator(ByteWrapper& from, Enum& value, Enum first, Enum last, int offset, int line) noexcept
{
   auto const code = static_cast<std::int32_t>(from.get<std::uint32_t>());
   auto const number = static_cast<std::int64_t>(code) + offset;
   if (number < first || number > last) {
      failAssertion("false", "gen/cpp_handwritten/Decoder", line);
   }
   value = static_cast<Enum>(number);
}

} // namespace

using namespace rti1516e;

void Decoder<SynchronizationPointFailureReason>::read(ByteWrapper& from,
                                                      SynchronizationPointFailureReason& value)
{
   readEnumerator(from, value, SYNCHRONIZATION_POINT_LABEL_NOT_UNIQUE, SYNCHRONIZATION_SET_MEMBER_NOT_JOINED,
                  0, 112);
}

void Decoder<SaveFailureReason>::read(ByteWrapper& from, SaveFailureReason& value)
{
   readEnumerator(from, value, RTI_UNABLE_TO_SAVE, SAVE_ABORTED, 0, 150);
}

void Decoder<RestoreFailureReason>::read(ByteWrapper& from, RestoreFailureReason& value)
{
   readEnumerator(from, value, RTI_UNABLE_TO_RESTORE, RESTORE_ABORTED, 0, 187);
}

void Decoder<RestoreStatus>::read(ByteWrapper& from, RestoreStatus& value)
{
   readEnumerator(from, value, NO_RESTORE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_RESTORE, 0, 364);
}

void Decoder<SaveStatus>::read(ByteWrapper& from, SaveStatus& value)
{
   readEnumerator(from, value, NO_SAVE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_SAVE, 0, 406);
}

void Decoder<OrderType>::read(ByteWrapper& from, OrderType& value)
{
   readEnumerator(from, value, RECEIVE, TIMESTAMP, 1, 628);
}

void Decoder<TransportationType>::read(ByteWrapper& from, TransportationType& value)
{
   readEnumerator(from, value, RELIABLE, BEST_EFFORT, 0, 655);
}

void Decoder<std::wstring>::read(ByteWrapper& from, std::wstring& value)
{
   std::size_t const units = readSize(from);
   utf16::load(value, from.current(), units);
   from.advance(2 * units);
}

void Decoder<VariableLengthData>::read(ByteWrapper& from, VariableLengthData& value)
{
   if (std::uint32_t const size = readSize(from); size != 0) {
      value.setData(from.current(), size);
      from.advance(size);
   }
}

void Decoder<MessageRetractionHandle>::read(ByteWrapper& from, MessageRetractionHandle& value)
{
   auto const number = from.get<std::uint32_t>();
   auto const extraLength = readSize(from);
   value = HandleAccess::retractionHandle(number, from.current(), extraLength);
   from.advance(extraLength);
}

namespace {

// Both flags stand before what they announce.
template <class Info>
void readInfoWithRegions(ByteWrapper& from, Info& value)
{
   value.hasProducingFederate = from.get<std::uint32_t>() != 0;
   value.hasSentRegions = from.get<std::uint32_t>() != 0;
   if (value.hasProducingFederate) {
      Decoder<FederateHandle>::read(from, value.producingFederate);
   }
   if (value.hasSentRegions) {
      Decoder<RegionHandleSet>::read(from, value.sentRegions);
   }
}

} // namespace

void Decoder<SupplementalReflectInfo>::read(ByteWrapper& from, SupplementalReflectInfo& value)
{
   readInfoWithRegions(from, value);
}

void Decoder<SupplementalReceiveInfo>::read(ByteWrapper& from, SupplementalReceiveInfo& value)
{
   readInfoWithRegions(from, value);
}

void Decoder<SupplementalRemoveInfo>::read(ByteWrapper& from, SupplementalRemoveInfo& value)
{
   value.hasProducingFederate = from.get<std::uint32_t>() != 0;
   if (value.hasProducingFederate) {
      Decoder<FederateHandle>::read(from, value.producingFederate);
   }
}

} // namespace tovu1516e
