// The part of the ambassador's interface that is code.
#include <RTI/RTIambassador.h>

namespace rti1516e {

RTIambassador::RTIambassador() = default;
RTIambassador::~RTIambassador() = default;

} // namespace rti1516e
