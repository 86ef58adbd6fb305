#include "src/messages/Decoder.h"

#include "src/values/Utf16.h"

namespace tovu1516e {
using namespace rti1516e;

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
