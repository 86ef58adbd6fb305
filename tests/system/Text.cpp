#include "Text.h"

#include "ManagementValues.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>

namespace system_tests {

namespace {

// The texts of numbers and handles: their class, and in brackets their number.
std::string inBrackets(std::wstring const& text)
{
   std::size_t const open = text.find(L'<');
   return narrow(text.substr(open + 1, text.find(L'>') - open - 1));
}

template <std::size_t n, class Enum>
std::string showOneOf(char const* const (&names)[n], Enum value)
{
   auto const index = static_cast<std::size_t>(value);
   return index < n ? names[index] : "#" + std::to_string(index);
}

template <class Info>
std::string showProducer(Info const& info)
{
   return info.hasProducingFederate ? "by " + show(info.producingFederate) : "by somebody";
}

template <class Info>
std::string showRegions(Info const& info)
{
   return info.sentRegions.empty() ? "" : " from " + show(info.sentRegions);
}

std::string sorted(std::string const& words)
{
   std::istringstream in(words);
   std::vector<std::string> all(std::istream_iterator<std::string>(in), {});
   std::sort(all.begin(), all.end());
   std::string text;
   for (auto const& word : all) {
      text += (text.empty() ? "" : " ") + word;
   }
   return text;
}

} // namespace

std::string narrow(std::wstring const& text)
{
   std::string result;
   for (wchar_t const character : text) {
      result += character > 0 && character < 128 ? static_cast<char>(character) : '?';
   }
   return result;
}

std::wstring wide(std::string const& text) { return std::wstring(text.begin(), text.end()); }

VariableLengthData bytes(std::string const& text)
{
   return VariableLengthData(text.data(), static_cast<unsigned int>(text.size()));
}

std::string show(std::wstring const& text) { return narrow(text); }
std::string show(VariableLengthData const& data)
{
   std::string const characters(static_cast<char const*>(data.data()), data.size());
   std::string const shown = shownManagementValue(characters);
   return shown.empty() ? characters : shown;
}
std::string show(LogicalTime const& time) { return inBrackets(time.toString()); }
std::string show(LogicalTimeInterval const& interval) { return inBrackets(interval.toString()); }
std::string show(TimeQueryReturn const& answer) { return answer.timeIsValid ? show(*answer.time) : "none"; }
std::string show(OrderType order)
{
   static char const* const names[] = {"#0", "RO", "TSO"};
   return showOneOf(names, order);
}
std::string show(TransportationType transportation)
{
   static char const* const names[] = {"#0", "reliable", "best-effort"};
   return showOneOf(names, transportation);
}
std::string show(SynchronizationPointFailureReason reason)
{
   static char const* const names[] = {"label-not-unique", "member-not-joined"};
   return showOneOf(names, reason);
}
std::string show(SaveFailureReason reason)
{
   static char const* const names[] = {"unable",   "federate-failed",        "federate-resigned",
                                       "detected", "time-cannot-be-honored", "aborted"};
   return showOneOf(names, reason);
}
std::string show(RestoreFailureReason reason)
{
   static char const* const names[] = {"unable", "federate-failed", "federate-resigned", "detected",
                                       "aborted"};
   return showOneOf(names, reason);
}
std::string show(MessageRetractionHandle const& handle)
{
   return handle.isValid() ? "retractable" : "not retractable";
}
std::string show(SupplementalReflectInfo const& info) { return showProducer(info) + showRegions(info); }
std::string show(SupplementalReceiveInfo const& info) { return showProducer(info) + showRegions(info); }
std::string show(SupplementalRemoveInfo const& info) { return showProducer(info); }
std::string show(SaveStatus status)
{
   static char const* const names[] = {"idle", "instructed", "saving", "waiting"};
   return showOneOf(names, status);
}
std::string show(RestoreStatus status)
{
   static char const* const names[] = {"idle",     "requested", "awaiting-start",
                                       "prepared", "restoring", "waiting"};
   return showOneOf(names, status);
}
std::string show(FederateRestoreStatus const& status)
{
   return show(status.preRestoreHandle) + "=" + show(status.status);
}
std::string show(FederationExecutionInformation const& federation)
{
   return narrow(federation.federationExecutionName + L"=" + federation.logicalTimeImplementationName);
}
std::string show(bool value) { return value ? "true" : "false"; }
std::string show(double value)
{
   std::ostringstream text;
   text << value;
   return text.str();
}
std::string show(unsigned long value) { return std::to_string(value); }
std::string show(RangeBounds const& bounds)
{
   return show(bounds.getLowerBound()) + ".." + show(bounds.getUpperBound());
}
std::string show(ResignAction action)
{
   static char const* const names[] = {"UNCONDITIONALLY_DIVEST_ATTRIBUTES",     "DELETE_OBJECTS",
                                       "CANCEL_PENDING_OWNERSHIP_ACQUISITIONS", "DELETE_OBJECTS_THEN_DIVEST",
                                       "CANCEL_THEN_DELETE_THEN_DIVEST",        "NO_ACTION"};
   return showOneOf(names, action);
}
std::string show(ServiceGroup group)
{
   static char const* const names[] = {
      "FEDERATION_MANAGEMENT", "DECLARATION_MANAGEMENT",       "OBJECT_MANAGEMENT", "OWNERSHIP_MANAGEMENT",
      "TIME_MANAGEMENT",       "DATA_DISTRIBUTION_MANAGEMENT", "SUPPORT_SERVICES"};
   return showOneOf(names, group);
}

std::string showArgument(bool isFirst, LogicalTime const& time)
{
   return (isFirst ? "" : "at ") + show(time);
}
std::string showArgument(bool, VariableLengthData const& tag)
{
   return tag.size() == 0 ? "" : "tag=" + show(tag);
}

// A handle's own text does not tell its kind.
#define SYSTEM_TESTS_SHOW(Handle) \
   std::string show(Handle const& handle) { return #Handle "<" + inBrackets(handle.toString()) + ">"; }
RTI_FOR_EACH_HANDLE(SYSTEM_TESTS_SHOW)
#undef SYSTEM_TESTS_SHOW

std::string Names::in(std::string const& text) const
{
   std::lock_guard<std::mutex> const lock(_mutex);
   std::string named;
   std::size_t start = 0;
   while (start < text.size()) {
      std::size_t end = start;
      while (end < text.size() && std::string(" (){}=,").find(text[end]) == std::string::npos) {
         ++end;
      }
      std::string const word = text.substr(start, end - start);
      auto const found = _names.find(word);
      named += found == _names.end() ? word : found->second;
      if (end < text.size()) {
         named += text[end++];
      }
      start = end;
   }
   std::size_t open = 0;
   while ((open = named.find('{', open)) != std::string::npos) {
      std::size_t const close = named.find('}', open);
      std::string const list = sorted(named.substr(open + 1, close - open - 1));
      named.replace(open, close - open + 1, list);
      open += list.size();
   }
   return named;
}

} // namespace system_tests
