// What a federate's ambassador really is.
#pragma once

#include <RTI/RTIambassador.h>

#include <memory>

namespace tovu1516e {

// Throws RTIinternalError if the infrastructure cannot be reached.
std::unique_ptr<rti1516e::RTIambassador> makeRTIambassadorAdapter();

} // namespace tovu1516e
