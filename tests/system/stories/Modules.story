# What a FOM module adds to how messages travel: Weather.xml, beside Road.xml.
include Road.include

   gamma: join $fom/Weather.xml
   alpha: publish Cloud Wind

story name transportation types of their own
   beta: getTransportationTypeHandle Radio = best-effort; getTransportationTypeName best-effort = Radio
   beta: getTransportationTypeName reliable = HLAreliable; getTransportationTypeHandle HLAreliable = reliable
   gamma: getTransportationTypeName best-effort = HLAbestEffort
   beta: getTransportationTypeHandle HLAbestEffort = best-effort; getTransportationTypeName best-effort = HLAbestEffort

to float $cloud $dimension $range
   alpha: $cloud-where = createRegion $dimension; setRangeBounds $cloud-where $dimension $range
   alpha: commitRegionModifications $cloud-where; $cloud = register Cloud Wind@$cloud-where
story say where a region is in a dimension that it does not have
   beta: low = createRegion Sector; setRangeBounds low Sector 0..4; commitRegionModifications low
   beta: subscribe Cloud Wind@low
   float beside Sector 4..8
   float ahead Sector 3..8 # as low as beta's, both by default
   beta < discover ahead Cloud ahead alpha
   float fog Height 9..20 # in no sector, which is excluded then
   beta < discover fog Cloud fog alpha
   float stratus Height 10..20
   alpha: both = createRegion Height Sector; setRangeBounds both Height 10..20; setRangeBounds both Sector 0..4
   alpha: commitRegionModifications both; cirrus = register Cloud Wind@both

to blow $value
   alpha: update cumulus Wind=$value HLAprivilegeToDeleteObject=$value
story limit how often a subscriber is updated
   beta: subscribe Cloud Wind HLAprivilegeToDeleteObject Brisk
   gamma: subscribe Cloud Wind
   alpha: cumulus = register Cloud
   beta, gamma < discover cumulus Cloud cumulus alpha
   beta: getUpdateRateValueForAttribute cumulus Wind = 2
   gamma: getUpdateRateValueForAttribute cumulus Wind = 0
   blow [1|2|3]
   gamma < reflect cumulus Wind=1 RO best-effort by alpha; reflect cumulus Wind=2 RO best-effort by alpha;
      reflect cumulus Wind=3 RO best-effort by alpha
   beta < reflect cumulus HLAprivilegeToDeleteObject=1 RO reliable by alpha; reflect cumulus Wind=1 RO best-effort by alpha;
      reflect cumulus HLAprivilegeToDeleteObject=2 RO reliable by alpha; reflect cumulus HLAprivilegeToDeleteObject=3 RO reliable by alpha;
      reflect cumulus Wind=3 RO best-effort by alpha
   blow 4 # waits, and is overtaken by what comes without a limit
   beta: subscribe Cloud Wind
   blow 5
   beta < reflect cumulus HLAprivilegeToDeleteObject=4 RO reliable by alpha; reflect cumulus HLAprivilegeToDeleteObject=5 RO reliable by alpha;
      reflect cumulus Wind=5 RO best-effort by alpha
   gamma < whatever

story keep what waits over a save
   beta: subscribe Cloud Wind Brisk
   alpha: cumulus = register Cloud
   blow [1|2]
   beta < discover cumulus Cloud cumulus alpha; reflect cumulus Wind=1 RO best-effort by alpha
   ask-for-a-save
   all: federateSaveBegun; federateSaveComplete
   alpha, gamma < federationSaved
   beta < federationSaved; reflect cumulus Wind=2 RO best-effort by alpha
   ask-for-a-restore
   all: federateRestoreComplete
   beta < federationRestored; reflect cumulus Wind=2 RO best-effort by alpha
   alpha, gamma < federationRestored
