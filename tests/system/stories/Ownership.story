# Alpha's car, whose attributes beta and gamma may own too.
include Road.include

   share-a-car
   gamma: join; publish Car Position Speed Fuel; subscribe Car Position Speed Fuel
   gamma < discover car Car car alpha

# As the federates themselves see it, and as one that asks is told.
to expect-owner $owner $attribute
   $owner: isAttributeOwnedByFederate car $attribute = true
   others: isAttributeOwnedByFederate car $attribute = false
   gamma: queryAttributeOwnership car $attribute => gamma < informAttributeOwnership car $attribute $owner
to expect-no-owner $attribute
   all: isAttributeOwnedByFederate car $attribute = false
   gamma: queryAttributeOwnership car $attribute => gamma < attributeIsNotOwned car $attribute

story is given away unconditionally
   expect-owner alpha Position
   alpha: unconditionalAttributeOwnershipDivestiture car Position Speed
   beta, gamma < requestAttributeOwnershipAssumption car Position Speed
   expect-no-owner Position
   expect-owner alpha Fuel
   beta: publish Truck Position; attributeOwnershipAcquisition car Position tag=mine # of another class: no new offer
   beta < attributeOwnershipAcquisitionNotification car Position
   expect-owner beta Position
   beta: update car Position=1 => gamma < reflect car Position=1 RO reliable by beta

story is given away by agreement
   alpha: negotiatedAttributeOwnershipDivestiture car Position Speed tag=offer
   beta, gamma < requestAttributeOwnershipAssumption car Position Speed tag=offer
   alpha: negotiatedAttributeOwnershipDivestiture car Speed Fuel -> AttributeAlreadyBeingDivested
   alpha: confirmDivestiture car Position -> NoAcquisitionPending
   alpha: confirmDivestiture car Fuel -> AttributeDivestitureWasNotRequested
   beta: attributeOwnershipAcquisition car Position tag=mine
   alpha < requestDivestitureConfirmation car Position
   expect-owner alpha Position
   alpha: confirmDivestiture car Position tag=yours
   beta < attributeOwnershipAcquisitionNotification car Position tag=yours
   expect-owner beta Position
   gamma: attributeOwnershipAcquisitionIfAvailable car Speed
   alpha < requestDivestitureConfirmation car Speed
   alpha: confirmDivestiture car Speed tag=yours
   gamma < attributeOwnershipAcquisitionNotification car Speed tag=yours
   expect-owner gamma Speed

story is kept when the offer is taken back
   alpha: cancelNegotiatedAttributeOwnershipDivestiture car Position -> AttributeDivestitureWasNotRequested
   alpha: negotiatedAttributeOwnershipDivestiture car Position tag=offer
   beta, gamma < requestAttributeOwnershipAssumption car Position tag=offer
   beta, gamma: attributeOwnershipAcquisitionIfAvailable car Position
   alpha < requestDivestitureConfirmation car Position
   beta: attributeOwnershipAcquisition car Position tag=mine # on which it insists from now on
   alpha: cancelNegotiatedAttributeOwnershipDivestiture car Position
   alpha < requestAttributeOwnershipRelease car Position tag=mine
   gamma < attributeOwnershipUnavailable car Position
   gamma: attributeOwnershipAcquisitionIfAvailable car Position => gamma < attributeOwnershipUnavailable car Position
   alpha: confirmDivestiture car Position -> AttributeDivestitureWasNotRequested
   expect-owner alpha Position
   alpha: negotiatedAttributeOwnershipDivestiture car Position tag=offer
   alpha < requestDivestitureConfirmation car Position

story is asked of the owner
   beta: attributeOwnershipAcquisition car Position Speed tag=mine
   alpha < requestAttributeOwnershipRelease car Position Speed tag=mine
   expect-owner alpha Position
   alpha: attributeOwnershipDivestitureIfWanted car Position Fuel = Position
   beta < attributeOwnershipAcquisitionNotification car Position
   alpha: attributeOwnershipDivestitureIfWanted car Fuel =
   expect-owner beta Position
   expect-owner alpha Fuel
   alpha: attributeOwnershipReleaseDenied car Speed
   expect-owner alpha Speed

story goes to who asked first
   beta: attributeOwnershipAcquisition car Position tag=first
   alpha < requestAttributeOwnershipRelease car Position tag=first
   beta: attributeOwnershipAcquisition car Position tag=again
   gamma: attributeOwnershipAcquisition car Position tag=second => alpha < whatever
   alpha: unconditionalAttributeOwnershipDivestiture car Position
   beta < attributeOwnershipAcquisitionNotification car Position;
      requestAttributeOwnershipRelease car Position tag=second
   beta: unpublish Car Position => gamma < attributeOwnershipAcquisitionNotification car Position

story brings nothing of how the former owner had it travel
   alpha: requestAttributeTransportationTypeChange car Position best-effort
   alpha < confirmAttributeTransportationTypeChange car Position best-effort
   alpha: negotiatedAttributeOwnershipDivestiture car Position
   beta, gamma < requestAttributeOwnershipAssumption car Position
   beta: attributeOwnershipAcquisitionIfAvailable car Position # which is not insisted on
   beta: cancelAttributeOwnershipAcquisition car Position -> AttributeAcquisitionWasNotRequested
   alpha < requestDivestitureConfirmation car Position
   alpha: confirmDivestiture car Position => beta < attributeOwnershipAcquisitionNotification car Position
   beta: queryAttributeTransportationType car Position
   beta < reportAttributeTransportationType car Position reliable
   beta: negotiatedAttributeOwnershipDivestiture car Position # which alpha's was not
   alpha, gamma < requestAttributeOwnershipAssumption car Position

story is asked for no more
   beta: cancelAttributeOwnershipAcquisition car Position -> AttributeAcquisitionWasNotRequested
   alpha: cancelAttributeOwnershipAcquisition car Position -> AttributeAlreadyOwned
   beta: attributeOwnershipAcquisition car Position tag=mine
   alpha < requestAttributeOwnershipRelease car Position tag=mine
   beta: cancelAttributeOwnershipAcquisition car Position
   beta < confirmAttributeOwnershipAcquisitionCancellation car Position
   alpha: unconditionalAttributeOwnershipDivestiture car Position
   beta, gamma < requestAttributeOwnershipAssumption car Position
   expect-no-owner Position

story is taken if available
   alpha: unconditionalAttributeOwnershipDivestiture car Position
   beta, gamma < requestAttributeOwnershipAssumption car Position
   beta: attributeOwnershipAcquisitionIfAvailable car Position Speed
   beta <~ attributeOwnershipAcquisitionNotification car Position; attributeOwnershipUnavailable car Speed
   expect-owner beta Position
   expect-owner alpha Speed
   beta: attributeOwnershipAcquisition car Speed tag=mine
   beta: attributeOwnershipAcquisitionIfAvailable car Speed -> AttributeAlreadyBeingAcquired
   beta: attributeOwnershipAcquisitionIfAvailable car Position -> FederateOwnsAttributes
   alpha < requestAttributeOwnershipRelease car Speed tag=mine

story is for publishers
   delta, epsilon: join
   delta: subscribe Car Position => delta < discover car Car car alpha
   delta: [attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable] car Position -> ObjectClassNotPublished
   beta: [attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable] car Passengers -> AttributeNotPublished
   alpha: [attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable] car Position -> FederateOwnsAttributes
   epsilon: [attributeOwnershipAcquisition|attributeOwnershipAcquisitionIfAvailable] car Position -> ObjectInstanceNotKnown

story of the privilege to delete passes the right to delete
   alpha: unconditionalAttributeOwnershipDivestiture car HLAprivilegeToDeleteObject
   beta, gamma < requestAttributeOwnershipAssumption car HLAprivilegeToDeleteObject
   alpha: delete car -> DeletePrivilegeNotHeld
   beta: attributeOwnershipAcquisitionIfAvailable car HLAprivilegeToDeleteObject
   beta < attributeOwnershipAcquisitionNotification car HLAprivilegeToDeleteObject
   beta: delete car => alpha, gamma < remove car RO by beta

# The owner has all of the lorry, and the buyer has asked for the fuel and owns nothing. Whoever is left goes in the end.
to resign $action $owning $acquiring $left
   owner, buyer: join; publish Truck Position Speed Fuel; subscribe Truck Position Speed Fuel
   owner: lorry = register Truck => buyer < discover lorry Truck lorry owner
   buyer: attributeOwnershipAcquisition lorry Fuel => owner < requestAttributeOwnershipRelease lorry Fuel
   buyer: resignFederationExecution $action -> $acquiring
   owner: resignFederationExecution $action -> $owning
   $left: resignFederationExecution CANCEL_THEN_DELETE_THEN_DIVEST
   owner, buyer < whatever
story ends as the resigning federate has it
   resign NO_ACTION FederateOwnsAttributes OwnershipAcquisitionPending "owner, buyer"
   resign CANCEL_PENDING_OWNERSHIP_ACQUISITIONS FederateOwnsAttributes nothing owner
   resign [UNCONDITIONALLY_DIVEST_ATTRIBUTES|DELETE_OBJECTS|DELETE_OBJECTS_THEN_DIVEST] nothing OwnershipAcquisitionPending buyer
   resign CANCEL_THEN_DELETE_THEN_DIVEST nothing nothing gamma

story is on offer after the owner resigned
   alpha: resignFederationExecution UNCONDITIONALLY_DIVEST_ATTRIBUTES
   # Whoever publishes a class publishes the privilege to delete with it.
   beta, gamma < requestAttributeOwnershipAssumption car Fuel HLAprivilegeToDeleteObject Position Speed
   beta: attributeOwnershipAcquisition car Position
   beta < attributeOwnershipAcquisitionNotification car Position
   beta: resignFederationExecution DELETE_OBJECTS_THEN_DIVEST # without the privilege to delete
   gamma < requestAttributeOwnershipAssumption car Position
   gamma: queryAttributeOwnership car Position => gamma < attributeIsNotOwned car Position
