include Road.include

   alpha: publish Car Position Speed Fuel; publish Accident

story have ranges in their dimensions
   make-region alpha slow 0..3
   alpha: setRangeBounds slow Lane 0..2; getRangeBounds slow Lane = 0..2
   beta: getRangeBounds slow Lane = 0..3 # as committed
   alpha: getDimensionHandleSet slow = Lane; getRangeBounds slow Lane = 0..2
   alpha: setRangeBounds slow Lane [0..9|5..4|3..3] -> InvalidRangeBound
   alpha: setRangeBounds slow Lane 0..8
   alpha: getRangeBounds slow Distance -> RegionDoesNotContainSpecifiedDimension
   beta: [commitRegionModifications|deleteRegion] slow -> RegionNotCreatedByThisFederate
   alpha: deleteRegion slow
   alpha: [deleteRegion slow|getRangeBounds slow Lane] -> InvalidRegion

story select what is discovered and reflected
   make-region beta here 0..4
   beta: subscribe Vehicle Position@here
   make-region alpha inside 3..5
   make-region alpha beside 4..6
   alpha: near = register Car Position@inside; far = register Car Position@beside
   beta < discover near Vehicle near alpha
   alpha: update [near|far] Position=1 Fuel=2
   beta < reflect near Position=1 RO reliable by alpha from inside
   move alpha beside 0..1 # drives up
   beta < discover far Vehicle far alpha
   move alpha inside 6..7 # drives on
   alpha: update [near|far] Position=2
   beta < reflect far Position=2 RO reliable by alpha from beside
   move beta here 6..8 # looks elsewhere
   alpha: update [near|far] Position=3
   beta < reflect near Position=3 RO reliable by alpha from inside

story that are not given are everywhere
   gamma: join; subscribe Vehicle Position
   beta: here = createRegion Lane Distance; setRangeBounds here Lane 0..1; setRangeBounds here Distance 5..9
   beta: commitRegionModifications here; subscribe Vehicle Position@here
   alpha: somewhere = register Car => beta, gamma < discover somewhere Vehicle somewhere alpha
   make-region alpha first-lane 0..1
   alpha: anywhere-on-it = register Car Position@first-lane
   beta, gamma < discover anywhere-on-it Vehicle anywhere-on-it alpha
   alpha: off = createRegion Lane Distance; setRangeBounds off Lane 0..1; setRangeBounds off Distance 9..10
   alpha: commitRegionModifications off; far = register Car Position@off => beta < nothing
   gamma < discover far Vehicle far alpha

story are added to and taken from updates
   make-region beta here 0..1
   beta: subscribe Vehicle Position,Speed@here
   make-region alpha there 5..6
   make-region alpha close 0..2
   alpha: car = register Car Position@there Speed@there => beta < nothing
   # Both attributes travel alike, and differ in their regions alone.
   alpha: changeAttributeOrderType car Position RO; requestAttributeTransportationTypeChange car Speed reliable
   alpha < confirmAttributeTransportationTypeChange car Speed reliable
   alpha: associateRegionsForUpdates car Position@close => beta < discover car Vehicle car alpha
   alpha: update car Position=1 Speed=2 => beta < reflect car Position=1 RO reliable by alpha from close there
   alpha: unassociateRegionsForUpdates car Position@close; update car Position=1 Speed=2 => beta < nothing
   alpha: unassociateRegionsForUpdates car Position,Speed@there # none left: everywhere
   alpha: update car Position=1 Speed=2 => beta < reflect car Position=1 Speed=2 RO reliable by alpha

story add up in subscriptions
   make-region beta first 0..1
   make-region beta third 2..3
   beta: subscribe Car Position@first; subscribe Car Position,Speed@third
   make-region alpha where 2..3
   alpha: car = register Car Position@where => beta < discover car Car car alpha
   alpha: update car Position=1 => beta < reflect car Position=1 RO reliable by alpha from where
   move alpha where 0..1
   alpha: update car Position=1 => beta < reflect car Position=1 RO reliable by alpha from where
   beta: deleteRegion first -> RegionInUseForUpdateOrSubscription
   alpha: deleteRegion where -> RegionInUseForUpdateOrSubscription
   beta: unsubscribe Car Position@first; deleteRegion first
   alpha: update car Position=1 => beta < nothing
   move alpha where 0..8
   alpha: update car Position=1 => beta < reflect car Position=1 RO reliable by alpha from where
   beta: unsubscribe Car
   alpha: update car Position=1 => beta < nothing

story are of one owners updates
   make-region alpha here 0..1
   alpha: car = register Car Position@here; unconditionalAttributeOwnershipDivestiture car Position
   alpha: deleteRegion here; attributeOwnershipAcquisition car Position
   alpha < attributeOwnershipAcquisitionNotification car Position
   make-region beta there 7..8
   beta: requestAttributeValueUpdateWithRegions Car Position@there tag=please
   alpha < provideAttributeValueUpdate car Position tag=please # it is everywhere now

story are subscribed to on terms of their own
   make-region beta near 0..1
   make-region beta far 2..3
   alpha: enableObjectClassRelevanceAdvisorySwitch
   beta: subscribe Car Position@near Fast; subscribe Car Position@far passively
   alpha < startRegistrationForObjectClass Car
   make-region alpha where 0..1
   alpha: enableAttributeRelevanceAdvisorySwitch; car = register Car Position@where
   beta < discover car Car car alpha
   alpha < turnUpdatesOnForObjectInstance car Position Fast
   beta: getUpdateRateValueForAttribute car Position = 50
   move alpha where 2..3 # where beta takes whatever comes, but asks for nothing
   alpha < turnUpdatesOffForObjectInstance car Position
   beta: getUpdateRateValueForAttribute car Position = 0

story bring attributes into scope
   make-region beta here 0..1
   beta: enableAttributeScopeAdvisorySwitch; subscribe Car Position@here
   make-region alpha where 0..1
   alpha: car = register Car Position@where
   beta < discover car Car car alpha; attributesInScope car Position
   move alpha where 1..2
   beta < attributesOutOfScope car Position
   move beta here 1..2
   beta < attributesInScope car Position

story select interactions
   make-region beta here 0..4
   gamma: join; subscribe Accident
   beta: subscribe Accident here
   make-region alpha inside 0..1
   make-region alpha outside 5..6
   alpha: send Accident Damage=1 inside
   beta, gamma < receive Accident Damage=1 RO reliable by alpha from inside
   alpha: send Accident Damage=1 outside => beta < nothing
   gamma < receive Accident Damage=1 RO reliable by alpha from outside
   alpha: send Accident Damage=1 inside outside
   beta, gamma < receive Accident Damage=1 RO reliable by alpha from inside outside
   alpha: send Accident Damage=1 => beta, gamma < receive Accident Damage=1 RO reliable by alpha
   beta: unsubscribe Accident here; deleteRegion here
   alpha: send Accident Damage=1 inside => beta < nothing
   gamma < receive Accident Damage=1 RO reliable by alpha from inside
   alpha: deleteRegion inside; send Accident inside -> InvalidRegion

story select who is asked for values
   make-region alpha first 0..1
   make-region alpha last 7..8
   alpha: near = register Car Position@first; far = register Car Position@last
   make-region beta here 0..4
   beta: requestAttributeValueUpdateWithRegions Car Position@here tag=please
   alpha < provideAttributeValueUpdate near Position tag=please
   beta: requestAttributeValueUpdate Car Position tag=all # wherever they are
   alpha <~ provideAttributeValueUpdate near Position tag=all; provideAttributeValueUpdate far Position tag=all
