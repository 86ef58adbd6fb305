# Publication and subscription, and what publishers are told of them.
include Road.include

story of publication allows to register and to send
   alpha: register Car -> ObjectClassNotPublished; send Message -> InteractionClassNotPublished
   alpha: publish Vehicle Position; publish Message
   alpha: register Car -> ObjectClassNotPublished; send Urgent -> InteractionClassNotPublished
   beta: register Vehicle -> ObjectClassNotPublished
   alpha: register Vehicle; send Message; unpublish Vehicle; unpublish Message
   alpha: register Vehicle -> ObjectClassNotPublished; send Message -> InteractionClassNotPublished

story of publication adds up and ends with ownership
   alpha: publish Car Position; publish Car Speed Fuel; car = register Car
   alpha: isAttributeOwnedByFederate car [Position|Speed|Fuel|HLAprivilegeToDeleteObject] = true
   alpha: isAttributeOwnedByFederate car Passengers = false
   alpha: unpublish Car Speed Passengers; isAttributeOwnedByFederate car Speed = false
   alpha: isAttributeOwnedByFederate car [Position|Fuel|HLAprivilegeToDeleteObject] = true
   alpha: update car Speed=5 -> AttributeNotOwned; unpublish Car
   alpha: isAttributeOwnedByFederate car [Position|Fuel|HLAprivilegeToDeleteObject] = false

story is not taken back while ownership is being acquired
   share-a-car
   beta: attributeOwnershipAcquisition car Speed
   beta: unpublish Car [|Speed Fuel] -> OwnershipAcquisitionPending
   beta: unpublish Car Fuel; cancelAttributeOwnershipAcquisition car Speed
   beta: attributeOwnershipAcquisition car HLAprivilegeToDeleteObject
   beta: unpublish Car Position Speed -> OwnershipAcquisitionPending # the privilege would go too
   beta < confirmAttributeOwnershipAcquisitionCancellation car Speed
   alpha < whatever

story is told to publishers who want to know whether to register
   gamma: join
   alpha: enableObjectClassRelevanceAdvisorySwitch; publish Car Position Speed; subscribe Car Position => alpha < nothing
   beta: subscribe Car Passengers # which alpha does not publish
   beta: subscribe Truck Position; subscribe Car Position passively => alpha < nothing
   beta: subscribe Vehicle Position => alpha < startRegistrationForObjectClass Car
   gamma: subscribe Car Speed
   beta: unsubscribe Vehicle => alpha < nothing
   gamma: resignFederationExecution NO_ACTION => alpha < stopRegistrationForObjectClass Car
   beta: subscribe Vehicle Fuel => alpha < nothing
   alpha: publish Car Fuel => alpha < startRegistrationForObjectClass Car
   alpha: disableObjectClassRelevanceAdvisorySwitch
   beta: unsubscribe Vehicle => alpha, beta < nothing

story is told to publishers who want to know whether to send
   alpha: enableInteractionRelevanceAdvisorySwitch
   beta: subscribe Message => alpha < nothing
   alpha: publish Urgent => alpha < turnInteractionsOn Urgent
   beta: subscribe Urgent; unsubscribe Message => alpha < nothing
   beta: unsubscribe Urgent => alpha < turnInteractionsOff Urgent
   beta: subscribe Urgent passively
   alpha: subscribe Urgent # nobody sends to himself
   beta: subscribe Accident => alpha < nothing
   beta: subscribe Urgent => alpha < turnInteractionsOn Urgent
   beta: resignFederationExecution NO_ACTION => alpha < turnInteractionsOff Urgent
