#include "src/encoding/Kind.h"

#include "src/encoding/ElementAccess.h"
#include "src/encoding/ElementBlock.h"
#include "src/encoding/OpaqueBytes.h"

#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>

namespace rti1516e {

namespace {

template <class Element>
using BodyOf = std::remove_reference_t<decltype(ElementAccess::body(std::declval<Element&>()))>;

template <class Element>
void assign(DataElement& element, DataElement const& other)
{
   ElementAccess::body(static_cast<Element&>(element))
      .set(ElementAccess::body(static_cast<Element const&>(other)).value());
}

template <class Element>
constexpr KindOperations operations()
{
   return {&typeid(Element), commonBoundary<BodyOf<Element>>, 0, nullptr, nullptr};
}

template <class Element>
constexpr KindOperations operationsOfBasic()
{
   return {&typeid(Element), TraitsOf<Element>::boundary, TraitsOf<Element>::fixedLength,
           BasicBlock<Element>::make, assign<Element>};
}

} // namespace

constexpr KindOperations kindOperations[] = {{&typeid(DataElement), 0, 0, nullptr, nullptr},
#define RTI_BASIC(Name, Value) operationsOfBasic<Name>(),
#define RTI_CONSTRUCTED(Name) operations<Name>(),
                                             RTI_FOR_EACH_BASIC_ELEMENT(RTI_BASIC)
                                                RTI_FOR_EACH_CONSTRUCTED_ELEMENT(RTI_CONSTRUCTED)
#undef RTI_CONSTRUCTED
#undef RTI_BASIC
};

Kind kindOf(DataElement const& element, Kind likely) noexcept
{
   std::type_info const* const type = &typeid(element);
   if (type == operationsOf(likely).type) {
      return likely;
   }
   auto const* const found = std::find_if(std::begin(kindOperations), std::end(kindOperations),
                                          [type](KindOperations const& each) { return each.type == type; });
   return found == std::end(kindOperations) ? Kind::foreign
                                            : static_cast<Kind>(found - std::begin(kindOperations));
}

} // namespace rti1516e
