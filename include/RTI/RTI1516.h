// Everything of the interface but the standard logical times (RTI/time) and the data encoding helpers
// (RTI/encoding).
#ifndef RTI_RTI1516_h
#define RTI_RTI1516_h

#include <RTI/Enums.h>
#include <RTI/Exception.h>
#include <RTI/FederateAmbassador.h>
#include <RTI/Handle.h>
#include <RTI/LogicalTime.h>
#include <RTI/LogicalTimeFactory.h>
#include <RTI/LogicalTimeInterval.h>
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTIambassador.h>
#include <RTI/RTIambassadorFactory.h>
#include <RTI/RangeBounds.h>
#include <RTI/SpecificConfig.h>
#include <RTI/Typedefs.h>
#include <RTI/VariableLengthData.h>

#include <string>

#define HLA_SPECIFICATION_NAME "1516-2010"
#define HLA_API_MAJOR_VERSION 1
#define HLA_API_MINOR_VERSION 0

namespace rti1516e {

// The name and the version of this library.
RTI_EXPORT std::wstring rtiName();
RTI_EXPORT std::wstring rtiVersion();

} // namespace rti1516e

#endif
