#include "tests/support/RandomCallback.h"

#include "tests/support/Samples.h"
#include "tests/support/Shown.h"
#include "tests/support/TestTime.h"

#include <RTI/RTI1516.h>

#include <map>
#include <set>
#include <type_traits>

namespace contract {
namespace {

using namespace rti1516e;

// The makers below make a value of a type out of octets and append it to a message, as the core would write
// it.
template <class T>
struct Type
{};

// Units of every kind, surrogates in and out of pairs too.
std::wstring make(Type<std::wstring>, Octets& from, Bytes& to)
{
   std::u16string units;
   for (unsigned int left = from.below(12); left > 0; --left) {
      static char16_t const kinds[] = {u'a', u'\x00FF', u'\x20AC', u'\xD83D', u'\xDE80'};
      auto const kind = from.octet();
      units.push_back(kind < 5 ? kinds[kind] : static_cast<char16_t>(kind << 8 | from.octet()));
   }
   to.text(units);
   std::wstring text;
   for (std::size_t i = 0; i < units.size(); ++i) {
      bool const pair =
         (units[i] & 0xFC00) == 0xD800 && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00;
      text.push_back(static_cast<wchar_t>(pair ? 0x10000 + ((units[i] & 0x3FF) << 10) + (units[i + 1] & 0x3FF)
                                               : units[i]));
      i += pair ? 1 : 0;
   }
   return text;
}

VariableLengthData make(Type<VariableLengthData>, Octets& from, Bytes& to)
{
   Bytes const bytes = from.bytes();
   to.counted(bytes);
   return data(bytes);
}

#define MAKE_HANDLE(Handle)                                            \
   [[maybe_unused]] Handle make(Type<Handle>, Octets& from, Bytes& to) \
   {                                                                   \
      auto const number = from.int32();                                \
      to.int32(number);                                                \
      return handle<Handle>(number);                                   \
   }
RTI_FOR_EACH_HANDLE(MAKE_HANDLE)
#undef MAKE_HANDLE

MessageRetractionHandle make(Type<MessageRetractionHandle>, Octets& from, Bytes& to)
{
   auto const encoded = Bytes().int32(from.int32()).counted(from.bytes());
   to.append(encoded);
   return decodedHandle<MessageRetractionHandle>(encoded);
}

// Enumerators by their first and last value, and what is added to a value to make its code.
template <class Enum>
Enum makeEnumerator(Octets& from, Bytes& to, Enum first, Enum last, int offset)
{
   int const value =
      static_cast<int>(first) + static_cast<int>(from.below(static_cast<unsigned int>(last - first) + 1));
   to.int32(static_cast<std::uint32_t>(value + offset));
   return static_cast<Enum>(value);
}
OrderType make(Type<OrderType>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, RECEIVE, TIMESTAMP, -1);
}
TransportationType make(Type<TransportationType>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, RELIABLE, BEST_EFFORT, 0);
}
SynchronizationPointFailureReason make(Type<SynchronizationPointFailureReason>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, SYNCHRONIZATION_POINT_LABEL_NOT_UNIQUE,
                         SYNCHRONIZATION_SET_MEMBER_NOT_JOINED, 0);
}
SaveFailureReason make(Type<SaveFailureReason>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, RTI_UNABLE_TO_SAVE, SAVE_ABORTED, 0);
}
RestoreFailureReason make(Type<RestoreFailureReason>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, RTI_UNABLE_TO_RESTORE, RESTORE_ABORTED, 0);
}
SaveStatus make(Type<SaveStatus>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, NO_SAVE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_SAVE, 0);
}
RestoreStatus make(Type<RestoreStatus>, Octets& from, Bytes& to)
{
   return makeEnumerator(from, to, NO_RESTORE_IN_PROGRESS, FEDERATE_WAITING_FOR_FEDERATION_TO_RESTORE, 0);
}

TestTime make(Type<TestTime>, Octets& from, Bytes& to)
{
   std::uint64_t const high = from.int32();
   std::uint64_t const time = high << 32 | from.int32();
   to.append(TestTime::encoded(time));
   return TestTime(static_cast<Integer64>(time));
}

FederateRestoreStatus make(Type<FederateRestoreStatus>, Octets& from, Bytes& to)
{
   auto const before = make(Type<FederateHandle>(), from, to);
   auto const after = make(Type<FederateHandle>(), from, to);
   return {before, after, make(Type<RestoreStatus>(), from, to)};
}

FederationExecutionInformation make(Type<FederationExecutionInformation>, Octets& from, Bytes& to)
{
   auto const name = make(Type<std::wstring>(), from, to);
   return {name, make(Type<std::wstring>(), from, to)};
}

template <class First, class Second>
std::pair<First, Second> make(Type<std::pair<First, Second>>, Octets& from, Bytes& to)
{
   auto const first = make(Type<std::remove_const_t<First>>(), from, to);
   return {first, make(Type<Second>(), from, to)};
}

// Elements in any order, repeated ones too: the first of those with the same key counts. A count below zero
// stands for none.
template <class Container, class Element = typename Container::value_type>
Container make(Type<Container>, Octets& from, Bytes& to)
{
   std::uint32_t const kind = from.octet();
   std::uint32_t const count = kind % 8;
   to.int32(kind > 250 ? 0xFFFFFFFFU - kind : count);
   Container elements;
   for (std::uint32_t left = kind > 250 ? 0 : count; left > 0; --left) {
      elements.insert(elements.end(), make(Type<Element>(), from, to));
   }
   return elements;
}

bool makeFlag(Octets& from, Bytes& to)
{
   auto const flag = from.below(2) * from.int32(); // anything but zero is true
   to.int32(flag);
   return flag != 0;
}

SupplementalReflectInfo make(Type<SupplementalReflectInfo>, Octets& from, Bytes& to)
{
   SupplementalReflectInfo info;
   info.hasProducingFederate = makeFlag(from, to);
   info.hasSentRegions = makeFlag(from, to);
   if (info.hasProducingFederate) {
      info.producingFederate = make(Type<FederateHandle>(), from, to);
   }
   if (info.hasSentRegions) {
      info.sentRegions = make(Type<RegionHandleSet>(), from, to);
   }
   return info;
}

SupplementalRemoveInfo make(Type<SupplementalRemoveInfo>, Octets& from, Bytes& to)
{
   SupplementalRemoveInfo info;
   info.hasProducingFederate = makeFlag(from, to);
   if (info.hasProducingFederate) {
      info.producingFederate = make(Type<FederateHandle>(), from, to);
   }
   return info;
}

// Makes a value and tells it as the federate is to see it.
using Maker = std::wstring (*)(Octets&, Bytes&);
template <class T>
constexpr Maker maker = [](Octets& from, Bytes& to) { return shown(make(Type<T>(), from, to)); };

Maker makerOf(std::string const& code)
{
   static std::map<std::string, Maker> const makers = {
      {"S", maker<std::wstring>},
      {"names", maker<std::set<std::wstring>>},
      {"BX", maker<VariableLengthData>},
      {"OT", maker<OrderType>},
      {"TTH", maker<TransportationType>},
      {"OCH", maker<ObjectClassHandle>},
      {"OIH", maker<ObjectInstanceHandle>},
      {"ICH", maker<InteractionClassHandle>},
      {"AH", maker<AttributeHandle>},
      {"FH", maker<FederateHandle>},
      {"AHS", maker<AttributeHandleSet>},
      {"FHS", maker<FederateHandleSet>},
      {"AHVM", maker<AttributeHandleValueMap>},
      {"PHVM", maker<ParameterHandleValueMap>},
      {"MRH", maker<MessageRetractionHandle>},
      {"LT", maker<TestTime>},
      {"FASRI", maker<SupplementalReflectInfo>},
      {"removeInfo", maker<SupplementalRemoveInfo>},
      {"SPFR", maker<SynchronizationPointFailureReason>},
      {"SFR", maker<SaveFailureReason>},
      {"RFR", maker<RestoreFailureReason>},
      {"FHSSPX", maker<FederateHandleSaveStatusPairVector>},
      {"FRSX", maker<FederateRestoreStatusVector>},
      {"FEIS", maker<FederationExecutionInformationVector>},
   };
   return makers.at(code);
}

} // namespace

RandomCallback::RandomCallback(std::string const& native, Octets& octets)
{
   called = widened(native.substr(0, native.find('_'))) + L"(";
   wchar_t const* separator = L"";
   for (auto const& code : codesOf(native)) {
      called += separator + makerOf(code)(octets, arguments);
      separator = L", ";
   }
   called += L")";
}

std::wstring randomText(Octets& octets)
{
   Bytes ignored;
   return make(Type<std::wstring>(), octets, ignored);
}

} // namespace contract
