// The parts of the ambassador interfaces that are code.
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTIambassador.h>

namespace rti1516e {

RTIambassador::RTIambassador() = default;
RTIambassador::~RTIambassador() = default;

FederateAmbassador::FederateAmbassador() = default;
FederateAmbassador::~FederateAmbassador() = default;

NullFederateAmbassador::NullFederateAmbassador() = default;
NullFederateAmbassador::NullFederateAmbassador(NullFederateAmbassador const&) = default;
NullFederateAmbassador& NullFederateAmbassador::operator=(NullFederateAmbassador const&) = default;
NullFederateAmbassador::~NullFederateAmbassador() = default;

} // namespace rti1516e
