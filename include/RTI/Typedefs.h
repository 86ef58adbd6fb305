// Sets, maps and small records that cross the interface.
#ifndef RTI_Typedefs_h
#define RTI_Typedefs_h

#include <RTI/Enums.h>
#include <RTI/Handle.h>
#include <RTI/RangeBounds.h>
#include <RTI/SpecificConfig.h>
#include <RTI/VariableLengthData.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace rti1516e {

typedef std::set<AttributeHandle> AttributeHandleSet;
typedef std::set<ParameterHandle> ParameterHandleSet;
typedef std::set<FederateHandle> FederateHandleSet;
typedef std::set<DimensionHandle> DimensionHandleSet;
typedef std::set<RegionHandle> RegionHandleSet;

typedef std::map<AttributeHandle, VariableLengthData> AttributeHandleValueMap;
typedef std::map<ParameterHandle, VariableLengthData> ParameterHandleValueMap;

// Attributes and the regions that go with them.
typedef std::pair<AttributeHandleSet, RegionHandleSet> AttributeHandleSetRegionHandleSetPair;
typedef std::vector<AttributeHandleSetRegionHandleSetPair> AttributeHandleSetRegionHandleSetPairVector;

typedef std::pair<FederateHandle, SaveStatus> FederateHandleSaveStatusPair;
typedef std::vector<FederateHandleSaveStatusPair> FederateHandleSaveStatusPairVector;

// Where one federate stands in a restore. A federate may come back under another handle.
class RTI_EXPORT FederateRestoreStatus
{
public:
   FederateRestoreStatus(FederateHandle preHandle, FederateHandle postHandle, RestoreStatus restoreStatus)
      : preRestoreHandle(preHandle), postRestoreHandle(postHandle), status(restoreStatus)
   {}

   FederateHandle preRestoreHandle;
   FederateHandle postRestoreHandle;
   RestoreStatus status;
};

typedef std::vector<FederateRestoreStatus> FederateRestoreStatusVector;

class RTI_EXPORT FederationExecutionInformation
{
public:
   FederationExecutionInformation(std::wstring const& executionName, std::wstring const& timeName)
      : federationExecutionName(executionName), logicalTimeImplementationName(timeName)
   {}

   std::wstring federationExecutionName;
   std::wstring logicalTimeImplementationName;
};

typedef std::vector<FederationExecutionInformation> FederationExecutionInformationVector;

// What accompanies a reflection or an interaction. The handle and the set mean something only where the flag
// before them is true.
#define RTI_SUPPLEMENTAL_INFO(Name)                                                       \
   class RTI_EXPORT Name                                                                  \
   {                                                                                      \
   public:                                                                                \
      Name() : hasProducingFederate(false), hasSentRegions(false) {}                      \
      Name(FederateHandle const& federate)                                                \
         : hasProducingFederate(true), hasSentRegions(false), producingFederate(federate) \
      {}                                                                                  \
      Name(RegionHandleSet const& regions)                                                \
         : hasProducingFederate(false), hasSentRegions(true), sentRegions(regions)        \
      {}                                                                                  \
      Name(FederateHandle const& federate, RegionHandleSet const& regions)                \
         : hasProducingFederate(true),                                                    \
           hasSentRegions(true),                                                          \
           producingFederate(federate),                                                   \
           sentRegions(regions)                                                           \
      {}                                                                                  \
                                                                                          \
      bool hasProducingFederate;                                                          \
      bool hasSentRegions;                                                                \
      FederateHandle producingFederate;                                                   \
      RegionHandleSet sentRegions;                                                        \
   };

RTI_SUPPLEMENTAL_INFO(SupplementalReflectInfo)
RTI_SUPPLEMENTAL_INFO(SupplementalReceiveInfo)

#undef RTI_SUPPLEMENTAL_INFO

// What accompanies the removal of an object instance.
class RTI_EXPORT SupplementalRemoveInfo
{
public:
   SupplementalRemoveInfo() : hasProducingFederate(false) {}
   SupplementalRemoveInfo(FederateHandle const& federate)
      : hasProducingFederate(true), producingFederate(federate)
   {}

   bool hasProducingFederate;
   FederateHandle producingFederate;
};

} // namespace rti1516e

#endif
