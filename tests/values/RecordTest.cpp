#include "src/values/HandleAccess.h"

#include <RTI/RangeBounds.h>
#include <RTI/Typedefs.h>

#include <gtest/gtest.h>

namespace {

using namespace rti1516e;

FederateHandle const federate = HandleAccess::make<FederateHandle>(3);
RegionHandleSet const regions = {HandleAccess::make<RegionHandle>(0x80000001),
                                 HandleAccess::make<RegionHandle>(1)};

template <class Info>
void expectInfo(Info const& info, bool hasFederate, bool hasRegions)
{
   EXPECT_EQ(info.hasProducingFederate, hasFederate);
   EXPECT_EQ(info.hasSentRegions, hasRegions);
   EXPECT_EQ(info.producingFederate, hasFederate ? federate : FederateHandle());
   EXPECT_EQ(info.sentRegions, hasRegions ? regions : RegionHandleSet());
}

template <class Info>
struct SupplementalInfo : testing::Test
{};
using Infos = testing::Types<SupplementalReflectInfo, SupplementalReceiveInfo>;
TYPED_TEST_SUITE(SupplementalInfo, Infos, );

TYPED_TEST(SupplementalInfo, TellsWhatItWasMadeFrom)
{
   expectInfo(TypeParam(), false, false);
   expectInfo(TypeParam(federate), true, false);
   expectInfo(TypeParam(regions), false, true);
   expectInfo(TypeParam(federate, regions), true, true);
}

TEST(Records, HoldWhatTheyAreMadeFrom)
{
   EXPECT_FALSE(SupplementalRemoveInfo().hasProducingFederate);
   EXPECT_TRUE(SupplementalRemoveInfo(federate).hasProducingFederate);
   EXPECT_EQ(SupplementalRemoveInfo(federate).producingFederate, federate);

   auto const later = HandleAccess::make<FederateHandle>(4);
   FederateRestoreStatus const status(federate, later, FEDERATE_RESTORING);
   EXPECT_EQ(status.preRestoreHandle, federate);
   EXPECT_EQ(status.postRestoreHandle, later);
   EXPECT_EQ(status.status, FEDERATE_RESTORING);

   FederationExecutionInformation const information(L"execution", L"HLAfloat64Time");
   EXPECT_EQ(information.federationExecutionName, L"execution");
   EXPECT_EQ(information.logicalTimeImplementationName, L"HLAfloat64Time");

   RangeBounds bounds(9, 3); // unchecked
   EXPECT_EQ(bounds.getLowerBound(), 9U);
   EXPECT_EQ(bounds.getUpperBound(), 3U);
   bounds.setLowerBound(1);
   bounds.setUpperBound(0xFFFFFFFF);
   EXPECT_EQ(bounds.getLowerBound(), 1U);
   EXPECT_EQ(bounds.getUpperBound(), 0xFFFFFFFFU);
}

} // namespace
