// The parts of the federate ambassador's interface that are code.
#include <RTI/NullFederateAmbassador.h>

namespace rti1516e {

FederateAmbassador::FederateAmbassador() = default;
FederateAmbassador::~FederateAmbassador() = default;

NullFederateAmbassador::NullFederateAmbassador() = default;
NullFederateAmbassador::NullFederateAmbassador(NullFederateAmbassador const&) = default;
NullFederateAmbassador& NullFederateAmbassador::operator=(NullFederateAmbassador const&) = default;
NullFederateAmbassador::~NullFederateAmbassador() = default;

} // namespace rti1516e
