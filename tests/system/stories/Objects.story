# Object instances: their names, who discovers them, what is reflected, and their end.
include Road.include

# A car of alpha's that beta knows as a vehicle.
to show-a-car
   alpha: publish Car Position Speed Fuel Passengers
   beta: subscribe Vehicle Position Speed Fuel
   alpha: car = register Car => beta < discover car Vehicle car alpha

story have names that are reserved once
   alpha, beta: publish Car Position Speed Fuel
   alpha: register Car herbie -> ObjectInstanceNameNotReserved
   alpha: reserveObjectInstanceName HLAherbie -> IllegalName
   alpha: releaseObjectInstanceName herbie -> ObjectInstanceNameNotReserved; reserveObjectInstanceName herbie
   alpha < objectInstanceNameReservationSucceeded herbie
   beta: reserveObjectInstanceName herbie => beta < objectInstanceNameReservationFailed herbie
   beta: register Car herbie -> ObjectInstanceNameNotReserved
   alpha: releaseObjectInstanceName herbie
   beta: reserveObjectInstanceName herbie => beta < objectInstanceNameReservationSucceeded herbie
   beta: car = register Car herbie; getObjectInstanceHandle herbie = car; getObjectInstanceName car = herbie
   alpha: getObjectInstanceHandle herbie -> ObjectInstanceNotKnown
   beta: register Car herbie -> ObjectInstanceNameInUse
   alpha: reserveObjectInstanceName herbie => alpha < objectInstanceNameReservationFailed herbie
   beta: resignFederationExecution UNCONDITIONALLY_DIVEST_ATTRIBUTES # nobody knows it any more
   alpha: reserveObjectInstanceName herbie => alpha < objectInstanceNameReservationSucceeded herbie

story have names that are reserved together or not at all
   alpha: reserveMultipleObjectInstanceName -> NameSetWasEmpty
   alpha: reserveMultipleObjectInstanceName a HLAb -> IllegalName; reserveMultipleObjectInstanceName a b
   alpha < multipleObjectInstanceNameReservationSucceeded a b
   beta: reserveMultipleObjectInstanceName b c => beta < multipleObjectInstanceNameReservationFailed b c
   alpha: reserveObjectInstanceName c => alpha < objectInstanceNameReservationSucceeded c
   alpha: releaseMultipleObjectInstanceName a d -> ObjectInstanceNameNotReserved
   alpha: releaseMultipleObjectInstanceName a b c
   beta: reserveMultipleObjectInstanceName a b c
   beta < multipleObjectInstanceNameReservationSucceeded a b c
   beta: resignFederationExecution NO_ACTION
   alpha: reserveObjectInstanceName a => alpha < objectInstanceNameReservationSucceeded a

story leave their names to others
   alpha: publish Car Position
   alpha: reserveObjectInstanceName [herbie|herbie]
   alpha < objectInstanceNameReservationSucceeded herbie; objectInstanceNameReservationFailed herbie
   alpha: car = register Car herbie; delete car; reserveObjectInstanceName herbie
   alpha < objectInstanceNameReservationSucceeded herbie

story are discovered as the most specific subscribed class
   gamma, delta: join
   beta, gamma: subscribe Vehicle Position
   gamma: subscribe Car Passengers
   delta: subscribe Truck Position
   alpha: publish Taxi Position Passengers Fare; subscribe Taxi Position; cab = register Taxi
   beta < discover cab Vehicle cab alpha
   gamma < discover cab Car cab alpha
   alpha: getKnownObjectClassHandle cab = Taxi
   beta: getKnownObjectClassHandle cab = Vehicle
   gamma: getKnownObjectClassHandle cab = Car; getObjectInstanceName cab = cab
   delta: [getKnownObjectClassHandle|getObjectInstanceName] cab -> ObjectInstanceNotKnown
   beta: subscribe Taxi Position # too late
   beta: getKnownObjectClassHandle cab = Vehicle
   delta: subscribe Taxi Fare # in time
   delta < discover cab Taxi cab alpha

story are discovered for an attribute that somebody owns
   beta: subscribe Car Fuel
   alpha: publish Car Position; car = register Car => beta < nothing
   alpha: publish Car Fuel; attributeOwnershipAcquisitionIfAvailable car Fuel
   alpha < attributeOwnershipAcquisitionNotification car Fuel
   beta < discover car Car car alpha

story are reflected to subscribers by their attributes
   show-a-car
   gamma: join; subscribe Car Fuel Passengers passively # which is as good
   gamma < discover car Car car alpha
   alpha: update car Position=1 Speed=2 Fuel=3 Passengers=4 tag=t
   beta <~ reflect car Fuel=3 Position=1 tag=t RO reliable by alpha;
      reflect car Speed=2 tag=t RO best-effort by alpha
   gamma < reflect car Fuel=3 Passengers=4 tag=t RO reliable by alpha
   beta: unsubscribe Vehicle Fuel
   gamma: unsubscribe Car
   alpha: update car Fuel=5 tag=t; update car Position= => beta < reflect car Position= RO reliable by alpha
   gamma: subscribe Car Fuel
   alpha: update car Fuel=6 tag=t => gamma < reflect car Fuel=6 tag=t RO reliable by alpha

story are deleted by who has the privilege
   show-a-car
   beta: delete car -> DeletePrivilegeNotHeld
   # As the vehicle that it is to beta it has no passengers, and to gamma it is nothing.
   beta: [update car Passengers=1|requestAttributeValueUpdate car Passengers] -> AttributeNotDefined
   gamma: join; update car Fuel=1 -> ObjectInstanceNotKnown; delete car -> ObjectInstanceNotKnown
   alpha: delete car tag=scrapped => beta < remove car tag=scrapped RO by alpha => alpha < nothing
   alpha, beta: [delete|getObjectInstanceName] car -> ObjectInstanceNotKnown
   alpha: second = register Car => beta < discover second Vehicle second alpha

story are forgotten by one federate and discovered anew
   show-a-car
   alpha: localDeleteObjectInstance car -> FederateOwnsAttributes
   beta: publish Vehicle Position Speed Fuel; attributeOwnershipAcquisition car Fuel
   beta: localDeleteObjectInstance car -> OwnershipAcquisitionPending
   alpha < requestAttributeOwnershipRelease car Fuel
   beta: cancelAttributeOwnershipAcquisition car Fuel
   beta < confirmAttributeOwnershipAcquisitionCancellation car Fuel
   # As long as it subscribes it discovers the object again, when there is news of it.
   beta: localDeleteObjectInstance car => beta < nothing
   alpha: update car Fuel=1 tag=t
   beta < discover car Vehicle car alpha; reflect car Fuel=1 tag=t RO reliable by alpha
   beta: unsubscribe Vehicle; localDeleteObjectInstance car
   beta: localDeleteObjectInstance car -> ObjectInstanceNotKnown
   alpha: update car Fuel=2 tag=t => beta < nothing
   beta: subscribe Car Passengers => beta < discover car Car car alpha
   alpha: update car Passengers=2 tag=t => beta < reflect car Passengers=2 tag=t RO reliable by alpha

story are asked for their values
   show-a-car
   beta: publish Truck Position Load; lorry = register Truck
   gamma: join; subscribe Vehicle Position
   gamma <~ discover car Vehicle car alpha; discover lorry Vehicle lorry beta
   beta: requestAttributeValueUpdate car Position Fuel tag=please
   alpha < provideAttributeValueUpdate car Fuel Position tag=please
   gamma: requestAttributeValueUpdate Vehicle Position Speed tag=all
   alpha < provideAttributeValueUpdate car Position Speed tag=all
   beta < provideAttributeValueUpdate lorry Position tag=all
   gamma: requestAttributeValueUpdate Car Passengers tag=cars
   alpha < provideAttributeValueUpdate car Passengers tag=cars

story come into scope and go out of it
   beta: enableAttributeScopeAdvisorySwitch; subscribe Car Position Fuel
   alpha: publish Car Position Speed; car = register Car
   beta < discover car Car car alpha; attributesInScope car Position
   beta: subscribe Car Speed => beta < attributesInScope car Speed
   beta: unsubscribe Car Position => beta < attributesOutOfScope car Position
   alpha: unconditionalAttributeOwnershipDivestiture car Speed => beta < attributesOutOfScope car Speed
   beta: disableAttributeScopeAdvisorySwitch; subscribe Car Position => beta < nothing

story have owners who want to know whether to update
   alpha: enableAttributeRelevanceAdvisorySwitch; publish Car Position Speed; car = register Car
   beta: subscribe Car Position Fuel passively => beta < discover car Car car alpha => alpha < nothing
   beta: subscribe Vehicle Speed; unsubscribe Vehicle; subscribe Car Position Fuel
   alpha < turnUpdatesOnForObjectInstance car Position
   beta: unsubscribe Car Position => alpha < turnUpdatesOffForObjectInstance car Position
   gamma: join; subscribe Car Speed Slow => gamma < discover car Car car alpha
   alpha < turnUpdatesOnForObjectInstance car Speed Slow
   beta: subscribe Car Speed Fast => alpha < turnUpdatesOnForObjectInstance car Speed Fast
   gamma: subscribe Car Speed # without a limit
   alpha < turnUpdatesOnForObjectInstance car Speed
   gamma: resignFederationExecution NO_ACTION => alpha < turnUpdatesOnForObjectInstance car Speed Fast
   beta: resignFederationExecution NO_ACTION => alpha < turnUpdatesOffForObjectInstance car Speed

story are told of as they are to who begins to listen
   alpha: publish Car Position; car = register Car
   beta: subscribe Vehicle Position => beta < discover car Vehicle car alpha
   listen
   listen
   alpha: enableAttributeRelevanceAdvisorySwitch => alpha < turnUpdatesOnForObjectInstance car Position
   beta: localDeleteObjectInstance car
   alpha < nothing # for beta is to discover it again
   beta: unsubscribe Vehicle => alpha < turnUpdatesOffForObjectInstance car Position
to listen
   alpha: enableAttributeRelevanceAdvisorySwitch => alpha < turnUpdatesOnForObjectInstance car Position
   beta: enableAttributeScopeAdvisorySwitch => beta < attributesInScope car Position
   alpha: disableAttributeRelevanceAdvisorySwitch
   beta: disableAttributeScopeAdvisorySwitch

# Beta knows the object until its removal has been told, and that is the one callback that comes.
to expect-known $object
   beta: getKnownObjectClassHandle $object = Vehicle; getObjectInstanceHandle $object = $object
to expect-known-until-told $object $by
   expect-known $object
   beta on remove: getKnownObjectClassHandle $object = Vehicle; getObjectInstanceHandle $object = $object
   beta: enableCallbacks => beta < remove $object RO by $by
   beta: getKnownObjectClassHandle $object -> ObjectInstanceNotKnown
to have-gamma-register $object
   alpha: releaseObjectInstanceName $object
   gamma: join; reserveObjectInstanceName $object => gamma < objectInstanceNameReservationSucceeded $object
   gamma: publish Car Position; $object = register Car $object
   beta < discover $object Vehicle $object gamma; attributesInScope $object Position
   beta: disableCallbacks
story are known until their removal is told
   alpha: reserveMultipleObjectInstanceName car fourth
   alpha < multipleObjectInstanceNameReservationSucceeded car fourth
   alpha: publish Car Position Speed Fuel Passengers; car = register Car car
   beta: subscribe Vehicle Position Speed Fuel => beta < discover car Vehicle car alpha
   beta: publish Vehicle Position Speed Fuel
   alpha: unconditionalAttributeOwnershipDivestiture car Speed
   beta < requestAttributeOwnershipAssumption car Speed
   beta: attributeOwnershipAcquisitionIfAvailable car Speed; enableAttributeScopeAdvisorySwitch
   beta < attributeOwnershipAcquisitionNotification car Speed; attributesInScope car Fuel Position
   beta: disableCallbacks
   alpha: delete car
   # Of this nothing is told any more: it would come after the removal.
   beta: isAttributeOwnedByFederate car Speed = true; update car Speed=1
   beta: requestAttributeValueUpdate car Fuel; queryAttributeOwnership car Speed
   beta: attributeOwnershipAcquisition car Fuel; unsubscribe Vehicle Fuel; subscribe Vehicle Fuel
   expect-known-until-told car alpha
   have-gamma-register fourth
   gamma: setAutomaticResignDirective DELETE_OBJECTS; destroyAmbassador
   expect-known-until-told fourth gamma
