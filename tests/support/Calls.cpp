#include "tests/support/Calls.h"

#include "src/messages/TypeCodes.h"
#include "src/services/Results.h"
#include "tests/support/RandomValue.h"

#include <tuple>
#include <type_traits>

namespace contract {
namespace {

// Of the library only the names of the codes are taken: the type that one stands for.
template <class Code>
struct TypeOf : Type<std::decay_t<typename Code::Argument>>
{};
template <>
struct TypeOf<tovu1516e::LT> : Type<TestTime>
{};
template <>
struct TypeOf<tovu1516e::FA> : Type<FederateAmbassador>
{};
template <>
struct TypeOf<tovu1516e::LTI> : Type<TestInterval>
{};

template <class Signature>
struct Arguments;
template <class Result, class... Codes>
struct Arguments<Result(Codes...)>
{
   static auto make(Octets& octets)
   {
      RandomValue random(octets);
      return std::tuple<decltype(random.make(TypeOf<Codes>()))...>{random.make(TypeOf<Codes>())...};
   }
   static Bytes makeEncoded(Octets& octets) { return std::apply(encoded, make(octets)); }
};

template <class Signature, class Call>
ServiceCall makeCall(Call call, Octets& octets)
{
   auto const arguments = Arguments<Signature>::make(octets);
   return {std::apply(encoded, arguments), [call, arguments](RTIambassador& rti) {
              auto const calling = [&](auto&... each) { return call(rti, each...); };
              if constexpr (std::is_void_v<decltype(std::apply(calling, arguments))>) {
                 std::apply(calling, arguments);
                 return Bytes();
              } else {
                 return encoded(std::apply(calling, arguments));
              }
           }};
}

} // namespace

std::vector<Service> const& services()
{
   using namespace tovu1516e;
   static std::vector<Service> const all = {
#define SERVICE(method, signature, call)                                                           \
   {#method, [](Octets& octets) {                                                                  \
       return makeCall<signature>([](RTIambassador& rti, auto&... each) { return call; }, octets); \
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
