// The value of every type of the interface as a text that differs whenever the value does.
#pragma once

#include "tests/support/Bytes.h"

#include <RTI/RTI1516.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace contract {

inline std::wstring widened(std::string const& ascii) { return {ascii.begin(), ascii.end()}; }

inline std::wstring shown(std::wstring const& value) { return L"\"" + value + L"\""; }
inline std::wstring shown(bool value) { return value ? L"true" : L"false"; }
inline std::wstring shown(unsigned long value) { return std::to_wstring(value); }
inline std::wstring shown(double value) { return widened(Bytes().real(value).hexadecimal()); }

inline std::wstring shown(rti1516e::VariableLengthData const& value)
{
   return widened(Bytes(value.data(), value.size()).hexadecimal());
}

#define CONTRACT_SHOW_BY_ENCODING(Handle) \
   inline std::wstring shown(rti1516e::Handle const& value) { return L"#" + shown(value.encode()); }
RTI_FOR_EACH_HANDLE(CONTRACT_SHOW_BY_ENCODING)
CONTRACT_SHOW_BY_ENCODING(MessageRetractionHandle)
#undef CONTRACT_SHOW_BY_ENCODING

template <class Enum>
std::enable_if_t<std::is_enum_v<Enum>, std::wstring> shown(Enum value)
{
   return std::to_wstring(static_cast<int>(value));
}

inline std::wstring shown(rti1516e::RangeBounds const& value)
{
   return shown(value.getLowerBound()) + L".." + shown(value.getUpperBound());
}

inline std::wstring shown(rti1516e::FederateRestoreStatus const& value)
{
   return shown(value.preRestoreHandle) + L"->" + shown(value.postRestoreHandle) + L"=" + shown(value.status);
}

inline std::wstring shown(rti1516e::FederationExecutionInformation const& value)
{
   return shown(value.federationExecutionName) + L"=" + shown(value.logicalTimeImplementationName);
}

inline std::wstring shown(rti1516e::LogicalTime const& value) { return value.toString(); }
inline std::wstring shown(rti1516e::LogicalTimeInterval const& value) { return value.toString(); }
inline std::wstring shown(rti1516e::LogicalTimeFactory const& value) { return value.getName(); }

template <class T>
std::wstring shown(std::auto_ptr<T> const& value)
{
   return value.get() == nullptr ? L"none" : shown(*value);
}

inline std::wstring shown(rti1516e::TimeQueryReturn const& value)
{
   return (value.timeIsValid ? L"valid " : L"invalid ") + shown(value.time);
}

template <class A, class B>
std::wstring shown(std::pair<A, B> const& value);

// Sets, vectors and maps.
template <class Container>
auto shown(Container const& values) -> decltype(values.begin(), std::wstring())
{
   std::wstring text;
   for (auto const& value : values) {
      text += (text.empty() ? L"" : L", ") + shown(value);
   }
   return L"{" + text + L"}";
}

template <class A, class B>
std::wstring shown(std::pair<A, B> const& value)
{
   return shown(value.first) + L"=" + shown(value.second);
}

inline std::wstring shownProducer(bool known, rti1516e::FederateHandle const& federate)
{
   return (known ? L"by " : L"by nobody ") + shown(federate);
}

inline std::wstring shown(rti1516e::SupplementalRemoveInfo const& value)
{
   return shownProducer(value.hasProducingFederate, value.producingFederate);
}

// SupplementalReflectInfo and SupplementalReceiveInfo.
template <class Info>
auto shown(Info const& value) -> decltype(value.sentRegions, std::wstring())
{
   return shownProducer(value.hasProducingFederate, value.producingFederate) +
          (value.hasSentRegions ? L" in " : L" in none of ") + shown(value.sentRegions);
}

} // namespace contract
