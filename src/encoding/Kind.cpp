#include "src/encoding/Kind.h"

#include "src/encoding/BasicBody.h"
#include "src/encoding/CountedList.h"
#include "src/encoding/ElementAccess.h"
#include "src/encoding/ElementBlock.h"
#include "src/encoding/ElementList.h"
#include "src/encoding/OpaqueBytes.h"
#include "src/encoding/Variant.h"

#include <RTI/encoding/HLAfixedArray.h>
#include <RTI/encoding/HLAfixedRecord.h>
#include <RTI/encoding/HLAopaqueData.h>
#include <RTI/encoding/HLAvariableArray.h>
#include <RTI/encoding/HLAvariantRecord.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace rti1516e {

namespace {

// The octet boundary of all elements of a class; 0 if it depends on what is in them.
template <class Element, class = void>
constexpr unsigned int commonBoundary = 0;
template <class Element>
constexpr unsigned int commonBoundary<Element, std::void_t<decltype(TraitsOf<Element>::boundary)>> =
   TraitsOf<Element>::boundary;
template <>
constexpr unsigned int commonBoundary<HLAopaqueData> = OpaqueBytes::boundary;

// The operations of the body in an element of a known class.
template <class Element>
struct Known
{
   // The compiler knows better than a variable what to align basic elements to.
   static constexpr unsigned int known(unsigned int boundary)
   {
      return commonBoundary<Element> != 0 ? commonBoundary<Element> : boundary;
   }
   static auto const& body(DataElement const& element)
   {
      return ElementAccess::body(static_cast<Element const&>(element));
   }
   static auto& body(DataElement& element) { return ElementAccess::body(static_cast<Element&>(element)); }

   static Extent measure(DataElement const& element, Wanted wanted) { return body(element).measure(wanted); }
   static void write(DataElement const& element, unsigned int boundary, Output& out)
   {
      out.align(known(boundary));
      body(element).write(out);
   }
   static std::size_t read(DataElement& element, unsigned int boundary, Input const& in, std::size_t index)
   {
      return body(element).read(in, alignUp(index, known(boundary)));
   }
   static void assign(DataElement& element, DataElement const& other)
   {
      body(element).set(body(other).value());
   }
};

struct Foreign
{
   static Extent measure(DataElement const& element, Wanted wanted)
   {
      std::size_t const length = wanted == Wanted::lengthInAnyCase ? element.getEncodedLength() : 0;
      return {length, std::max(element.getOctetBoundary(), 1U), true};
   }
   static void write(DataElement const& element, unsigned int, Output& out) { out.foreign(element); }
   static std::size_t read(DataElement& element, unsigned int boundary, Input const& in, std::size_t index)
   {
      return element.decodeFrom(in.buffer(), alignUp(index, boundary));
   }
};

template <class Operations>
constexpr KindOperations operations(std::type_info const& type, unsigned int boundary)
{
   return {&type, boundary, 0, Operations::measure, Operations::write, Operations::read, nullptr, nullptr};
}

template <class Element>
constexpr KindOperations operationsOfElement()
{
   return operations<Known<Element>>(typeid(Element), commonBoundary<Element>);
}

template <class Element>
constexpr KindOperations operationsOfBasicElement()
{
   KindOperations basic = operationsOfElement<Element>();
   basic.fixedLength = TraitsOf<Element>::fixedLength;
   basic.makeBlock = BasicBlock<Element>::make;
   basic.assign = Known<Element>::assign;
   return basic;
}

} // namespace

constexpr KindOperations kindOperations[] = {operations<Foreign>(typeid(DataElement), 0),
#define RTI_BASIC(Name, Value) operationsOfBasicElement<Name>(),
#define RTI_CONSTRUCTED(Name) operationsOfElement<Name>(),
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
