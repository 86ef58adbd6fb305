include Road.include
include Management.include

every story
   take-the-road
   name-management alpha
   # Where reports are sent is of no interest here.
   name-one alpha HLAadjust.HLAsetSwitches
   alpha: Switching = getInteractionClassHandle HLAmanager.HLAfederate.HLAadjust.HLAsetSwitches;
      ConveyRegions = getParameterHandle Does HLAconveyRegionDesignatorSets
   alpha: send Does Who=#alpha ConveyRegions=:0; send Does Who=#beta ConveyRegions=:0; unpublish Does

# What a federate of a space-simulation framework asks before it does anything else.
story lets a framework begin
   alpha: subscribe Federation AutoProvide; federation = getObjectInstanceHandle HLAfederation
   alpha < discover federation Federation federation; reflect federation AutoProvide=:0 RO reliable by somebody
   alpha: requestAttributeValueUpdate Federation AutoProvide
   alpha < reflect federation AutoProvide=:0 RO reliable by somebody
   alpha: unsubscribe Federation AutoProvide
   alpha: publish SetSwitches; send SetSwitches AutoProviding=:1; unpublish SetSwitches
   alpha: subscribe Federate Name Handle
   know-two alpha
   alpha <~ discover first Federate first; discover second Federate second;
      reflect first Handle=#alpha Name='alpha' RO reliable by somebody;
      reflect second Handle=#beta Name='beta' RO reliable by somebody
   gamma: join
   alpha: third = getObjectInstanceHandle HLAfederate-3
   alpha < discover third Federate third; reflect third Handle=#gamma Name='gamma' RO reliable by somebody
   alpha: unsubscribe Federate; getObjectInstanceName third = third; getObjectInstanceHandle HLAfederate-3 = third
   gamma: resignFederationExecution NO_ACTION
   alpha < remove third RO by somebody
   beta < nothing
to know-two $federate
   $federate: first = getObjectInstanceHandle HLAfederate-1; second = getObjectInstanceHandle HLAfederate-2

story tells at once of what federates come to
   beta: subscribe Federate Regulating Constrained Advancing; subscribe Federation Members
   know-two beta
   beta: federation = getObjectInstanceHandle HLAfederation
   beta < whatever
   alpha: enableTimeRegulation 1; enableTimeConstrained
   alpha <~ timeRegulationEnabled 0; timeConstrainedEnabled 0
   beta < reflect first Regulating=:1 RO reliable by somebody; reflect first Constrained=:1 RO reliable by somebody
   alpha: timeAdvanceRequest 5
   alpha < timeAdvanceGrant 5
   beta < reflect first Advancing=:1 RO reliable by somebody; reflect first Advancing=:0 RO reliable by somebody
   gamma: join
   beta: third = getObjectInstanceHandle HLAfederate-3
   beta <~ discover third Federate third; reflect federation Members=(#alpha,#beta,#gamma) RO reliable by somebody;
      reflect third Advancing=:0 Constrained=:0 Regulating=:0 RO reliable by somebody
   gamma: resignFederationExecution NO_ACTION
   beta <~ remove third RO by somebody; reflect federation Members=(#alpha,#beta) RO reliable by somebody

story counts and tells again and again when asked
   beta: subscribe Federate Sent Reflected; subscribe Car Position
   know-two beta
   alpha: publish Car Position Speed; car = register Car
   alpha: update car Position=1; update car Position=2 Speed=3; update car Speed=4
   beta < whatever
   beta: requestAttributeValueUpdate first Sent
   beta < reflect first Sent=:4 RO reliable by somebody # the second went by two ways
   beta: unsubscribe Federate Reflected
   name-one beta HLAadjust.HLAsetTiming
   beta: Period = getParameterHandle Does HLAreportPeriod
   beta: send Does Who=#alpha Period=:1
   beta < reflect first Sent=:4 RO reliable by somebody
   beta: send Does Who=#alpha Period=:0

story owns what it tells
   alpha: subscribe Federate Name; publish Federate Name
   know-two alpha
   alpha < whatever
   alpha: queryAttributeOwnership second Name
   alpha < attributeIsOwnedByRTI second Name
   alpha: attributeOwnershipAcquisitionIfAvailable second Name
   alpha < attributeOwnershipUnavailable second Name
   alpha: delete second -> DeletePrivilegeNotHeld; update second Name=x -> AttributeNotOwned
   alpha: attributeOwnershipAcquisition second Name; cancelAttributeOwnershipAcquisition second Name
   alpha < confirmAttributeOwnershipAcquisitionCancellation second Name
   alpha: subscribe Fault
   name-one alpha HLAadjust.HLAmodifyAttributeState
   name-parameters alpha HLAobjectInstance HLAattribute
   alpha: Wanted = getParameterHandle Does HLAattributeState
   alpha: send Does Who=#alpha One=#second Two=#Name Wanted=:1
   refused HLAadjust.HLAmodifyAttributeState AttributeNotOwned:... :0
   # What federates own can be moved between them.
   beta: publish Car Position; car = register Car
   alpha: publish Car Position; subscribe Car Position
   alpha < discover car Car car beta
   alpha: send Does Who=#alpha One=#car Two=#Position Wanted=:1; isAttributeOwnedByFederate car Position = true
   alpha: send Does Who=#alpha One=#car Two=#Position Wanted=:0; isAttributeOwnedByFederate car Position = false
   beta <~ requestAttributeOwnershipAssumption car Position

# What alpha asked was not done.
to refused $interaction $why $wrongly
   alpha < receive Fault Asked='HLAinteractionRoot.HLAmanager.HLAfederate.$interaction' Who=#alpha Why='$why' Wrongly=$wrongly RO reliable by somebody

story reports what federates publish and subscribe to
   beta: publish Car Position; publish Urgent; subscribe Truck Load passively; subscribe Accident
   hear-of-three alpha ObjectClassPublication HLAnumberOfClasses HLAobjectClass HLAattributeList
   hear-interactions
   name-one alpha HLArequest.HLArequestPublications
   alpha: send Does Who=#beta
   alpha <~ receive Tells First=:1 Second=#Car Third=(#Privilege,#Position) Who=#beta RO reliable by somebody;
      receive Interactions Fourth=(#Urgent) Who=#beta RO reliable by somebody
   beta: unpublish Car
   alpha: send Does Who=#beta
   alpha <~ receive Tells First=:0 Who=#beta RO reliable by somebody;
      receive Interactions Fourth=(#Urgent) Who=#beta RO reliable by somebody
   hear-of-three alpha ObjectClassSubscription HLAobjectClass HLAactive HLAattributeList
   alpha: Rate = getParameterHandle Tells HLAmaxUpdateRate; Count = getParameterHandle Tells HLAnumberOfClasses
   name-one alpha HLArequest.HLArequestSubscriptions
   alpha: send Does Who=#beta
   alpha < receive Tells Count=:1 First=#Truck Rate=:0 Second=:0 Third=(#Load) Who=#beta RO reliable by somebody
to hear-interactions
   alpha: Interactions = getInteractionClassHandle HLAmanager.HLAfederate.HLAreport.HLAreportInteractionPublication;
      Fourth = getParameterHandle Interactions HLAinteractionClassList; subscribe Interactions

story reports what has been sent and received
   share-a-car
   alpha: update car Position=1; update car Fuel=1
   beta < whatever
   alpha: publish Urgent; send Urgent; unpublish Does
   hear-of-two beta UpdatesSent HLAtransportation HLAupdateCounts
   name-management beta
   name-the-road beta
   name-one beta HLArequest.HLArequestUpdatesSent
   beta: send Does Who=#alpha
   beta <~ receive Tells First='HLAreliable' Second=(#Car+:2) Who=#alpha RO reliable by somebody;
      receive Tells First='HLAbestEffort' Second=:0 Who=#alpha RO reliable by somebody
   hear-of-two beta InteractionsSent HLAtransportation HLAinteractionCounts
   name-one beta HLArequest.HLArequestInteractionsSent
   beta: send Does Who=#alpha
   beta <~ receive Tells First='HLAreliable' Second=(#Switching+:2) Who=#alpha RO reliable by somebody;
      receive Tells First='HLAbestEffort' Second=(#Urgent+:1) Who=#alpha RO reliable by somebody
   hear-of beta ObjectInstancesReflected HLAobjectInstanceCounts
   name-one beta HLArequest.HLArequestObjectInstancesReflected
   beta: send Does Who=#beta
   beta < receive Tells First=(#Car+:1) Who=#beta RO reliable by somebody
   hear-of-three beta ObjectInstanceInformation HLAobjectInstance HLAregisteredClass HLAknownClass
   beta: Owned = getParameterHandle Tells HLAownedInstanceAttributeList
   name-one beta HLArequest.HLArequestObjectInstanceInformation
   beta: One = getParameterHandle Does HLAobjectInstance; send Does Who=#beta One=#car
   beta < receive Tells First=#car Owned=:0 Second=#Car Third=#Car Who=#beta RO reliable by somebody

story acts on behalf of federates, and says what is wrong
   alpha: subscribe Fault
   name-one alpha HLAservice.HLAenableTimeRegulation
   alpha: One = getParameterHandle Does HLAlookahead; send Does Who=#beta One=x0000000000000000
   beta < timeRegulationEnabled 0
   alpha: send Does Who=#beta One=x0000000000000000
   refused HLAservice.HLAenableTimeRegulation TimeRegulationAlreadyEnabled:... :0
   alpha: send Does Who=#beta One=x00
   refused HLAservice.HLAenableTimeRegulation Parameter... :1
   alpha: send Does Who=#beta
   refused HLAservice.HLAenableTimeRegulation Parameter... :1
   alpha: send Does Who=#99 One=x0000000000000000
   refused HLAservice.HLAenableTimeRegulation No... :1
   alpha: send Does
   refused HLAservice.HLAenableTimeRegulation Parameter... :1
   name-one alpha HLAservice.HLApublishInteractionClass
   alpha: One = getParameterHandle Does HLAinteractionClass; send Does Who=#beta One=#999
   refused HLAservice.HLApublishInteractionClass InteractionClassNotDefined:... :0
   alpha: send Does Who=#beta One=#Message
   beta: send Message
   name-one alpha HLAservice.HLAsubscribeObjectClassAttributes
   name-parameters alpha HLAobjectClass HLAattributeList
   alpha: Active = getParameterHandle Does HLAactive
   alpha: send Does Who=#beta One=#Car Two=(#Position,#Fuel) Active=:1
   alpha: publish Car Position; car = register Car
   beta < discover car Car car alpha
   name-one alpha HLAservice.HLAfederateSaveBegun
   alpha: send Does Who=#beta
   refused HLAservice.HLAfederateSaveBegun SaveNotInitiated:... :0
   name-one alpha HLAservice.HLAresignFederationExecution
   alpha: One = getParameterHandle Does HLAresignAction; send Does Who=#beta One=:7
   refused HLAservice.HLAresignFederationExecution Parameter... :1
   alpha: send Does Who=#beta One=:6
   beta: queryLogicalTime -> FederateNotExecutionMember; join

story switches what is conveyed for one federate alone
   share-a-car
   name-one alpha HLAadjust.HLAsetSwitches
   name-parameters alpha HLAconveyProducingFederate HLAconveyRegionDesignatorSets
   gamma: join; subscribe Car Position
   gamma < discover car Car car alpha
   alpha: send Does Who=#beta One=:0; update car Position=1
   beta < reflect car Position=1 RO reliable by somebody
   gamma < reflect car Position=1 RO reliable by alpha 

story reports services to those who are not reported on
   name-one alpha HLAadjust.HLAsetServiceReporting
   alpha: One = getParameterHandle Does HLAreportingState
   hear-of-three alpha ServiceInvocation HLAservice HLAsuccessIndicator HLAsuppliedArguments
   alpha: subscribe Fault; Result = getParameterHandle Tells HLAreturnedArguments;
      Exception = getParameterHandle Tells HLAexception; Serial = getParameterHandle Tells HLAserialNumber
   alpha: send Does Who=#alpha One=:1 # who hears of services
   refused HLAadjust.HLAsetServiceReporting Federate... :1
   alpha: send Does Who=#beta One=:1
   beta: getObjectClassName Car; subscribe Tells -> FederateServiceInvocationsAreBeingReportedViaMOM
   alpha: send Does Who=#beta One=:0
   beta: getObjectClassName Car
   alpha < receive Tells Exception=:0 First='getObjectClassName' Result=('HLAobjectRoot.Vehicle.Car') Second=:1 Serial=:0 Third=('HLAobjectRoot.Vehicle.Car') Who=#beta RO reliable by somebody;
      receive Tells Exception='FederateServiceInvocationsAreBeingReportedViaMOM:...' First='subscribeInteractionClass' Result=:0 Second=:0 Serial=:1 Third=('HLAinteractionRoot.HLAmanager.HLAfederate.HLAreport.HLAreportServiceInvocation','true') Who=#beta RO reliable by somebody
   name-one alpha HLAadjust.HLAsetExceptionReporting
   hear-of-two alpha Exception HLAservice HLAexception
   alpha: One = getParameterHandle Does HLAreportingState; send Does Who=#beta One=:1
   beta: disableTimeRegulation -> TimeRegulationIsNotEnabled
   alpha < receive Tells First='disableTimeRegulation' Second='TimeRegulationIsNotEnabled:...' Who=#beta RO reliable by somebody


story finds its objects again after a restore
   beta: subscribe Federate Name State; subscribe Federation LastSave NextSave
   know-two beta
   beta: federation = getObjectInstanceHandle HLAfederation
   beta < whatever
   alpha: requestFederationSave noon
   beta <~ reflect first State=:3 RO reliable by somebody; reflect second State=:3 RO reliable by somebody;
      initiateFederateSave noon
   alpha < initiateFederateSave noon
   alpha, beta: federateSaveBegun; federateSaveComplete
   alpha < federationSaved
   beta <~ federationSaved; reflect federation LastSave='noon' RO reliable by somebody;
      reflect first State=:1 RO reliable by somebody; reflect second State=:1 RO reliable by somebody
   alpha: requestFederationRestore noon
   alpha, beta < whatever
   alpha, beta: federateRestoreComplete
   alpha < federationRestored
   beta <~ federationRestored; reflect first State=:1 RO reliable by somebody;
      reflect second State=:1 RO reliable by somebody
   beta: requestAttributeValueUpdate second Name
   beta < reflect second Name='beta' RO reliable by somebody
   gamma: join
   beta: third = getObjectInstanceHandle HLAfederate-3
   beta < discover third Federate third; reflect third Name='gamma' State=:1 RO reliable by somebody

story says who was lost
   beta: subscribe Federate Name
   know-two beta
   beta < whatever
   hear-of-three beta FederateLost HLAfederateName HLAtimestamp HLAfaultDescription
   name-management beta
   alpha: destroyAmbassador
   beta <~ receive Tells First='alpha' Second=x0000000000000000 Third='Its...' Who=#alpha RO reliable by somebody;
      remove first RO by somebody

story reports on the federation
   alpha: registerFederationSynchronizationPoint here; synchronizationPointAchieved here
   alpha, beta < whatever
   federation-hear SynchronizationPoints HLAsyncPoints
   alpha: send Does
   alpha < receive Tells First=('here') RO reliable by somebody
   federation-hear SynchronizationPointStatus HLAsyncPointFederates
   alpha: Second = getParameterHandle Tells HLAsyncPointName; One = getParameterHandle Does HLAsyncPointName
   alpha: send Does One='here'
   alpha < receive Tells First=(#alpha+:3,#beta+:2) Second='here' RO reliable by somebody
   federation-hear FOMmoduleData HLAFOMmoduleData
   alpha: Second = getParameterHandle Tells HLAFOMmoduleIndicator; One = getParameterHandle Does HLAFOMmoduleIndicator
   alpha: subscribe Fault; send Does One=:0; send Does One=:1
   alpha < whatever
   federation-hear MIMdata HLAMIMdata
   alpha: send Does
   alpha < whatever
to federation-hear $report $one
   alpha: Does = getInteractionClassHandle HLAmanager.HLAfederation.HLArequest.HLArequest$report; publish Does
   alpha: Tells = getInteractionClassHandle HLAmanager.HLAfederation.HLAreport.HLAreport$report; subscribe Tells
   alpha: First = getParameterHandle Tells $one
