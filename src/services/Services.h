// The services as values: a row of Services.def each, and what follows from it.
#pragma once

#include "src/jvm/JavaException.h"
#include "src/messages/TypeCodes.h"
#include "src/services/Results.h"

#include <cstddef>

namespace tovu1516e {

// A list of exceptions; a list within a list stands for its members.
template <class... Exceptions>
struct Raises
{
   static constexpr std::size_t count = sizeof...(Exceptions);
   static constexpr JavaException table[count + 1] = {javaException<Exceptions>...};
};

template <class Left, class Right>
struct Joined;
template <class... Left, class... Right>
struct Joined<Raises<Left...>, Raises<Right...>>
{
   using List = Raises<Left..., Right...>;
};

template <class... Exceptions>
struct Flattened
{
   using List = Raises<>;
};
template <class First, class... Rest>
struct Flattened<First, Rest...>
{
   using List = typename Joined<Raises<First>, typename Flattened<Rest...>::List>::List;
};
template <class... Inner, class... Rest>
struct Flattened<Raises<Inner...>, Rest...>
{
   using List = typename Joined<Raises<Inner...>, typename Flattened<Rest...>::List>::List;
};

// What of a service does not depend on its types: enough to look its method up and to call it.
struct Method
{
   std::size_t index; // in the method table
   char const* name;
   char const* signature;
   JavaType result;
   JavaExceptions exceptions;
};

template <class Signature>
struct Service;

template <class ResultType, class... Codes>
struct Service<ResultType(Codes...)> : Method
{
   template <class Exceptions>
   constexpr Service(std::size_t index_, char const* name_, Exceptions)
      : Method{index_,
               name_,
               signatureOf(methodSignatures[static_cast<int>(Result<ResultType>::javaType)]),
               Result<ResultType>::javaType,
               {Exceptions::table, Exceptions::count}}
   {}

   static constexpr char const* signatureOf(MethodSignatures const& signatures)
   {
      return sizeof...(Codes) == 0 ? signatures.bare : signatures.withMessage;
   }

   static constexpr bool names(std::string_view name) { return namesCodes<Codes...>(name); }
};

namespace services {

using namespace rti1516e;

// Exceptions that rows have in common.
using NONE = Raises<>;
using SAVE_OR_RESTORE = Raises<SaveInProgress, RestoreInProgress>;
using NO_MEMBER = Raises<FederateNotExecutionMember, NotConnected, RTIinternalError>;
using UNKNOWN_OBJECT = Raises<AttributeNotDefined, ObjectInstanceNotKnown>;
using ADVANCE = Raises<LogicalTimeAlreadyPassed, InvalidLogicalTime, InTimeAdvancingState,
                       RequestForTimeRegulationPending, RequestForTimeConstrainedPending>;
using NOT_ITS_REGION = Raises<RegionNotCreatedByThisFederate, InvalidRegion>;
using WRONG_REGION = Flattened<InvalidRegionContext, NOT_ITS_REGION>::List;

enum Index : std::size_t
{
#define SERVICE(name, ...) index_##name,
#include "src/services/Services.def"
   count
};

#define SERVICE(name, signature, ...)                                                             \
   inline constexpr Service<signature> name{index_##name, #name, Flattened<__VA_ARGS__>::List()}; \
   static_assert(Service<signature>::names(#name), #name " does not end in the codes of its parameters");
#include "src/services/Services.def"

static_assert(count == 142);

} // namespace services

} // namespace tovu1516e
