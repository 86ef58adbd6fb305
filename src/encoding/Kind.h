// The library's own element classes, known by their exact dynamic type, so that arrays and records work on
// the bodies of such elements and ask for nothing twice. Every other class is foreign, one that is derived
// from an element of the library included, and is used through its virtual operations alone.
#pragma once

#include <RTI/encoding/BasicDataElements.h>
#include <RTI/encoding/DataElement.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <typeinfo>

namespace rti1516e {

class ElementBlock;

#define RTI_FOR_EACH_CONSTRUCTED_ELEMENT(X) \
   X(HLAfixedArray)                         \
   X(HLAvariableArray)                      \
   X(HLAfixedRecord)                        \
   X(HLAvariantRecord)                      \
   X(HLAopaqueData)

enum class Kind : std::uint8_t
{
   foreign,
#define RTI_ENUMERATE_BASIC(Name, Value) Name,
#define RTI_ENUMERATE(Name) Name,
   RTI_FOR_EACH_BASIC_ELEMENT(RTI_ENUMERATE_BASIC)
   RTI_FOR_EACH_CONSTRUCTED_ELEMENT(RTI_ENUMERATE)
#undef RTI_ENUMERATE
#undef RTI_ENUMERATE_BASIC
      count
};

// What is known of the elements of a kind.
struct KindOperations
{
   std::type_info const* type;
   // Of every element of the kind; 0 if they differ.
   unsigned int boundary;
   std::size_t fixedLength;

   // Where an array keeps elements of the kind, if it does not make them singly.
   std::unique_ptr<ElementBlock> (*makeBlock)(std::size_t capacity);
   // Gives an element the value of another, both of the kind. Null where makeBlock is.
   void (*assign)(DataElement&, DataElement const&);
};

extern KindOperations const kindOperations[];

inline KindOperations const& operationsOf(Kind kind) noexcept
{
   return kindOperations[static_cast<std::size_t>(kind)];
}

// Looks at `likely` first.
Kind kindOf(DataElement const& element, Kind likely = Kind::foreign) noexcept;

} // namespace rti1516e
