// What both arrays ask before they replace an element.
#pragma once

#include "src/encoding/Failure.h"

#include <RTI/encoding/DataElement.h>

#include <cstddef>

namespace rti1516e {

template <class Array>
void requireReplaceable(Array const& array, std::size_t index, DataElement const& element)
{
   array[index]; // fails if there is none
   if (!array.hasPrototypeSameTypeAs(element)) {
      failure::raise(failure::notLikePrototype);
   }
}

} // namespace rti1516e
