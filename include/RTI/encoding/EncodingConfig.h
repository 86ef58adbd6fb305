// The C++ types of the values that the encoding helpers wrap.
#ifndef RTI_EncodingConfig_h
#define RTI_EncodingConfig_h

#include <RTI/SpecificConfig.h>

#include <utility>

namespace rti1516e {

typedef char Octet;
typedef char Integer8;
typedef short Integer16;
typedef int Integer32;
typedef long long Integer64;
typedef std::pair<Octet, Octet> OctetPair;

static_assert(sizeof(Integer16) == 2 && sizeof(Integer32) == 4 && sizeof(Integer64) == 8,
              "the encodings need these widths");

} // namespace rti1516e

#endif
