# Which exception answers what is not allowed, also where several preconditions forbid it. At the end of all
# stories every exception of every service has been provoked.
include Passages.include

to be-on-the-road
   federation Road.xml
   alpha, beta: join
   alpha: stretch = createRegion Lane Distance; setRangeBounds stretch Lane 0..1
   alpha: setRangeBounds stretch Distance 0..10; commitRegionModifications stretch
   make-region beta foreign 0..1
   alpha: getObjectClassName Truck; getInteractionClassName Urgent # which have what others lack
   share-a-car

# The state of the federate or of its federation is judged before any argument.
story is for want of a connection and of a federation
   alpha: * -> NotConnected
   federation Road.xml
   alpha: connect; * but FederateAlreadyExecutionMember -> FederateNotExecutionMember
   alpha: join; resignFederationExecution NO_ACTION; * but FederateAlreadyExecutionMember -> FederateNotExecutionMember
   alpha: disconnect; * -> NotConnected
   alpha: join; joinFederationExecution test $federation -> FederateAlreadyExecutionMember

story is in a save and in a restore
   federation Road.xml
   alpha: join; requestFederationSave noon => alpha < initiateFederateSave noon
   late: connect
   late: [join|joinFederationExecution test $federation] -> SaveInProgress
   alpha: * but FederateAlreadyExecutionMember -> SaveInProgress; federateSaveBegun; * but FederateAlreadyExecutionMember -> SaveInProgress; federateSaveComplete
   alpha < federationSaved
   ask-for-a-restore
   late: [join|joinFederationExecution test $federation] -> RestoreInProgress
   alpha: * but FederateAlreadyExecutionMember -> RestoreInProgress; federateRestoreComplete => alpha < federationRestored

story is within a callback
   federation Road.xml float
   alpha: join
   alpha on federationSaveStatusResponse: * -> CallNotAllowedFromWithinCallback; getFederateName alpha = alpha
   alpha: queryFederationSaveStatus => alpha < federationSaveStatusResponse alpha=idle
   alpha on reportFederationExecutions: * -> CallNotAllowedFromWithinCallback;
      destroyFederationExecution $other -> FederationExecutionDoesNotExist
   alpha: resignFederationExecution NO_ACTION; listFederationExecutions
   alpha < reportFederationExecutions $federation=HLAfloat64Time

story is from the class or object to the attribute to its owner
   be-on-the-road
   alpha: * Car [noAttribute|Position Load] but InvalidAttributeHandle -> AttributeNotDefined # a car has no load
   alpha: subscribe noObjectClass noAttribute Breakneck -> InvalidUpdateRateDesignator
   alpha: register Truck free -> ObjectClassNotPublished
   beta: * car [noAttribute|Load|Speed Load|Load reliable|Load RO|noAttribute=1 Speed=1|Speed=1 Load=1] -> AttributeNotDefined
   beta: * car [Speed|Fuel reliable|Fuel RO|Speed=1] -> AttributeNotOwned
   alpha: attributeOwnershipAcquisition car Passengers Speed -> FederateOwnsAttributes
   beta: attributeOwnershipAcquisition car Fuel
   beta: attributeOwnershipAcquisitionIfAvailable car Passengers Fuel -> AttributeNotPublished
   # Owns one thing, and wants another.
   beta: own = register Car; resignFederationExecution NO_ACTION -> FederateOwnsAttributes
   beta: resignFederationExecution UNCONDITIONALLY_DIVEST_ATTRIBUTES -> OwnershipAcquisitionPending
   alpha < requestAttributeOwnershipRelease car Fuel

to be-refused-regions $car
   alpha: * $car Load@noRegion -> AttributeNotDefined
   alpha: * $car [Position@foreign,noRegion|Position@foreign Position@noRegion] -> InvalidRegion
   alpha: * $car Fuel@foreign -> RegionNotCreatedByThisFederate
   alpha: * $car [Fuel|Speed]@stretch -> InvalidRegionContext
story is from the attribute to the region
   be-on-the-road
   be-refused-regions [Car|car]
   alpha: subscribe noObjectClass Position@foreign Position@noRegion Breakneck -> InvalidUpdateRateDesignator
   alpha: register Truck noAttribute@noRegion [|free] -> AttributeNotDefined
   alpha: register Truck Position@noRegion [|free] -> ObjectClassNotPublished
   alpha: register Car Passengers@noRegion [|free] -> AttributeNotPublished
   alpha: register Car Position@noRegion free -> InvalidRegion
   alpha: register Car Position@foreign free -> RegionNotCreatedByThisFederate
   alpha: register Car Fuel@stretch free -> InvalidRegionContext
   alpha: register Car Position@stretch free -> ObjectInstanceNameNotReserved; reserveObjectInstanceName taken
   alpha < objectInstanceNameReservationSucceeded taken
   alpha: taken = register Car taken; register Car Position@stretch taken -> ObjectInstanceNameInUse
   alpha: commitRegionModifications foreign noRegion -> InvalidRegion
   alpha: setRangeBounds foreign noDimension 9..1 -> RegionNotCreatedByThisFederate
   alpha: setRangeBounds stretch noDimension 9..1 -> RegionDoesNotContainSpecifiedDimension
   alpha: send Accident foreign -> InteractionClassNotPublished; publish Message; publish Accident
   alpha: * Accident foreign noRegion -> InvalidRegion
   alpha: * Message foreign -> RegionNotCreatedByThisFederate
   alpha: * Message stretch -> InvalidRegionContext
   alpha: send Accident Level=1 stretch -> InteractionParameterNotDefined
   beta < whatever

story is of the time last
   be-on-the-road
   alpha, beta: enableTimeRegulation 5 => alpha, beta < timeRegulationEnabled 0
   beta: update car noAttribute= at 0 -> AttributeNotDefined; update car Speed= at 0 -> AttributeNotOwned
   alpha: send Accident Level= at 0 -> InteractionParameterNotDefined
   alpha: send Accident [|foreign] at 0 -> InteractionClassNotPublished
   beta: delete car at 0 -> DeletePrivilegeNotHeld
   alpha: publish Accident; publish Message
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

# Arguments that are nothing: in the order of the arguments, and their state before that of the federate.
story is for nothing that is known
   federation Road.xml
   alpha: join
   alpha: * -> [ObjectInstanceNotKnown|ObjectClassNotDefined|InteractionClassNotDefined|InvalidObjectClassHandle|
      InvalidInteractionClassHandle|InvalidDimensionHandle|InvalidFederateHandle|InvalidOrderName|
      InvalidTransportationName|IllegalName|SynchronizationPointLabelNotAnnounced]
   alpha: * but ObjectClassNotDefined -> ObjectInstanceNameNotReserved
   alpha: * but ObjectInstanceNotKnown ObjectClassNotDefined InteractionClassNotDefined -> InvalidRegion
   alpha: * but InvalidObjectClassHandle InvalidInteractionClassHandle -> NameNotFound
   alpha: * -> [TimeRegulationIsNotEnabled|TimeConstrainedIsNotEnabled|AsynchronousDeliveryAlreadyDisabled|
      SaveNotInitiated|FederateHasNotBegunSave|SaveNotInProgress|RestoreNotRequested|RestoreNotInProgress]
   alpha: * -> [FederateIsExecutionMember|AlreadyConnected|FederateAlreadyExecutionMember]
   turn [ObjectClassRelevance|AttributeRelevance|AttributeScope|InteractionRelevance]
to turn $switch
   alpha: * -> $switchAdvisorySwitchIsOff; enable$switchAdvisorySwitch; * -> $switchAdvisorySwitchIsOn
   alpha: disable$switchAdvisorySwitch
