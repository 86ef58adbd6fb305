# Which exception answers what is not allowed, also where several preconditions forbid it. At the end of all
# stories every exception of every service has been provoked.
include Road.include

to be-on-the-road
   take-the-road
   alpha: stretch = createRegion Lane Distance; setRangeBounds stretch Lane 0..1
   alpha: setRangeBounds stretch Distance 0..10; commitRegionModifications stretch
   beta: foreign = createRegion Lane; setRangeBounds foreign Lane 0..1; commitRegionModifications foreign
   share-a-car

# The state of the federate or of its federation is judged before any argument.
story is for want of a connection and of a federation
   alpha: * -> NotConnected
   federation Road.xml
   alpha: connect; * -> FederateNotExecutionMember
   alpha: join; resignFederationExecution NO_ACTION; * -> FederateNotExecutionMember
   alpha: disconnect; * -> NotConnected
   alpha: join; joinWithoutName test $federation -> FederateAlreadyExecutionMember

story is in a save and in a restore
   federation Road.xml
   alpha: join; requestFederationSave noon => alpha < initiateFederateSave noon
   late: connect
   late: [join|joinWithoutName test $federation] -> SaveInProgress
   alpha: * -> SaveInProgress; federateSaveBegun; * -> SaveInProgress; federateSaveComplete
   alpha < federationSaved
   alpha: requestFederationRestore noon
   alpha < requestFederationRestoreSucceeded noon; federationRestoreBegun; initiateFederateRestore noon alpha alpha
   late: [join|joinWithoutName test $federation] -> RestoreInProgress
   alpha: * -> RestoreInProgress; federateRestoreComplete => alpha < federationRestored

story is within a callback
   federation Road.xml float
   alpha: join
   alpha on federationSaveStatusResponse: * -> CallNotAllowedFromWithinCallback; getFederateName alpha = alpha
   alpha: queryFederationSaveStatus => alpha < federationSaveStatusResponse alpha=idle
   alpha on reportFederationExecutions: * -> CallNotAllowedFromWithinCallback;
      destroyFederationExecution $other -> FederationExecutionDoesNotExist
   alpha: resignFederationExecution NO_ACTION; listFederationExecutions
   alpha < reportFederationExecutions $federation=HLAfloat64Time

story is from the class to the attribute to its state
   be-on-the-road
   alpha: [publish|unpublish|subscribe|unsubscribe|requestAttributeValueUpdate] noObjectClass noAttribute -> ObjectClassNotDefined
   alpha: [publish|unpublish|subscribe|unsubscribe|requestAttributeValueUpdate] Car noAttribute -> AttributeNotDefined
   alpha: [publish|unpublish|subscribe|unsubscribe|requestAttributeValueUpdate] Car Position Load -> AttributeNotDefined # a car has no load
   alpha: [unpublish|unsubscribe|register] noObjectClass -> ObjectClassNotDefined
   alpha: subscribe noObjectClass noAttribute Breakneck -> InvalidUpdateRateDesignator
   alpha: [publish|unpublish|subscribe|unsubscribe] noInteractionClass -> InteractionClassNotDefined
   alpha: register noObjectClass free -> ObjectClassNotDefined; register Truck free -> ObjectClassNotPublished

story is from the object to the attribute
   be-on-the-road
   gamma: join
   alpha: [requestAttributeValueUpdate|queryAttributeTransportationType|getUpdateRateValueForAttribute|
      attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable|cancelAttributeOwnershipAcquisition|
      queryAttributeOwnership|isAttributeOwnedByFederate] noObjectInstance noAttribute -> ObjectInstanceNotKnown
   alpha: [requestAttributeValueUpdate|queryAttributeTransportationType|getUpdateRateValueForAttribute|
      attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable|cancelAttributeOwnershipAcquisition|
      queryAttributeOwnership|isAttributeOwnedByFederate] car [noAttribute|Load] -> AttributeNotDefined
   gamma: requestAttributeValueUpdate car Load -> ObjectInstanceNotKnown
   alpha: [attributeOwnershipAcquisition|cancelAttributeOwnershipAcquisition] car Speed Load -> AttributeNotDefined
   alpha: attributeOwnershipAcquisition car Passengers Speed -> FederateOwnsAttributes
   beta: attributeOwnershipAcquisition car Fuel
   beta: attributeOwnershipAcquisitionIfAvailable car Passengers Fuel -> AttributeNotPublished
   # Owns one thing, and wants another.
   beta: own = register Car; resignFederationExecution NO_ACTION -> FederateOwnsAttributes
   beta: resignFederationExecution UNCONDITIONALLY_DIVEST_ATTRIBUTES -> OwnershipAcquisitionPending
   alpha < requestAttributeOwnershipRelease car Fuel

to be-refused $service
   beta: $service noObjectInstance noAttribute -> ObjectInstanceNotKnown
   beta: $service car [noAttribute Speed|Speed Load] -> AttributeNotDefined
   beta: $service car Speed -> AttributeNotOwned
story is from the object to the attribute to its owner
   be-on-the-road
   beta: update noObjectInstance noAttribute=1 -> ObjectInstanceNotKnown
   beta: update car [noAttribute=1 Speed=1|Speed=1 Load=1] -> AttributeNotDefined
   beta: update car Speed=1 -> AttributeNotOwned
   be-refused [unconditionalAttributeOwnershipDivestiture|negotiatedAttributeOwnershipDivestiture|confirmDivestiture]
   be-refused [attributeOwnershipReleaseDenied|attributeOwnershipDivestitureIfWanted|cancelNegotiatedAttributeOwnershipDivestiture]

to be-refused-regions $service $car $no $unknown $context
   alpha: $service $no noAttribute@noRegion -> $unknown; $service $car Load@noRegion -> AttributeNotDefined
   alpha: $service $car [Position@foreign,noRegion|Position@foreign Position@noRegion] -> InvalidRegion
   alpha: $service $car Fuel@foreign -> RegionNotCreatedByThisFederate
   alpha: $service $car [Fuel|Speed]@stretch -> $context
   alpha: $service $car Position@stretch
story is from the attribute to the region
   be-on-the-road
   be-refused-regions [register|subscribe|requestAttributeValueUpdateWithRegions] Car noObjectClass ObjectClassNotDefined InvalidRegionContext
   be-refused-regions unsubscribe Car noObjectClass ObjectClassNotDefined nothing
   be-refused-regions associateRegionsForUpdates car noObjectInstance ObjectInstanceNotKnown InvalidRegionContext
   be-refused-regions unassociateRegionsForUpdates car noObjectInstance ObjectInstanceNotKnown nothing
   alpha: subscribe noObjectClass Position@foreign Position@noRegion Breakneck -> InvalidUpdateRateDesignator
   alpha: register Truck noAttribute@noRegion [|free] -> AttributeNotDefined
   alpha: register Truck Position@noRegion [|free] -> ObjectClassNotPublished
   alpha: register Car Passengers@noRegion [|free] -> AttributeNotPublished
   alpha: register noObjectClass Position@stretch free -> ObjectClassNotDefined
   alpha: register Car Position@foreign Position@noRegion free -> InvalidRegion
   alpha: register Car Position@foreign free -> RegionNotCreatedByThisFederate
   alpha: register Car Fuel@stretch free -> InvalidRegionContext
   alpha: register Car Position@stretch free -> ObjectInstanceNameNotReserved; reserveObjectInstanceName taken
   alpha < objectInstanceNameReservationSucceeded taken
   alpha: taken = register Car taken; register Car Position@stretch taken -> ObjectInstanceNameInUse
   alpha: commitRegionModifications foreign noRegion -> InvalidRegion
   alpha: setRangeBounds noRegion noDimension 9..1 -> InvalidRegion
   alpha: setRangeBounds foreign noDimension 9..1 -> RegionNotCreatedByThisFederate
   alpha: setRangeBounds stretch noDimension 9..1 -> RegionDoesNotContainSpecifiedDimension
   alpha: getRangeBounds noRegion noDimension -> InvalidRegion => beta < whatever

story is from the interaction to the region
   be-on-the-road
   alpha: send Accident foreign -> InteractionClassNotPublished; publish Message; publish Accident
   alpha: [subscribe|unsubscribe|send] noInteractionClass noRegion -> InteractionClassNotDefined
   alpha: [subscribe|unsubscribe|send] Accident foreign noRegion -> InvalidRegion
   alpha: [subscribe|unsubscribe|send] Message foreign -> RegionNotCreatedByThisFederate
   alpha: [subscribe|send] Message stretch -> InvalidRegionContext
   alpha: send Accident Level=1 stretch -> InteractionParameterNotDefined

story is of the time last
   be-on-the-road
   alpha, beta: enableTimeRegulation 5 => alpha, beta < timeRegulationEnabled 0
   beta: update noObjectInstance noAttribute= at 0 -> ObjectInstanceNotKnown
   beta: update car noAttribute= at 0 -> AttributeNotDefined; update car Speed= at 0 -> AttributeNotOwned
   alpha: send noInteractionClass Level= at 0 -> InteractionClassNotDefined
   alpha: send Accident Level= at 0 -> InteractionParameterNotDefined
   alpha: send noInteractionClass Level= -> InteractionClassNotDefined
   alpha: send Accident [|foreign] at 0 -> InteractionClassNotPublished
   beta: delete noObjectInstance at 0 -> ObjectInstanceNotKnown; delete car at 0 -> DeletePrivilegeNotHeld
   alpha: publish Accident; publish Message
   alpha: send noInteractionClass stretch at 0 -> InteractionClassNotDefined
   alpha: send Accident Level= stretch at 0 -> InteractionParameterNotDefined
   alpha: send Accident foreign noRegion at 0 -> InvalidRegion
   alpha: send Accident foreign at 0 -> RegionNotCreatedByThisFederate
   alpha: send Message stretch at 0 -> InvalidRegionContext
   alpha: [update car Fuel=1|send Accident|send Accident stretch|delete car] at 0 -> InvalidLogicalTime
   alpha: requestFederationSave noon at -1 -> LogicalTimeAlreadyPassed
   alpha: disableCallbacks; timeAdvanceRequest 10; enableTimeConstrained -> InTimeAdvancingState; enableCallbacks
   alpha < timeAdvanceGrant 10
   beta: enableTimeConstrained => beta < timeConstrainedEnabled 0
   beta: timeAdvanceRequest 100; modifyLookahead -1 -> InTimeAdvancingState
   beta: enableTimeConstrained -> TimeConstrainedAlreadyEnabled
   beta: enableTimeRegulation -1 -> TimeRegulationAlreadyEnabled

story is while another change is under way
   be-on-the-road
   alpha: publish Message; disableCallbacks; requestAttributeTransportationTypeChange car Position best-effort
   alpha: requestAttributeTransportationTypeChange car Position Fuel reliable -> AttributeAlreadyBeingChanged
   alpha: requestInteractionTransportationTypeChange Message best-effort
   alpha: requestInteractionTransportationTypeChange Message reliable -> InteractionClassAlreadyBeingChanged
   alpha: enableCallbacks
   alpha < confirmAttributeTransportationTypeChange car Position best-effort;
      confirmInteractionTransportationTypeChange Message best-effort
   alpha: [requestInteractionTransportationTypeChange noInteractionClass reliable|changeInteractionOrderType noInteractionClass RO|
      queryInteractionTransportationType alpha noInteractionClass] -> InteractionClassNotDefined
   beta: [requestAttributeTransportationTypeChange car Load reliable|changeAttributeOrderType car Load RO] -> AttributeNotDefined
   beta: [requestAttributeTransportationTypeChange car Fuel reliable|changeAttributeOrderType car Fuel RO] -> AttributeNotOwned
   beta: [requestAttributeTransportationTypeChange noObjectInstance Fuel reliable|changeAttributeOrderType noObjectInstance Fuel RO] -> ObjectInstanceNotKnown
   alpha: [localDeleteObjectInstance|delete|getKnownObjectClassHandle] noObjectInstance -> ObjectInstanceNotKnown
   alpha: normalizeFederateHandle noFederate -> InvalidFederateHandle
   alpha: registerFederationSynchronizationPoint done noFederate -> InvalidFederateHandle
