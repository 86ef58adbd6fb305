# Time management on the road: alpha's car, of which beta is told, and two kinds of interactions.
include Road.include

   share-a-car
   alpha: publish [Accident|Message]
   beta: subscribe [Accident|Message]

to let-alpha-lead
   regulate alpha 1
   constrain beta
to coordinate $lookahead
   regulate [alpha|beta] $lookahead
   constrain [alpha|beta]

story is taken up when the callback says so and given up
   alpha: enableTimeRegulation -1 -> InvalidLookahead
   alpha, beta: disableCallbacks
   alpha: enableTimeRegulation 1; * -> RequestForTimeRegulationPending
   beta: enableTimeConstrained; * -> RequestForTimeConstrainedPending
   alpha, beta: enableCallbacks => alpha < timeRegulationEnabled 0 => beta < timeConstrainedEnabled 0
   alpha: enableTimeRegulation -1 -> TimeRegulationAlreadyEnabled; modifyLookahead -1 -> InvalidLookahead
   beta: enableTimeConstrained -> TimeConstrainedAlreadyEnabled; enableAsynchronousDelivery
   beta: enableAsynchronousDelivery -> AsynchronousDeliveryAlreadyEnabled; disableAsynchronousDelivery
   alpha: disableTimeRegulation; * -> TimeRegulationIsNotEnabled
   beta: disableTimeConstrained; * -> TimeConstrainedIsNotEnabled
   regulate alpha 0
   constrain beta
   beta: timeAdvanceRequest 10; * -1 but TimeRegulationIsNotEnabled -> InTimeAdvancingState
   advance alpha 1
   alpha: * 0 -> LogicalTimeAlreadyPassed

story holds back what may still have company
   let-alpha-lead
   beta: timeAdvanceRequest 10
   alpha: send Accident at 2
   advance alpha 1 => beta < nothing
   advance alpha 2 => beta < receive Accident TSO reliable at 2 TSO retractable by alpha

story takes no heed of what is unwanted
   let-alpha-lead
   alpha: send Accident at 25; update car Position=e at 26; delete car tag=gone at 27
   advance alpha 30
   beta: unsubscribe Accident; queryLITS = 26
   beta: subscribe Accident; nextMessageRequest 30 # once beta was told so it comes no more
   beta < reflect car Position=e TSO reliable at 26 TSO retractable by alpha; timeAdvanceGrant 26
   beta: getKnownObjectClassHandle car = Car # as yet
   beta: timeAdvanceRequest 30 => beta < remove car tag=gone TSO at 27 TSO retractable by alpha; timeAdvanceGrant 30

story orders only what is sent and received in order
   # Not regulating: without order, though with a time.
   alpha: update car Position=1 at 5 = not retractable
   beta < reflect car Position=1 RO reliable at 5 RO by alpha
   regulate alpha 1
   alpha: update car Position=2 at 5 # to who is not constrained: without order on arrival
   beta < reflect car Position=2 TSO reliable at 5 RO retractable by alpha
   constrain beta
   beta: enableAsynchronousDelivery
   alpha: update car Position=1 Fuel=2 at 5 = retractable
   beta < reflect car Fuel=2 RO reliable at 5 RO by alpha
   alpha: changeAttributeOrderType car Position RO; changeAttributeOrderType car Fuel TSO
   alpha: changeInteractionOrderType Message TSO; changeInteractionOrderType Accident RO
   alpha: update car Position=1 Fuel=2 at 5; send Message at 7; send Accident at 7 = not retractable
   beta < reflect car Position=1 RO reliable at 5 RO by alpha; receive Accident RO reliable at 7 RO by alpha
   advance alpha 10
   beta: timeAdvanceRequest 10
   beta < reflect car Position=1 TSO reliable at 5 TSO retractable by alpha;
      reflect car Fuel=2 TSO reliable at 5 TSO retractable by alpha;
      receive Message TSO reliable at 7 TSO retractable by alpha; timeAdvanceGrant 10

story delivers without order only to who is advancing
   let-alpha-lead
   alpha: send Message Words=early => beta < nothing
   beta: timeAdvanceRequest 5 => beta < receive Message Words=early RO reliable by alpha
   alpha: send Message Words=meanwhile => beta < receive Message Words=meanwhile RO reliable by alpha
   advance alpha 10
   beta < timeAdvanceGrant 5
   alpha: send Message Words=late => beta < nothing
   beta: enableAsynchronousDelivery => beta < receive Message Words=late RO reliable by alpha
   alpha: send Message Words=any-time => beta < receive Message Words=any-time RO reliable by alpha
   beta: disableAsynchronousDelivery
   alpha: send Message Words=later => beta < nothing
   beta: disableTimeConstrained => beta < receive Message Words=later RO reliable by alpha

story takes deletions back
   regulate alpha 1
   alpha: changeAttributeOrderType car Fuel TSO
   alpha: deletion = delete car at 5 => beta < remove car TSO at 5 RO retractable by alpha
   alpha: update car Position=1 at 6 -> ObjectInstanceNotKnown; retract deletion
   beta < requestRetraction deletion; discover car Car car alpha
   alpha: update car Fuel=2 Position=1 at 6 = retractable
   beta < reflect car Fuel=2 Position=1 TSO reliable at 6 RO retractable by alpha # as the owner had chosen
   # With its regions as far as there are any, and without what is not published any more.
   make-region alpha where 0..1
   alpha: associateRegionsForUpdates car Position@where
   constrain beta
   beta: enableAsynchronousDelivery
   alpha: deletion = delete car at 20; retract deletion
   alpha: deleteRegion where -> RegionInUseForUpdateOrSubscription
   alpha: deletion = delete car at 20; deleteRegion where; retract deletion; update car Position=2
   beta < reflect car Position=2 RO reliable by alpha
   alpha: deletion = delete car at 20; unpublish Car; retract deletion
   alpha: getKnownObjectClassHandle car = Car; isAttributeOwnedByFederate car Position = false
   beta < whatever

story deletes several objects at times
   let-alpha-lead
   alpha: van = register Car; bus = register Car => beta < discover van Car van alpha; discover bus Car bus alpha
   alpha: delete car at 3; taken = delete van at 4; delete bus tag=last at 5; retract taken
   alpha: delete bus at 6 -> ObjectInstanceNotKnown; update van Position=on at 7 = retractable
   advance alpha 10
   beta: timeAdvanceRequest 4 => beta < remove car TSO at 3 TSO retractable by alpha; timeAdvanceGrant 4
   beta: timeAdvanceRequest 6 => beta < remove bus tag=last TSO at 5 TSO retractable by alpha; timeAdvanceGrant 6

story saves at a time
   coordinate 1
   advance alpha 0
   alpha: requestFederationSave noon at 10; update car Position=before at 9; update car Position=after at 12
   alpha: timeAdvanceRequest 20 # which beta would not allow
   beta: timeAdvanceRequest 15
   beta < reflect car Position=before TSO reliable at 9 TSO retractable by alpha; initiateFederateSave noon at 10
   alpha < initiateFederateSave noon at 10
   alpha, beta: federateSaveBegun; federateSaveComplete => alpha < federationSaved
   beta < federationSaved; reflect car Position=after TSO reliable at 12 TSO retractable by alpha; timeAdvanceGrant 15
   advance beta 20
   alpha < timeAdvanceGrant 20
   alpha: requestFederationSave past at 5 -> LogicalTimeAlreadyPassed

story saves before the time is granted
   let-alpha-lead
   alpha: requestFederationSave noon at 10
   advance alpha 20
   beta: timeAdvanceRequest 10 => beta < initiateFederateSave noon at 10
   alpha < initiateFederateSave noon at 10

story and objects come back with a restore
   coordinate 1
   gamma: join; subscribe Car Position Speed Fuel # is sent the same messages
   gamma < discover car Car car alpha
   constrain gamma
   alpha, beta: timeAdvanceRequest 10 => alpha, beta < timeAdvanceGrant 10
   alpha: update car Position=kept at 15
   save
   alpha: delete car
   alpha, beta: timeAdvanceRequest 30 => alpha < timeAdvanceGrant 30
   beta < remove car RO by alpha; timeAdvanceGrant 30 # and so no more of the car
   alpha: disableTimeRegulation
   beta: requestFederationSave evening at 40
   restore
   alpha, beta: queryLogicalTime = 10
   alpha: queryLookahead = 1; isAttributeOwnedByFederate car Position = true
   beta: getKnownObjectClassHandle car = Car
   alpha, beta, gamma: timeAdvanceRequest 50 # past the time of the save, which is off
   alpha < timeAdvanceGrant 50
   beta, gamma < reflect car Position=kept TSO reliable at 15 TSO retractable by alpha; timeAdvanceGrant 50

story goes on waiting after a restore
   gamma: join
   make-region alpha where 0..2
   let-alpha-lead
   alpha: update car Position=1 at 5; send Accident Damage=2 where at 6
   make-region beta here 1..3
   alpha: associateRegionsForUpdates car Position@where
   beta: timeAdvanceRequest 10
   advance gamma 50
   gamma: enableTimeConstrained
   save
   let-them-go
   alpha: unassociateRegionsForUpdates car Position@where; deleteRegion where
   restore
   let-them-go
   alpha: getRangeBounds where Lane = 0..2; deleteRegion where -> RegionInUseForUpdateOrSubscription
to let-them-go
   beta: unsubscribe Accident; subscribe Accident here
   advance alpha 60
   beta < reflect car Position=1 TSO reliable at 5 TSO retractable by alpha;
      receive Accident Damage=2 TSO reliable at 6 TSO retractable by alpha from where; timeAdvanceGrant 10
   gamma < timeConstrainedEnabled 50

story is only for who takes part
   alpha: requestFederationSave noon at 5 -> FederateUnableToUseTime; retract noMessageRetraction -> TimeRegulationIsNotEnabled
   regulate [alpha|beta] 1
   alpha: sent = update car Position=1 at 5
   beta < reflect car Position=1 TSO reliable at 5 RO retractable by alpha
   beta: retract sent -> InvalidMessageRetractionHandle
   constrain alpha
   alpha: timeAdvanceRequest 20 # which promises not to send for 5 any more
   alpha: retract sent -> MessageCanNoLongerBeRetracted
