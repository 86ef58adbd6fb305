// What a FOM module adds to how messages travel: Weather.xml, beside Road.xml.
#include "RoadTest.h"

namespace {

using namespace system_tests;

class Modules : public RoadTest
{
protected:
   Modules() : gamma(connected("gamma"))
   {
      gamma.join(federation(), {fom("Weather.xml")});
      cloud = gamma->getObjectClassHandle(L"Cloud");
      wind = gamma->getAttributeHandle(cloud, L"Wind");
      height = gamma->getDimensionHandle(L"Height");
      sector = gamma->getDimensionHandle(L"Sector");
      names().add(cloud, "Cloud");
      names().add(wind, "Wind");
      alpha->publishObjectClassAttributes(cloud, {wind});
   }

   void blow(std::string const& value)
   {
      alpha->updateAttributeValues(object, {{wind, bytes(value)}, {privilege, bytes(value)}}, bytes(""));
   }

   static std::string reflected(std::string const& values, std::string const& transportation)
   {
      return "reflectAttributeValues(cumulus, {" + values + "}, , RO, " + transportation + ", by alpha)";
   }

   Federate& gamma;
   ObjectClassHandle cloud;
   AttributeHandle wind;
   DimensionHandle height, sector;
};
IN_BOTH_CALLBACK_MODELS(Modules);

TEST_P(Modules, NameTransportationTypesOfTheirOwn)
{
   EXPECT_EQ(beta->getTransportationType(L"Radio"), BEST_EFFORT);
   EXPECT_EQ(beta->getTransportationName(BEST_EFFORT), L"Radio");
   EXPECT_EQ(beta->getTransportationName(RELIABLE), L"HLAreliable");
   EXPECT_EQ(gamma->getTransportationName(BEST_EFFORT), L"HLAbestEffort");
   EXPECT_EQ(beta->getTransportationType(L"HLAbestEffort"), BEST_EFFORT);
   EXPECT_EQ(beta->getTransportationName(BEST_EFFORT), L"HLAbestEffort");
   EXPECT_REFUSED("InvalidTransportationName", beta->getTransportationType(L"Pigeon"));
}

TEST_P(Modules, SayWhereARegionIsInADimensionThatItDoesNotHave)
{
   RegionHandle const low = region(beta, "low", {{sector, RangeBounds(0, 4)}});
   beta->subscribeObjectClassAttributesWithRegions(cloud, {{{wind}, {low}}});
   struct
   {
      std::string alias;
      Ranges ranges;
      bool met;
   } const rows[] = {
      {"beside", {{sector, RangeBounds(4, 8)}}, false},
      {"ahead", {{sector, RangeBounds(3, 8)}}, true}, // as low as beta's, both by default
      {"fog", {{height, RangeBounds(9, 20)}}, true},  // in no sector, which is excluded then
      {"stratus", {{height, RangeBounds(10, 20)}}, false},
      {"cirrus", {{height, RangeBounds(10, 20)}, {sector, RangeBounds(0, 4)}}, false},
   };
   for (auto const& row : rows) {
      RegionHandle const there = region(alpha, row.alias + "'s", row.ranges);
      call(alpha, alpha->registerObjectInstanceWithRegions(cloud, {{{wind}, {there}}}), row.alias);
      expect(beta,
             row.met ? Callbacks{"discoverObjectInstance(" + row.alias + ", Cloud, " + row.alias + ", alpha)"}
                     : Callbacks{});
   }
}

TEST_P(Modules, LimitHowOftenASubscriberIsUpdated)
{
   beta->subscribeObjectClassAttributes(cloud, {wind, privilege}, true, L"Brisk");
   gamma->subscribeObjectClassAttributes(cloud, {wind});
   object = registered(alpha, cloud, "cumulus");
   expectEach({&beta, &gamma}, {"discoverObjectInstance(cumulus, Cloud, cumulus, alpha)"});
   EXPECT_EQ(beta->getUpdateRateValueForAttribute(object, wind), 2.0);
   EXPECT_EQ(gamma->getUpdateRateValueForAttribute(object, wind), 0.0);
   Callbacks all;
   Callbacks some;
   for (std::string const value : {"1", "2", "3"}) {
      blow(value);
      all.push_back(reflected("Wind=" + value, "best-effort"));
      some.push_back(reflected("HLAprivilegeToDeleteObject=" + value, "reliable"));
   }
   expect(gamma, all);
   some.insert(some.begin() + 1, all.front());
   some.push_back(all.back());
   expect(beta, some);

   blow("4"); // waits, and is overtaken by what comes without a limit
   beta->subscribeObjectClassAttributes(cloud, {wind});
   blow("5");
   expect(beta, {reflected("HLAprivilegeToDeleteObject=4", "reliable"),
                 reflected("HLAprivilegeToDeleteObject=5", "reliable"), reflected("Wind=5", "best-effort")});
}

TEST_P(Modules, KeepWhatWaitsOverASave)
{
   beta->subscribeObjectClassAttributes(cloud, {wind}, true, L"Brisk");
   object = registered(alpha, cloud, "cumulus");
   blow("1");
   blow("2");
   expect(beta,
          {"discoverObjectInstance(cumulus, Cloud, cumulus, alpha)", reflected("Wind=1", "best-effort")});
   std::vector<Federate*> const all{&alpha, &beta, &gamma};
   alpha->requestFederationSave(L"noon");
   expectEach(all, {"initiateFederateSave(noon)"});
   for (Federate* const each : all) {
      (*each)->federateSaveBegun();
      (*each)->federateSaveComplete();
   }
   expectEach({&alpha, &gamma}, {"federationSaved()"});
   expect(beta, {"federationSaved()", reflected("Wind=2", "best-effort")});
   alpha->requestFederationRestore(L"noon");
   for (Federate* const each : all) {
      each->callbacks(each == &alpha ? 3 : 2);
      (*each)->federateRestoreComplete();
   }
   expect(beta, {"federationRestored()", reflected("Wind=2", "best-effort")});
}

} // namespace
