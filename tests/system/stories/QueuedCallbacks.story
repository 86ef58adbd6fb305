# Callbacks that wait, because their federate has disabled them, while things change: what a federate is told is so
# when it is told.
include Road.include

   share-a-car
   alpha: subscribe Car Position Speed Fuel

story tell of a retraction only where the message was delivered
   regulate alpha 1
   beta: disableCallbacks
   alpha: m = update car Position=1 at 5; retract m
   beta: enableCallbacks => beta < nothing
   beta: disableCallbacks
   alpha: m = update car Position=1 at 5
   beta: unsubscribe Car
   alpha: retract m
   beta: enableCallbacks => beta < nothing
   beta: subscribe Car Position Speed Fuel; disableCallbacks
   alpha: m = delete car at 5; retract m
   beta: enableCallbacks => beta < nothing
   beta: getKnownObjectClassHandle car = Car; disableCallbacks
   # And so by one that is retracted in the very callback that tells of it.
   alpha: m = delete car at 5
   beta on remove: getKnownObjectClassHandle car = Car
   beta: enableCallbacks => beta < remove car TSO at 5 RO retractable by alpha
   alpha: retract m => beta < requestRetraction m; discover car Car car alpha

story tell nothing of an object that the federate gave up
   regulate alpha 1
   constrain beta
   beta: enableAsynchronousDelivery; disableCallbacks
   alpha: update car Position=1; update car Position=2 at 5; requestAttributeValueUpdate car Position
   beta: queryAttributeOwnership car Position; localDeleteObjectInstance car; enableCallbacks
   beta: unsubscribe Car; subscribe Car Position Speed Fuel => beta < discover car Car car alpha
   alpha: unconditionalAttributeOwnershipDivestiture car HLAprivilegeToDeleteObject
   beta < requestAttributeOwnershipAssumption car HLAprivilegeToDeleteObject
   beta: attributeOwnershipAcquisitionIfAvailable car HLAprivilegeToDeleteObject
   beta < attributeOwnershipAcquisitionNotification car HLAprivilegeToDeleteObject
   beta: disableCallbacks
   alpha: update car Position=1; update car Position=2 at 5
   beta: delete car; enableCallbacks => beta < nothing => alpha < remove car RO by beta
   # An object that it does not even know of yet.
   beta: disableCallbacks
   alpha: other = register Car
   beta: localDeleteObjectInstance other; enableCallbacks => beta < nothing
   alpha: timeAdvanceRequest 50 => alpha < timeAdvanceGrant 50
   beta: timeAdvanceRequest 20 => beta < timeAdvanceGrant 20

story come in the order of time only to who knows that it is constrained
   regulate alpha 1
   beta: disableCallbacks
   alpha: update car Position=before at 9
   beta: enableTimeConstrained; enableCallbacks
   alpha: update car Position=after at 8; update car Position=after at 7
   beta < reflect car Position=before TSO reliable at 9 RO retractable by alpha; timeConstrainedEnabled 0
   beta: flushQueueRequest 0
   beta < reflect car Position=after TSO reliable at 7 TSO retractable by alpha;
      reflect car Position=after TSO reliable at 8 TSO retractable by alpha; timeAdvanceGrant 0
   beta: disableCallbacks
   alpha: update car Position=b at 6; update car Position=a at 5
   beta: flushQueueRequest 0
   alpha: update car Position=c at 4
   beta: disableTimeConstrained; enableCallbacks
   beta < reflect car Position=a TSO reliable at 5 RO retractable by alpha;
      reflect car Position=b TSO reliable at 6 RO retractable by alpha; timeAdvanceGrant 0;
      reflect car Position=c TSO reliable at 4 RO retractable by alpha

# What waits is looked at by the subscriptions of the moment it is delivered: in receive order, then in that of time.
to let-wait $how $time $before $send $change $expected
   move alpha there 1..2
   move beta here 0..2
   beta: unsubscribe [Message|Urgent|Accident|Car]
   $before
   let-wait-$how $time "$send" "$change" "$expected"
to let-wait-RO $time $send $change $expected
   beta: disableCallbacks
   alpha: $send at $time
   $change
   advance alpha $time
   beta: enableCallbacks => beta < $expected
to let-wait-TSO $time $send $change $expected
   alpha: $send at $time
   $change
   advance alpha $time
   beta: timeAdvanceRequest $time => beta < $expected; timeAdvanceGrant $time
to change-subscriptions $order
   regulate alpha 1
   alpha: publish Urgent; publish Accident; there = createRegion Lane
   alpha: changeInteractionOrderType Urgent TSO; changeAttributeOrderType car Fuel TSO
   beta: here = createRegion Lane
   make-region beta beside 1..3
   let-wait $order 10 "beta: subscribe Message" "send Urgent Words=fire Level=9" "beta: subscribe Urgent; unsubscribe Message" "receive Urgent Level=9 Words=fire TSO best-effort at 10 $order retractable by alpha"
   let-wait $order 20 "beta: subscribe Message" "send Urgent Words=fire Level=9" "beta: subscribe Urgent" "receive Urgent Level=9 Words=fire TSO best-effort at 20 $order retractable by alpha"
   let-wait $order 30 "beta: subscribe Urgent" "send Urgent" "beta: unsubscribe Urgent" nothing
   let-wait $order 40 "beta: subscribe Accident here" "send Accident there" "beta: subscribe Accident beside; unsubscribe Accident here" "receive Accident TSO reliable at 40 $order retractable by alpha from there"
   let-wait $order 50 "beta: subscribe Accident here" "send Accident there" "move alpha there 6..7" "receive Accident TSO reliable at 50 $order retractable by alpha from there"
   let-wait $order 60 "beta: subscribe Accident here" "send Accident there" "move beta here 4..5" nothing
   let-wait $order 70 "beta: subscribe Car Position" "update car Position=1 Fuel=2" "beta: subscribe Car Fuel" "reflect car Fuel=2 Position=1 TSO reliable at 70 $order retractable by alpha"
   let-wait $order 80 "beta: subscribe Car Position; subscribe Vehicle Position" "update car Position=1 Fuel=2" "beta: unsubscribe Vehicle" "reflect car Position=1 TSO reliable at 80 $order retractable by alpha"
   let-wait $order 90 "beta: subscribe Car Position" "update car Position=1 Fuel=2" "beta: unsubscribe Car" nothing
story come as what is subscribed when they are delivered
   change-subscriptions RO
story come in the order of time as what is subscribed when they are delivered
   constrain beta
   change-subscriptions TSO

story tell of ownership only as it is
   # Offered, taken and given up again before it heard of any of it.
   beta: disableCallbacks
   alpha: unconditionalAttributeOwnershipDivestiture car Position Speed
   beta: attributeOwnershipAcquisition car Position Speed tag=mine; unpublish Car Position; enableCallbacks
   beta < attributeOwnershipAcquisitionNotification car Speed
   beta: isAttributeOwnedByFederate car Position = false; isAttributeOwnedByFederate car Speed = true
   alpha < requestAttributeOwnershipAssumption car Position
   alpha: attributeOwnershipAcquisition car Position Speed
   alpha < attributeOwnershipAcquisitionNotification car Position
   beta < requestAttributeOwnershipRelease car Speed
   beta: unconditionalAttributeOwnershipDivestiture car Speed; publish Car Position
   alpha < attributeOwnershipAcquisitionNotification car Speed
   # Asked for the release twice, where only the second time is meant.
   alpha: disableCallbacks
   beta: attributeOwnershipAcquisition car Position; cancelAttributeOwnershipAcquisition car Position
   beta: attributeOwnershipAcquisition car Position
   alpha: enableCallbacks => alpha < requestAttributeOwnershipRelease car Position
   beta: cancelAttributeOwnershipAcquisition car Position
   beta < confirmAttributeOwnershipAcquisitionCancellation car Position;
      confirmAttributeOwnershipAcquisitionCancellation car Position
   # Asked for the release, or to confirm one, and neither is wanted any more.
   alpha: disableCallbacks
   beta: attributeOwnershipAcquisition car Position Speed tag=mine; cancelAttributeOwnershipAcquisition car Position
   alpha: unconditionalAttributeOwnershipDivestiture car Speed; enableCallbacks => alpha < nothing
   beta < confirmAttributeOwnershipAcquisitionCancellation car Position; attributeOwnershipAcquisitionNotification car Speed
   alpha: negotiatedAttributeOwnershipDivestiture car Position Fuel
   beta < requestAttributeOwnershipAssumption car Fuel Position
   alpha: disableCallbacks
   beta: attributeOwnershipAcquisition car Position Fuel; cancelAttributeOwnershipAcquisition car Fuel
   alpha: cancelNegotiatedAttributeOwnershipDivestiture car Position; enableCallbacks
   alpha < requestAttributeOwnershipRelease car Position
   beta < confirmAttributeOwnershipAcquisitionCancellation car Fuel
   # Asked for values of what it owns no more; its transportation type changes no more either.
   alpha: disableCallbacks
   beta: requestAttributeValueUpdate car Position Fuel
   alpha: requestAttributeTransportationTypeChange car Position Fuel best-effort
   alpha: unconditionalAttributeOwnershipDivestiture car Position; enableCallbacks
   alpha < provideAttributeValueUpdate car Fuel; confirmAttributeTransportationTypeChange car Fuel best-effort
   beta < attributeOwnershipAcquisitionNotification car Position
   beta: queryAttributeTransportationType car Position
   beta < reportAttributeTransportationType car Position reliable

story are none after a resignation
   beta: disableCallbacks
   alpha: update car Position=1 at 5; unconditionalAttributeOwnershipDivestiture car Position
   beta: attributeOwnershipAcquisition car Position; enableTimeConstrained
   beta: resignFederationExecution UNCONDITIONALLY_DIVEST_ATTRIBUTES; join; enableCallbacks => beta < nothing
   alpha < requestAttributeOwnershipAssumption car Position
   alpha: queryAttributeOwnership car Position => alpha < attributeIsNotOwned car Position
   beta: disableTimeConstrained -> TimeConstrainedIsNotEnabled

story are none of what a restore replaces
   save
   beta: disableCallbacks
   alpha: update car Position=1; requestFederationRestore noon
   alpha < requestFederationRestoreSucceeded noon; federationRestoreBegun; initiateFederateRestore noon alpha alpha
   alpha, beta: federateRestoreComplete => alpha < federationRestored
   beta: enableCallbacks => beta < federationRestored
