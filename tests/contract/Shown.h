// The value of every type of the interface as a text that differs whenever the value does.
#pragma once

#include "Bytes.h"

#include <RTI/RTI1516.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace contract {

template <class T>
std::wstring shown(std::set<T> const& values);
template <class T>
std::wstring shown(std::vector<T> const& values);
template <class K, class V>
std::wstring shown(std::map<K, V> const& values);
template <class A, class B>
std::wstring shown(std::pair<A, B> const& value);

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

#define CONTRACT_SHOW_BY_NUMBER(Enum) \
   inline std::wstring shown(rti1516e::Enum value) { return std::to_wstring(static_cast<int>(value)); }
CONTRACT_SHOW_BY_NUMBER(OrderType)
CONTRACT_SHOW_BY_NUMBER(TransportationType)
CONTRACT_SHOW_BY_NUMBER(ResignAction)
CONTRACT_SHOW_BY_NUMBER(RestoreFailureReason)
CONTRACT_SHOW_BY_NUMBER(RestoreStatus)
CONTRACT_SHOW_BY_NUMBER(SaveFailureReason)
CONTRACT_SHOW_BY_NUMBER(SaveStatus)
CONTRACT_SHOW_BY_NUMBER(SynchronizationPointFailureReason)
#undef CONTRACT_SHOW_BY_NUMBER

inline std::wstring shown(rti1516e::RangeBounds const& value)
{
   return shown(value.getLowerBound()) + L".." + shown(value.getUpperBound());
}

inline std::wstring shown(rti1516e::LogicalTime const& value) { return value.toString(); }

inline std::wstring shown(rti1516e::FederateRestoreStatus const& value)
{
   return shown(value.preRestoreHandle) + L"->" + shown(value.postRestoreHandle) + L"=" + shown(value.status);
}

inline std::wstring shown(rti1516e::FederationExecutionInformation const& value)
{
   return shown(value.federationExecutionName) + L"=" + shown(value.logicalTimeImplementationName);
}

inline std::wstring shownProducer(bool known, rti1516e::FederateHandle const& federate)
{
   return (known ? L"by " : L"by nobody ") + shown(federate);
}

template <class Info>
std::wstring shownSupplement(Info const& value)
{
   return shownProducer(value.hasProducingFederate, value.producingFederate) +
          (value.hasSentRegions ? L" in " : L" in none of ") + shown(value.sentRegions);
}

inline std::wstring shown(rti1516e::SupplementalReflectInfo const& value) { return shownSupplement(value); }
inline std::wstring shown(rti1516e::SupplementalReceiveInfo const& value) { return shownSupplement(value); }

inline std::wstring shown(rti1516e::SupplementalRemoveInfo const& value)
{
   return shownProducer(value.hasProducingFederate, value.producingFederate);
}

inline std::wstring shown(std::auto_ptr<rti1516e::LogicalTime> const& value)
{
   return value.get() == nullptr ? L"none" : value->toString();
}

inline std::wstring shown(std::auto_ptr<rti1516e::LogicalTimeInterval> const& value)
{
   return value.get() == nullptr ? L"none" : value->toString();
}

inline std::wstring shown(std::auto_ptr<rti1516e::LogicalTimeFactory> const& value)
{
   return value.get() == nullptr ? L"none" : value->getName();
}

inline std::wstring shown(rti1516e::TimeQueryReturn const& value)
{
   return (value.timeIsValid ? L"valid " : L"invalid ") + shown(value.time);
}

template <class Range>
std::wstring shownElements(Range const& values)
{
   std::wstring text;
   for (auto const& value : values) {
      text += (text.empty() ? L"" : L", ") + shown(value);
   }
   return L"{" + text + L"}";
}

template <class T>
std::wstring shown(std::set<T> const& values)
{
   return shownElements(values);
}

template <class T>
std::wstring shown(std::vector<T> const& values)
{
   return shownElements(values);
}

template <class K, class V>
std::wstring shown(std::map<K, V> const& values)
{
   return shownElements(values);
}

template <class A, class B>
std::wstring shown(std::pair<A, B> const& value)
{
   return shown(value.first) + L"=" + shown(value.second);
}

} // namespace contract
