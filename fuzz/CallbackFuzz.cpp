// Delivers well-formed messages with any arguments to the natives, in a process without a Java VM. An input
// is the number of a native, what the federate does when it is called, and the octets that the arguments are
// made of. The federate must see what was sent, and nothing may be left pinned or referenced.
#include "tests/contract/RecordingFederate.h"
#include "tests/contract/Samples.h"
#include "tests/faults/FakeJava.h"

#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Time.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <type_traits>

namespace {

using namespace rti1516e;
using contract::Bytes;

[[noreturn]] void fail(std::string const& what)
{
   std::fprintf(stderr, "%s\n", what.c_str());
   std::abort();
}

// An input, read from the front; what is beyond its end is zero.
class Octets
{
public:
   Octets(std::uint8_t const* octets, std::size_t size) : _next(octets), _end(octets + size) {}

   std::uint8_t octet() { return _next == _end ? std::uint8_t{0} : *_next++; }
   unsigned int below(unsigned int bound) { return octet() % bound; }
   std::uint32_t int32()
   {
      std::uint32_t value = 0;
      for (int i = 0; i < 4; ++i) {
         value = value << 8 | octet();
      }
      return value;
   }
   Bytes bytes()
   {
      Bytes bytes;
      for (unsigned int left = below(20); left > 0; --left) {
         bytes.byte(octet());
      }
      return bytes;
   }

private:
   std::uint8_t const* _next;
   std::uint8_t const* _end;
};

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
   return contract::data(bytes);
}

#define MAKE_HANDLE(Handle)                                            \
   [[maybe_unused]] Handle make(Type<Handle>, Octets& from, Bytes& to) \
   {                                                                   \
      auto const number = from.int32();                                \
      to.int32(number);                                                \
      return contract::handle<Handle>(number);                         \
   }
RTI_FOR_EACH_HANDLE(MAKE_HANDLE)
#undef MAKE_HANDLE

MessageRetractionHandle make(Type<MessageRetractionHandle>, Octets& from, Bytes& to)
{
   auto const encoded = Bytes().int32(from.int32()).counted(from.bytes());
   to.append(encoded);
   return contract::decodedHandle<MessageRetractionHandle>(encoded);
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

HLAinteger64Time make(Type<HLAinteger64Time>, Octets& from, Bytes& to)
{
   auto const time = static_cast<std::uint64_t>(from.int32()) << 32 | from.int32();
   to.int64(time);
   return HLAinteger64Time(static_cast<Integer64>(time));
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
constexpr Maker maker = [](Octets& from, Bytes& to) { return contract::shown(make(Type<T>(), from, to)); };

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
      {"LT", maker<HLAinteger64Time>},
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

constexpr char const* natives[] = {
#define CALLBACK(name, ...) #name "_Native",
#include "src/callbacks/Callbacks.def"
};

// A member of a federation. It is made anew now and then, because the VM that is none keeps what it has made.
struct Member
{
   Member()
   {
      fake::reset();
      ambassador.reset(RTIambassadorFactory().createRTIambassador().release());
      ambassador->connect(federate, HLA_EVOKED);
      token = Bytes(fake::lastMessage().data(), 4).leadingInt();
      fake::core().text = u"HLAinteger64Time";
      ambassador->joinFederationExecution(L"type", L"federation");
   }

   contract::RecordingFederate federate;
   std::unique_ptr<RTIambassador> ambassador;
   std::uint32_t token = 0;
};

// A text as JNI takes it: no zero, and no sequence that is cut off.
void requireJniText(std::string const& text)
{
   auto const isTrailing = [&](std::size_t i) { return i < text.size() && (text[i] & 0xC0) == 0x80; };
   for (std::size_t i = 0; i < text.size(); ++i) {
      auto const lead = static_cast<unsigned char>(text[i]);
      int const trailing = lead < 0x80 ? 0 : (lead & 0xE0) == 0xC0 ? 1 : (lead & 0xF0) == 0xE0 ? 2 : -1;
      if (lead == 0 || trailing < 0) {
         fail("a text that JNI does not take");
      }
      for (int left = trailing; left > 0; --left) {
         if (!isTrailing(++i)) {
            fail("a text that is cut off");
         }
      }
   }
}

void expectClean()
{
   auto const held = fake::holdings();
   if (held.localReferences != 0 || held.pins != 0 || held.pending || held.globalReferences != 1) {
      fail("something is still held");
   }
   if (!fake::offences().empty()) {
      fail(fake::offences().front());
   }
}

// What the federate does when it is called, and whether that is to throw.
std::function<void()> reactionOf(Octets& octets)
{
   switch (octets.below(4)) {
   case 1: {
      Bytes ignored;
      auto const text = make(Type<std::wstring>(), octets, ignored);
      return [text] { throw NameNotFound(text); };
   }
   case 2: {
      Bytes const bytes = octets.bytes();
      std::string const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
      return [text] { throw text; };
   }
   default:
      return nullptr;
   }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
   static std::unique_ptr<Member> member;
   static int inputs = 0;
   if (inputs++ % 1000 == 0) {
      member.reset();
      member = std::make_unique<Member>();
   }

   Octets octets(data, size);
   std::string const native = natives[octets.below(std::size(natives))];
   member->federate.inCallback = reactionOf(octets);
   Bytes message = Bytes("63626160").int32(member->token);
   std::wstring expected = contract::widened(native.substr(0, native.find('_'))) + L"(";
   wchar_t const* separator = L"";
   for (auto const& code : contract::codesOf(native)) {
      expected += separator + makerOf(code)(octets, message);
      separator = L", ";
   }
   expected += L")";
   message.append(Bytes("59585756"));

   std::string const pending = fake::callNative(native, {message.data(), message.data() + message.size()});
   auto const called = member->federate.takeCalled();
   if (called.size() != 1 || called.front() != expected) {
      fail(native + " has not brought what was sent");
   }
   std::string const thrown = "hla/rti1516e/exceptions/FederateInternalError: ";
   if (member->federate.inCallback) {
      if (pending.compare(0, thrown.size(), thrown) != 0) {
         fail("thrown in vain: " + pending);
      }
      requireJniText(pending.substr(thrown.size()));
   } else if (pending != "none") {
      fail("thrown by nobody: " + pending);
   }
   expectClean();
   return 0;
}
