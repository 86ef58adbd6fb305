// A vehicle's ways into octets and out of them. What each needs is made once, for a number of points, and
// used again by each encoding and decoding, as far as it can be.
#pragma once

#include "bench/records/Vehicle.h"

#include <memory>

namespace bench {

class Codec
{
public:
   virtual ~Codec() = default;
   virtual char const* name() const = 0;
   // Of the values that it was made with, into memory that it keeps.
   virtual void encode() = 0;
   // Decodes what was encoded last, into variables that are there.
   virtual void decode() = 0;
   // What was decoded.
   virtual Vehicle decoded() const = 0;
};

using MadeCodec = std::unique_ptr<Codec>;

// A loop over the variables that writes what the elements write.
MadeCodec codecByHand(Vehicle const& vehicle);
// The library's, which are all lent, and use the variables.
MadeCodec codecOfElements(Vehicle const& vehicle);

// Those that are installed here, from the variables and into them. Of Protobuf also the part that is left to
// a program that keeps its values in a message, and of Cap'n Proto the least that can be done.
MadeCodec codecOfProtobuf(Vehicle const& vehicle);
MadeCodec codecOfProtobufMessage(Vehicle const& vehicle);
MadeCodec codecOfCapnProto(Vehicle const& vehicle);
MadeCodec codecOfCapnProtoSegment(Vehicle const& vehicle);
MadeCodec codecOfFlatBuffers(Vehicle const& vehicle);

} // namespace bench
