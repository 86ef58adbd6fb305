// The type-suffix codes: what a parameter of a service or a callback is, in one word. The names of the Java
// methods and natives end in the codes of their parameters.
#pragma once

#include "src/messages/Decoder.h"
#include "src/messages/Encoder.h"
#include "src/messages/ShortBytes.h"
#include "src/messages/TimeFactory.h"

#include <RTI/Exception.h>
#include <RTI/FederateAmbassador.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeInterval.h>

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tovu1516e {

// A parameter of type T, which a callback takes as Parameter. Argument is how a service's argument comes in,
// and sendable what of it is written. Received is what a callback's argument is read into while the message
// is pinned, and parameter what of it the federate gets.
template <class T, class ParameterType>
struct TypeCode
{
   using Argument = T const&;
   using Sendable = T;
   static T const& sendable(T const& argument) noexcept { return argument; }

   using Parameter = ParameterType;
   using Received = T;
   static constexpr bool isTime = false;
   static void read(ByteWrapper& from, T& received, TimeFactory const*) { Decoder<T>::read(from, received); }
   static void finish(T&, TimeFactory const*) noexcept {}
   static Parameter parameter(T& received) { return std::move(received); }
};

template <class T>
struct ByReference : TypeCode<T, T const&>
{
   static T const& parameter(T& received) noexcept { return received; }
};
template <class T>
struct ByValue : TypeCode<T, T>
{};

#define TOVU_TYPE_CODE(Name, letters_, ...)                 \
   struct Name : __VA_ARGS__                                \
   {                                                        \
      static constexpr std::string_view letters = letters_; \
   };

TOVU_TYPE_CODE(S, "S", ByReference<std::wstring>)
TOVU_TYPE_CODE(NameSet, "S", ByReference<std::set<std::wstring>>) // the letter of a single name, on purpose
TOVU_TYPE_CODE(URL, "URL", ByReference<std::wstring>)
TOVU_TYPE_CODE(URLX, "URLX", ByReference<std::vector<std::wstring>>)
TOVU_TYPE_CODE(BX, "BX", ByReference<rti1516e::VariableLengthData>)
TOVU_TYPE_CODE(Z, "Z", ByValue<bool>)
TOVU_TYPE_CODE(D, "D", ByValue<double>)
TOVU_TYPE_CODE(FA, "FA", ByValue<CallbackToken>)
TOVU_TYPE_CODE(CM, "CM", ByValue<rti1516e::CallbackModel>)
TOVU_TYPE_CODE(RA, "RA", ByValue<rti1516e::ResignAction>)
TOVU_TYPE_CODE(SG, "SG", ByValue<rti1516e::ServiceGroup>)
TOVU_TYPE_CODE(OT, "OT", ByValue<rti1516e::OrderType>)
TOVU_TYPE_CODE(TTH, "TTH", ByValue<rti1516e::TransportationType>)
TOVU_TYPE_CODE(OCH, "OCH", ByValue<rti1516e::ObjectClassHandle>)
TOVU_TYPE_CODE(OIH, "OIH", ByValue<rti1516e::ObjectInstanceHandle>)
TOVU_TYPE_CODE(ICH, "ICH", ByValue<rti1516e::InteractionClassHandle>)
TOVU_TYPE_CODE(AH, "AH", ByValue<rti1516e::AttributeHandle>)
TOVU_TYPE_CODE(PH, "PH", ByValue<rti1516e::ParameterHandle>)
TOVU_TYPE_CODE(FH, "FH", ByValue<rti1516e::FederateHandle>)
TOVU_TYPE_CODE(DH, "DH", ByValue<rti1516e::DimensionHandle>)
TOVU_TYPE_CODE(RH, "RH", ByValue<rti1516e::RegionHandle>)
TOVU_TYPE_CODE(AHS, "AHS", ByReference<rti1516e::AttributeHandleSet>)
TOVU_TYPE_CODE(AHSByValue, "AHS", ByValue<rti1516e::AttributeHandleSet>) // of one callback
TOVU_TYPE_CODE(FHS, "FHS", ByReference<rti1516e::FederateHandleSet>)
TOVU_TYPE_CODE(DHS, "DHS", ByReference<rti1516e::DimensionHandleSet>)
TOVU_TYPE_CODE(RHS, "RHS", ByReference<rti1516e::RegionHandleSet>)
TOVU_TYPE_CODE(AHVM, "AHVM", ByReference<rti1516e::AttributeHandleValueMap>)
TOVU_TYPE_CODE(PHVM, "PHVM", ByReference<rti1516e::ParameterHandleValueMap>)
TOVU_TYPE_CODE(ASRSPL, "ASRSPL", ByReference<rti1516e::AttributeHandleSetRegionHandleSetPairVector>)
TOVU_TYPE_CODE(RB, "RB", ByReference<rti1516e::RangeBounds>)
TOVU_TYPE_CODE(MRH, "MRH", ByValue<rti1516e::MessageRetractionHandle>)
TOVU_TYPE_CODE(ReflectInfo, "FASRI", ByValue<rti1516e::SupplementalReflectInfo>)
TOVU_TYPE_CODE(ReceiveInfo, "FASRI", ByValue<rti1516e::SupplementalReceiveInfo>)
TOVU_TYPE_CODE(RemoveInfo, "FASRI", ByValue<rti1516e::SupplementalRemoveInfo>)
TOVU_TYPE_CODE(SPFR, "SPFR", ByValue<rti1516e::SynchronizationPointFailureReason>)
TOVU_TYPE_CODE(SFR, "SFR", ByValue<rti1516e::SaveFailureReason>)
TOVU_TYPE_CODE(RFR, "RFR", ByValue<rti1516e::RestoreFailureReason>)
TOVU_TYPE_CODE(FHSSPX, "FHSSPX", ByReference<rti1516e::FederateHandleSaveStatusPairVector>)
TOVU_TYPE_CODE(FRSX, "FRSX", ByReference<rti1516e::FederateRestoreStatusVector>)
TOVU_TYPE_CODE(FEIS, "FEIS", ByReference<rti1516e::FederationExecutionInformationVector>)

#undef TOVU_TYPE_CODE

// Times and intervals are the federation's own classes, and no code but the library's runs while a message is
// pinned: an outgoing one is encoded before, an incoming one is cut out by its length and decoded after.
template <class Time>
struct OutgoingTime
{
   using Argument = Time const&;
   using Sendable = EncodedTime;
   static EncodedTime sendable(Time const& argument) { return {argument.encode()}; }
};

template <class T>
std::unique_ptr<T> toUnique(std::auto_ptr<T> pointer) noexcept
{
   return std::unique_ptr<T>(pointer.release());
}

struct IncomingTime
{
   ShortBytes encoded;
   std::unique_ptr<rti1516e::LogicalTime> time;
};

struct LT : OutgoingTime<rti1516e::LogicalTime>
{
   static constexpr std::string_view letters = "LT";

   using Parameter = rti1516e::LogicalTime const&;
   using Received = IncomingTime;
   static constexpr bool isTime = true;

   // Without a factory there is no telling how long a time is: nothing is read.
   static void read(ByteWrapper& from, IncomingTime& received, TimeFactory const* factory)
   {
      if (factory != nullptr) {
         std::size_t const length = factory->knownTimeLength();
         ByteWrapper(received.encoded.resize(length)).putBytes(from.current(), length);
         from.advance(length);
      }
   }

   static void finish(IncomingTime& received, TimeFactory const* factory)
   {
      if (factory != nullptr) {
         auto& decoder = factory->factory();
         received.time =
            toUnique(decoder.decodeLogicalTime(received.encoded.data(), received.encoded.size()));
      }
      if (received.time == nullptr) {
         throw rti1516e::RTIinternalError(L"There is no logical time factory that could decode the time");
      }
   }

   static Parameter parameter(IncomingTime& received) noexcept { return *received.time; }
};

struct LTI : OutgoingTime<rti1516e::LogicalTimeInterval>
{
   static constexpr std::string_view letters = "LTI";
};

// Tells whether a name ends in the letters of the codes, in order and each after an underscore, and has no
// underscore before them.
template <class... Codes>
constexpr bool namesCodes(std::string_view name)
{
   constexpr std::size_t count = sizeof...(Codes);
   std::string_view const letters[count + 1] = {Codes::letters...};
   for (std::size_t i = count; i-- > 0;) {
      std::size_t const length = letters[i].size();
      if (name.size() <= length || name.substr(name.size() - length) != letters[i]) {
         return false;
      }
      name.remove_suffix(length);
      if (name.back() != '_') {
         return false;
      }
      name.remove_suffix(1);
   }
   return !name.empty() && name.find('_') == std::string_view::npos;
}

} // namespace tovu1516e
