// How the values of the interface are written in what the tests record and expect.
#ifndef RTI1516E_TESTS_SYSTEM_TEXT_H
#define RTI1516E_TESTS_SYSTEM_TEXT_H

#include <RTI/RTI1516.h>

#include <map>
#include <mutex>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace system_tests {

using namespace rti1516e;

// ASCII only, which is all that the tests use.
std::string narrow(std::wstring const& text);
std::wstring wide(std::string const& text);

// A tag or value that holds the characters of a text.
VariableLengthData bytes(std::string const& text);

std::string trimmed(std::string const& text);
// The parts between the separators, without blanks around them.
std::vector<std::string> split(std::string const& text, char at);
// Separated by blanks; "between quotation marks" is one word.
std::vector<std::string> wordsOf(std::string const& text);
std::string joined(std::vector<std::string> const& words, std::string const& between = " ");

// A service or callback by its verb alone where that tells enough.
std::string nameInStories(std::string const& name);

inline std::string show(std::wstring const& text) { return narrow(text); }
std::string show(VariableLengthData const& data);
std::string show(LogicalTime const& time);
std::string show(LogicalTimeInterval const& interval);
inline std::string show(TimeQueryReturn const& answer)
{
   return answer.timeIsValid ? show(*answer.time) : "none";
}
inline std::string show(MessageRetractionHandle const& handle)
{
   return handle.isValid() ? "retractable" : "not retractable";
}
inline std::string show(FederationExecutionInformation const& federation)
{
   return narrow(federation.federationExecutionName + L"=" + federation.logicalTimeImplementationName);
}
inline std::string show(bool value) { return value ? "true" : "false"; }
std::string show(double value);
inline std::string show(unsigned long value) { return std::to_string(value); }
inline std::string show(RangeBounds const& bounds)
{
   return show(bounds.getLowerBound()) + ".." + show(bounds.getUpperBound());
}
inline std::string show(LogicalTimeFactory const& factory) { return narrow(factory.getName()); }

template <class Enum>
std::string showOneOf(std::vector<std::string> const& names, Enum value)
{
   auto const index = static_cast<std::size_t>(value);
   return index < names.size() ? names[index] : "#" + std::to_string(index);
}
#define SHOW_ENUMERATORS(Enum, ...) \
   inline std::string show(Enum value) { return showOneOf({__VA_ARGS__}, value); }
SHOW_ENUMERATORS(OrderType, "#0", "RO", "TSO")
SHOW_ENUMERATORS(TransportationType, "#0", "reliable", "best-effort")
SHOW_ENUMERATORS(SynchronizationPointFailureReason, "label-not-unique", "member-not-joined")
SHOW_ENUMERATORS(SaveFailureReason, "unable", "federate-failed", "federate-resigned", "detected",
                 "time-cannot-be-honored", "aborted")
SHOW_ENUMERATORS(RestoreFailureReason, "unable", "federate-failed", "federate-resigned", "detected",
                 "aborted")
SHOW_ENUMERATORS(SaveStatus, "idle", "instructed", "saving", "waiting")
SHOW_ENUMERATORS(RestoreStatus, "idle", "requested", "awaiting-start", "prepared", "restoring", "waiting")
SHOW_ENUMERATORS(ResignAction, "UNCONDITIONALLY_DIVEST_ATTRIBUTES", "DELETE_OBJECTS",
                 "CANCEL_PENDING_OWNERSHIP_ACQUISITIONS", "DELETE_OBJECTS_THEN_DIVEST",
                 "CANCEL_THEN_DELETE_THEN_DIVEST", "NO_ACTION")
SHOW_ENUMERATORS(ServiceGroup, "FEDERATION_MANAGEMENT", "DECLARATION_MANAGEMENT", "OBJECT_MANAGEMENT",
                 "OWNERSHIP_MANAGEMENT", "TIME_MANAGEMENT", "DATA_DISTRIBUTION_MANAGEMENT",
                 "SUPPORT_SERVICES")
#undef SHOW_ENUMERATORS

template <class Value>
std::string show(std::auto_ptr<Value> const& value)
{
   return show(*value);
}

template <class Value>
constexpr bool isHandle = std::is_same_v<Value, MessageRetractionHandle>;

// Handles as Kind<number>, for Names to replace.
#define SYSTEM_TESTS_HANDLE(Handle)        \
   std::string show(Handle const& handle); \
   template <>                             \
   constexpr bool isHandle<Handle> = true;
RTI_FOR_EACH_HANDLE(SYSTEM_TESTS_HANDLE)
#undef SYSTEM_TESTS_HANDLE

inline std::string show(FederateRestoreStatus const& status)
{
   return show(status.preRestoreHandle) + "=" + show(status.status);
}

template <class First, class Second>
std::string show(std::pair<First, Second> const& entry)
{
   return show(entry.first) + "=" + show(entry.second);
}

// Sets, maps and vectors whose order tells nothing: {a b c}.
template <class Range>
auto show(Range const& range) -> decltype(range.begin(), std::string())
{
   std::string text;
   for (auto const& element : range) {
      text += (text.empty() ? "" : " ") + show(element);
   }
   return "{" + text + "}";
}

// The supplemental information of a message.
template <class Info>
auto show(Info const& info) -> decltype(info.producingFederate, std::string())
{
   std::string text = info.hasProducingFederate ? "by " + show(info.producingFederate) : "by somebody";
   if constexpr (!std::is_same_v<Info, SupplementalRemoveInfo>) {
      text += info.sentRegions.empty() ? "" : " from " + show(info.sentRegions);
   }
   return text;
}

// A callback's argument in the texts of callbacks: a tag is told as one, where there is one, and so is a time
// that is not all there is to say; and of a handle only whether there is one, unless it is all.
template <class Argument>
std::string showArgument(bool, Argument const& argument)
{
   return show(argument);
}
inline std::string showArgument(bool isFirst, LogicalTime const& time)
{
   return (isFirst ? "" : "at ") + show(time);
}
inline std::string showArgument(bool, VariableLengthData const& tag)
{
   return tag.size() == 0 ? "" : "tag=" + show(tag);
}
inline std::string showArgument(bool isFirst, MessageRetractionHandle const& handle)
{
   return isFirst ? show(handle.toString()) : show(handle);
}

// What the federates of one test call their handles. Any thread may use it.
class Names
{
public:
   // Also for a text in place of a handle.
   template <class Handle>
   void add(Handle const& handle, std::string const& name)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      _names[showArgument(true, handle)] = name;
   }

   // The text with each handle that has a name replaced by it, and with what stands in braces sorted and
   // without them.
   std::string in(std::string const& text) const;

private:
   mutable std::mutex _mutex;
   std::map<std::string, std::string> _names;
};

} // namespace system_tests

#endif
