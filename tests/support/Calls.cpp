#include "tests/support/Calls.h"

#include "src/messages/TypeCodes.h"
#include "src/services/Results.h"
#include "tests/support/RandomValue.h"

#include <RTI/NullFederateAmbassador.h>

#include <memory>
#include <tuple>
#include <type_traits>

namespace contract {
namespace {

// Of the library only the names of the codes are taken: the type that one stands for.
template <class Code>
using TypeOf = std::conditional_t<std::is_same_v<Code, tovu1516e::LT>, TestTime,
                                  std::conditional_t<std::is_same_v<Code, tovu1516e::LTI>, TestInterval,
                                                     std::decay_t<typename Code::Argument>>>;

// What connect is called with; its token stands before the message.
struct Nobody
{
   operator FederateAmbassador&() const
   {
      static NullFederateAmbassador nobody;
      return nobody;
   }
   static VariableLengthData encode() { return {}; }
};

template <class Code>
auto randomArgument(Octets& octets)
{
   if constexpr (std::is_same_v<Code, tovu1516e::FA>) {
      return Nobody();
   } else {
      return randomValue<TypeOf<Code>>(octets);
   }
}

template <class Signature>
struct Arguments;
template <class Result, class... Codes>
struct Arguments<Result(Codes...)>
{
   static auto make(Octets& octets)
   {
      return std::tuple<decltype(randomArgument<Codes>(octets))...>{randomArgument<Codes>(octets)...};
   }
   static Bytes makeEncoded(Octets& octets)
   {
      return std::apply([](auto const&... each) { return encoded(each...); }, make(octets));
   }
};

template <class Signature, class Call>
ServiceCall makeCall(Call call, Octets& octets)
{
   auto const arguments =
      std::make_shared<decltype(Arguments<Signature>::make(octets))>(Arguments<Signature>::make(octets));
   auto const message = std::apply([](auto const&... each) { return encoded(each...); }, *arguments);
   return {message, [call, arguments](RTIambassador& rti) {
              auto const calling = [&](auto const&... each) { return call(rti, each...); };
              if constexpr (std::is_void_v<decltype(std::apply(calling, *arguments))>) {
                 std::apply(calling, *arguments);
                 return Bytes();
              } else {
                 return encoded(std::apply(calling, *arguments));
              }
           }};
}

AttributeHandleSet divestIfWanted(RTIambassador& rti, ObjectInstanceHandle object,
                                  AttributeHandleSet const& attributes)
{
   AttributeHandleSet divested = attributes;
   rti.attributeOwnershipDivestitureIfWanted(object, attributes, divested);
   return divested;
}

void subscribeWithRegions(RTIambassador& rti, InteractionClassHandle type, bool active,
                          RegionHandleSet const& regions)
{
   rti.subscribeInteractionClassWithRegions(type, regions, active);
}

} // namespace

std::vector<Service> const& services()
{
   using namespace tovu1516e;
   static std::vector<Service> const all = {
#define SERVICE(method, signature, call)                                                                 \
   {#method, [](Octets& octets) {                                                                        \
       return makeCall<signature>([](RTIambassador& rti, auto const&... each) { return call; }, octets); \
    }},
#include "tests/support/Services.def"
   };
   return all;
}

std::vector<Callback> const& callbacks()
{
   using namespace tovu1516e;
   static std::vector<Callback> const all = {
#define CALLBACK(native, member, signature) {#native "_Native", #member, &Arguments<signature>::makeEncoded},
#include "src/callbacks/Callbacks.def"
   };
   return all;
}

} // namespace contract
