// Entries one after another, with the operations of a body upon all of them.
#pragma once

#include "src/encoding/Entry.h"
#include "src/encoding/Extent.h"
#include "src/encoding/Input.h"
#include "src/encoding/Output.h"

#include <cstddef>

namespace rti1516e {

// Appends the extents, and makes the entries remember the boundaries. Those that the kinds tell are included
// already.
Extent measure(Entry const* first, Entry const* last, Wanted wanted, Extent all);

// With the padding in front of each element.
std::size_t write(Entry const* first, Entry const* last, Output& out, std::size_t index);
std::size_t read(Entry const* first, Entry const* last, Input const& in, std::size_t index);

} // namespace rti1516e
