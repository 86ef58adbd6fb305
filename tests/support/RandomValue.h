// Values of every type of the interface, made of octets.
#pragma once

#include "tests/support/Encoding.h"
#include "tests/support/TestTime.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace contract {

inline VariableLengthData data(Bytes const& bytes)
{
   return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

// As the federate can make handles: through their encoding.
template <class Handle>
Handle handle(Bytes const& bytes)
{
   struct Maker : Handle
   {
      explicit Maker(VariableLengthData const& encoding) : Handle(encoding) {}
   };
   return Maker(data(bytes));
}
template <class Handle>
Handle handle(std::uint32_t number)
{
   return handle<Handle>(Bytes().int32(number));
}

template <class T>
struct Type
{};

class RandomValue
{
public:
   explicit RandomValue(Octets& from) : _from(from) {}

   bool make(Type<bool>) { return _from.below(2) != 0; }
   double make(Type<double>) { return static_cast<double>(_from.int32()) / 8; }

   // Units of every kind, surrogates out of pairs too.
   std::wstring make(Type<std::wstring>)
   {
      static wchar_t const kinds[] = {L'\0', L'a', 0xFF, 0x20AC, 0x1F680, 0x10FFFF, 0xFFFF, 0xD83D};
      std::wstring text;
      for (unsigned int left = _from.below(12); left > 0; --left) {
         auto const kind = _from.octet();
         bool const afterHigh = !text.empty() && text.back() == 0xD83D; // with which it could make a pair
         text.push_back(kind < 8       ? kinds[kind]
                        : kind == 0xDE ? (afterHigh ? L'b' : wchar_t(0xDE80))
                                       : static_cast<wchar_t>(kind));
      }
      return text;
   }
   VariableLengthData make(Type<VariableLengthData>) { return data(_from.bytes()); }

   TestTime make(Type<TestTime>)
   {
      Integer64 const high = static_cast<std::int32_t>(_from.int32());
      return TestTime(high * 0x100000000 + _from.int32());
   }
   TestInterval make(Type<TestInterval>) { return TestInterval(_from.octet()); }
   MessageRetractionHandle make(Type<MessageRetractionHandle>)
   {
      auto const number = Bytes().int32(_from.int32());
      return handle<MessageRetractionHandle>(Bytes(number).counted(_from.bytes()));
   }
   template <class Own>
   auto make(Type<Own>) -> decltype(std::declval<Own>().isValid(), Own())
   {
      return handle<Own>(_from.int32());
   }
   template <class Enum>
   auto make(Type<Enum>) -> decltype(Enumerators<Enum>::first, Enum())
   {
      auto const values = static_cast<unsigned int>(Enumerators<Enum>::last - Enumerators<Enum>::first + 1);
      return static_cast<Enum>(Enumerators<Enum>::first + static_cast<int>(_from.below(values)));
   }

   FederateAmbassador& make(Type<FederateAmbassador>)
   {
      static NullFederateAmbassador nobody;
      return nobody;
   }
   RangeBounds make(Type<RangeBounds>) { return {_from.int32(), _from.int32()}; }
   template <class First, class Second>
   std::pair<First, Second> make(Type<std::pair<First, Second>>)
   {
      return {make(Type<std::remove_const_t<First>>()), make(Type<Second>())};
   }
   template <class Container, class Element = typename Container::value_type>
   auto make(Type<Container>) -> decltype(std::declval<Container&>().clear(), Container())
   {
      Container elements;
      for (unsigned int left = _from.below(6); left > 0; --left) {
         elements.insert(elements.end(), make(Type<Element>()));
      }
      return elements;
   }

   FederateRestoreStatus make(Type<FederateRestoreStatus>)
   {
      return {make(Type<FederateHandle>()), make(Type<FederateHandle>()), make(Type<RestoreStatus>())};
   }
   FederationExecutionInformation make(Type<FederationExecutionInformation>)
   {
      return {make(Type<std::wstring>()), make(Type<std::wstring>())};
   }
   template <class Info>
   auto make(Type<Info>) -> decltype(std::declval<Info>().hasProducingFederate, Info())
   {
      Info info;
      info.hasProducingFederate = make(Type<bool>());
      info.producingFederate = make(Type<FederateHandle>());
      if constexpr (!std::is_same_v<Info, SupplementalRemoveInfo>) {
         info.hasSentRegions = make(Type<bool>());
         info.sentRegions = make(Type<RegionHandleSet>());
      }
      return info;
   }

private:
   Octets& _from;
};

} // namespace contract
