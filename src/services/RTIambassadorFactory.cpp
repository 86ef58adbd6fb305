#include "src/services/RTIambassadorAdapter.h"

#include <RTI/RTI1516.h>

namespace rti1516e {

RTIambassadorFactory::RTIambassadorFactory() = default;
RTIambassadorFactory::RTIambassadorFactory(RTIambassadorFactory const&) = default;
RTIambassadorFactory::~RTIambassadorFactory() = default;

std::auto_ptr<RTIambassador> RTIambassadorFactory::createRTIambassador()
{
   return std::auto_ptr<RTIambassador>(tovu1516e::makeRTIambassadorAdapter().release());
}

std::wstring rtiName() { return L"Tovu Evolved"; }

std::wstring rtiVersion() { return L"5.3.2.0"; }

} // namespace rti1516e
