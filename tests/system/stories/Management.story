include Road.include

   # Where reports are sent is of no interest here.
   alpha: publish HLAsetSwitches
   alpha: send HLAsetSwitches HLAfederate=#[alpha|beta] HLAconveyRegionDesignatorSets=:0
   alpha: unpublish HLAsetSwitches

to know-two $federate
   $federate: first = getObjectInstanceHandle HLAfederate-1; second = getObjectInstanceHandle HLAfederate-2
# Sends it on or about a federate.
to have $federate $interaction $arguments
   alpha: publish $interaction; send $interaction HLAfederate=#$federate $arguments
to told $federate $callback
   $federate < $callback RO reliable by somebody
# What alpha asked was not done.
to refused $interaction $why $wrongly
   told alpha "receive HLAreportMOMexception HLAexception='$why' HLAfederate=#alpha HLAparameterError=$wrongly HLAservice='HLAinteractionRoot.HLAmanager.HLAfederate.$interaction'"

# What a federate of a space-simulation framework asks before it does anything else.
story lets a framework begin
   alpha: subscribe HLAfederation HLAautoProvide; federation = getObjectInstanceHandle HLAfederation
   alpha < discover federation HLAfederation federation; reflect federation HLAautoProvide=:0 RO reliable by somebody
   alpha: requestAttributeValueUpdate HLAfederation HLAautoProvide
   told alpha "reflect federation HLAautoProvide=:0"
   alpha: unsubscribe HLAfederation HLAautoProvide; publish HLAfederation.HLAadjust.HLAsetSwitches
   alpha: send HLAfederation.HLAadjust.HLAsetSwitches HLAautoProvide=:1
   alpha: subscribe HLAfederate HLAfederateName HLAfederateHandle
   know-two alpha
   alpha <~ discover first HLAfederate first; discover second HLAfederate second;
      reflect first HLAfederateHandle=#alpha HLAfederateName='alpha' RO reliable by somebody;
      reflect second HLAfederateHandle=#beta HLAfederateName='beta' RO reliable by somebody
   gamma: join
   alpha: third = getObjectInstanceHandle HLAfederate-3
   alpha < discover third HLAfederate third;
      reflect third HLAfederateHandle=#gamma HLAfederateName='gamma' RO reliable by somebody
   alpha: unsubscribe HLAfederate; getObjectInstanceName third = third; getObjectInstanceHandle HLAfederate-3 = third
   gamma: resignFederationExecution NO_ACTION => alpha < remove third RO by somebody

story tells at once of what federates come to
   beta: subscribe HLAfederate HLAtimeRegulating HLAtimeConstrained HLAtimeManagerState
   beta: subscribe HLAfederation HLAfederatesInFederation
   know-two beta
   beta: federation = getObjectInstanceHandle HLAfederation
   beta < whatever
   alpha: enableTimeRegulation 1; enableTimeConstrained
   alpha <~ timeRegulationEnabled 0; timeConstrainedEnabled 0
   beta < reflect first HLAtimeRegulating=:1 RO reliable by somebody;
      reflect first HLAtimeConstrained=:1 RO reliable by somebody
   advance alpha 5
   beta < reflect first HLAtimeManagerState=:1 RO reliable by somebody;
      reflect first HLAtimeManagerState=:0 RO reliable by somebody
   gamma: join
   beta: third = getObjectInstanceHandle HLAfederate-3
   beta <~ discover third HLAfederate third;
      reflect federation HLAfederatesInFederation=(#alpha,#beta,#gamma) RO reliable by somebody;
      reflect third HLAtimeConstrained=:0 HLAtimeManagerState=:0 HLAtimeRegulating=:0 RO reliable by somebody
   gamma: resignFederationExecution NO_ACTION
   beta <~ remove third RO by somebody;
      reflect federation HLAfederatesInFederation=(#alpha,#beta) RO reliable by somebody

story counts and tells again and again when asked
   beta: subscribe HLAfederate HLAupdatesSent HLAobjectInstancesThatCanBeDeleted; subscribe Car Position
   know-two beta
   alpha: publish Car Position Speed; car = register Car
   alpha: update car Position=1; update car Position=2 Speed=3; update car Speed=4
   beta < whatever
   beta: requestAttributeValueUpdate first HLAupdatesSent
   told beta "reflect first HLAupdatesSent=:4" # the second went by two ways
   beta: requestAttributeValueUpdate second HLAobjectInstancesThatCanBeDeleted
   told beta "reflect second HLAobjectInstancesThatCanBeDeleted=:0" # of those that it knows
   beta: unsubscribe HLAfederate HLAobjectInstancesThatCanBeDeleted
   have alpha HLAsetTiming HLAreportPeriod=:1
   told beta "reflect first HLAupdatesSent=:4"
   have alpha HLAsetTiming HLAreportPeriod=:0

story counts what waits in the order in which it will come
   alpha: publish Accident; subscribe HLAfederate HLAROlength HLATSOlength; enableTimeRegulation 1
   beta: subscribe Accident; enableTimeConstrained => alpha, beta < whatever
   know-two alpha
   alpha: send Accident at 1 => alpha < nothing
   beta: nextMessageRequestAvailable 1 # what comes waits no more
   beta < receive Accident TSO reliable at 1 TSO retractable by alpha; timeAdvanceGrant 1
   alpha: requestAttributeValueUpdate second HLAROlength HLATSOlength
   told alpha "reflect second HLAROlength=:0 HLATSOlength=:0"
   beta: disableCallbacks => alpha: send Accident at 5 => beta: disableTimeConstrained
   alpha: requestAttributeValueUpdate second HLAROlength HLATSOlength
   told alpha "reflect second HLAROlength=:1 HLATSOlength=:0"
   beta: enableCallbacks => beta < whatever

story owns what it tells
   alpha: subscribe HLAfederate HLAfederateName; publish HLAfederate HLAfederateName
   know-two alpha
   alpha < whatever
   alpha: queryAttributeOwnership second HLAfederateName => alpha < attributeIsOwnedByRTI second HLAfederateName
   alpha: attributeOwnershipAcquisitionIfAvailable second HLAfederateName
   alpha < attributeOwnershipUnavailable second HLAfederateName
   alpha: delete second -> DeletePrivilegeNotHeld; update second HLAfederateName=x -> AttributeNotOwned
   alpha: attributeOwnershipAcquisition second HLAfederateName
   alpha: cancelAttributeOwnershipAcquisition second HLAfederateName
   alpha < confirmAttributeOwnershipAcquisitionCancellation second HLAfederateName
   alpha: subscribe HLAreportMOMexception
   have alpha HLAmodifyAttributeState "HLAobjectInstance=#second HLAattribute=#HLAfederateName HLAattributeState=:1"
   refused HLAadjust.HLAmodifyAttributeState AttributeNotOwned:... :0
   # What federates own can be moved between them.
   beta: publish Car Position; car = register Car
   alpha: publish Car Position; subscribe Car Position
   alpha < discover car Car car beta
   have alpha HLAmodifyAttributeState "HLAobjectInstance=#car HLAattribute=#Position HLAattributeState=:1"
   alpha: isAttributeOwnedByFederate car Position = true
   have alpha HLAmodifyAttributeState "HLAobjectInstance=#car HLAattribute=#Position HLAattributeState=:0"
   alpha: isAttributeOwnedByFederate car Position = false
   beta <~ requestAttributeOwnershipAssumption car Position

story reports what federates publish and subscribe to
   beta: publish Car Position; publish Urgent; subscribe Truck Load passively; subscribe Accident
   alpha: subscribe HLAreportObjectClassPublication; subscribe HLAreportInteractionPublication
   have beta HLArequestPublications ""
   alpha <~ receive HLAreportObjectClassPublication HLAattributeList=(#HLAprivilegeToDeleteObject,#Position)
      HLAfederate=#beta HLAnumberOfClasses=:1 HLAobjectClass=#Car RO reliable by somebody;
      receive HLAreportInteractionPublication HLAfederate=#beta HLAinteractionClassList=(#Urgent) RO reliable by somebody
   beta: unpublish Car; unpublish Urgent
   have beta HLArequestPublications ""
   alpha <~ receive HLAreportObjectClassPublication HLAfederate=#beta HLAnumberOfClasses=:0 RO reliable by somebody;
      receive HLAreportInteractionPublication HLAfederate=#beta HLAinteractionClassList=:0 RO reliable by somebody
   alpha: subscribe HLAreportObjectClassSubscription
   have beta HLArequestSubscriptions ""
   told alpha "receive HLAreportObjectClassSubscription HLAactive=:0 HLAattributeList=(#Load) HLAfederate=#beta HLAmaxUpdateRate=:0 HLAnumberOfClasses=:1 HLAobjectClass=#Truck"

story reports what has been sent and received
   share-a-car
   alpha: update car Position=1; update car Fuel=1 => beta < whatever
   alpha: publish Urgent; send Urgent
   beta: publish HLArequestUpdatesSent; publish HLArequestInteractionsSent; publish HLArequestObjectInstancesReflected
   beta: subscribe HLAreportUpdatesSent; send HLArequestUpdatesSent HLAfederate=#alpha
   beta <~ receive HLAreportUpdatesSent HLAfederate=#alpha HLAtransportation='HLAreliable' HLAupdateCounts=(#Car+:2)
      RO reliable by somebody;
      receive HLAreportUpdatesSent HLAfederate=#alpha HLAtransportation='HLAbestEffort' HLAupdateCounts=:0
      RO reliable by somebody
   beta: subscribe HLAreportInteractionsSent; send HLArequestInteractionsSent HLAfederate=#alpha
   beta <~ receive HLAreportInteractionsSent HLAfederate=#alpha HLAinteractionCounts=(#HLAsetSwitches+:2)
      HLAtransportation='HLAreliable' RO reliable by somebody;
      receive HLAreportInteractionsSent HLAfederate=#alpha HLAinteractionCounts=(#Urgent+:1)
      HLAtransportation='HLAbestEffort' RO reliable by somebody
   beta: subscribe HLAreportObjectInstancesReflected; send HLArequestObjectInstancesReflected HLAfederate=#beta
   told beta "receive HLAreportObjectInstancesReflected HLAfederate=#beta HLAobjectInstanceCounts=(#Car+:1)"
   alpha: subscribe HLAreportObjectInstanceInformation
   have beta HLArequestObjectInstanceInformation HLAobjectInstance=#car
   told alpha "receive HLAreportObjectInstanceInformation HLAfederate=#beta HLAknownClass=#Car HLAobjectInstance=#car
      HLAownedInstanceAttributeList=:0 HLAregisteredClass=#Car"

# With what is wrong about it.
to not-served $service $federate $arguments $why $wrongly
   have $federate $service "$arguments"
   refused HLAservice.$service $why $wrongly
story acts on behalf of federates and says what is wrong
   alpha: subscribe HLAreportMOMexception
   have beta HLAenableTimeRegulation HLAlookahead=x0000000000000000 => beta < timeRegulationEnabled 0
   not-served HLAenableTimeRegulation beta HLAlookahead=x0000000000000000 TimeRegulationAlreadyEnabled:... :0
   not-served HLAenableTimeRegulation beta HLAlookahead=x00 Parameter... :1
   not-served HLAenableTimeRegulation beta "" Parameter... :1
   not-served HLAenableTimeRegulation 99 HLAlookahead=x0000000000000000 No... :1
   alpha: send HLAenableTimeRegulation
   refused HLAservice.HLAenableTimeRegulation Parameter... :1
   not-served HLApublishInteractionClass beta HLAinteractionClass=#999 InteractionClassNotDefined:... :0
   not-served HLAfederateSaveBegun beta "" SaveNotInitiated:... :0
   not-served HLAresignFederationExecution beta HLAresignAction=[:7|x00] Parameter... :1
   alpha: subscribe Message # so that it has a number
   have beta HLApublishInteractionClass HLAinteractionClass=#Message
   beta: send Message => alpha < receive Message RO reliable by beta
   alpha: publish Car Position Fuel; car = register Car
   have beta HLAsubscribeObjectClassAttributes "HLAobjectClass=#Car HLAattributeList=(#Position,#Fuel) HLAactive=:1"
   beta < discover car Car car alpha
   have beta HLAresignFederationExecution HLAresignAction=:6
   beta: queryLogicalTime -> FederateNotExecutionMember; join

story switches what is conveyed for one federate alone
   share-a-car
   gamma: join; subscribe Car Position => gamma < discover car Car car alpha
   have beta HLAsetSwitches HLAconveyProducingFederate=:0
   have beta HLAsetSwitches HLAconveyRegionDesignatorSets=:0 # and leaves the other as it is
   alpha: update car Position=1
   told beta "reflect car Position=1"
   gamma < reflect car Position=1 RO reliable by alpha

story reports services to those who are not reported on
   beta: getObjectClassName Car; subscribe HLAreportServiceInvocation; unsubscribe HLAreportServiceInvocation
   alpha: subscribe HLAreportServiceInvocation; subscribe HLAreportMOMexception
   have alpha HLAsetServiceReporting HLAreportingState=:1 # who hears of services
   refused HLAadjust.HLAsetServiceReporting Federate... :1
   have alpha HLAsetServiceReporting HLAreportingState=:0
   have beta HLAsetServiceReporting HLAreportingState=:1
   beta: getFederateHandle alpha; getObjectClassName Car # of which beta has learned by then not to keep the answer
   beta: subscribe HLAreportServiceInvocation -> FederateServiceInvocationsAreBeingReportedViaMOM
   have beta HLAsetServiceReporting HLAreportingState=:0
   beta: getObjectClassName Car
   alpha < receive HLAreportServiceInvocation HLAexception=:0 HLAfederate=#beta
      HLAreturnedArguments=('1') HLAserialNumber=:0 HLAservice='getFederateHandle' HLAsuccessIndicator=:1
      HLAsuppliedArguments=('"alpha"') RO reliable by somebody;
      receive HLAreportServiceInvocation HLAexception=:0 HLAfederate=#beta
      HLAreturnedArguments=('HLAobjectRoot.Vehicle.Car') HLAserialNumber=:1 HLAservice='getObjectClassName'
      HLAsuccessIndicator=:1 HLAsuppliedArguments=('HLAobjectRoot.Vehicle.Car') RO reliable by somebody;
      receive HLAreportServiceInvocation HLAexception='FederateServiceInvocationsAreBeingReportedViaMOM:...'
      HLAfederate=#beta HLAreturnedArguments=:0 HLAserialNumber=:2 HLAservice='subscribeInteractionClass'
      HLAsuccessIndicator=:0
      HLAsuppliedArguments=('HLAinteractionRoot.HLAmanager.HLAfederate.HLAreport.HLAreportServiceInvocation','true')
      RO reliable by somebody
   alpha: normalizeFederateHandle beta = 2; betas = createRegion HLAfederate; setRangeBounds betas HLAfederate 2..3
   alpha: commitRegionModifications betas; subscribe HLAreportException betas # and not alpha's
   have [beta|alpha] HLAsetExceptionReporting HLAreportingState=:1
   alpha, beta: disableTimeRegulation -> TimeRegulationIsNotEnabled; getObjectClassName Car
   told alpha "receive HLAreportException HLAexception='TimeRegulationIsNotEnabled:...' HLAfederate=#beta HLAservice='disableTimeRegulation'"

story finds its objects again after a restore
   beta: subscribe HLAfederate HLAfederateName HLAfederateState; subscribe HLAfederation HLAlastSaveName HLAnextSaveName
   know-two beta
   beta: federation = getObjectInstanceHandle HLAfederation
   beta < whatever
   alpha: requestFederationSave noon => alpha < initiateFederateSave noon
   beta <~ initiateFederateSave noon; reflect first HLAfederateState=:3 RO reliable by somebody;
      reflect second HLAfederateState=:3 RO reliable by somebody
   all: federateSaveBegun; federateSaveComplete => alpha < federationSaved
   beta <~ federationSaved; reflect federation HLAlastSaveName='noon' RO reliable by somebody;
      reflect first HLAfederateState=:1 RO reliable by somebody; reflect second HLAfederateState=:1 RO reliable by somebody
   alpha: requestFederationRestore noon => all < whatever
   all: federateRestoreComplete => alpha < federationRestored
   beta <~ federationRestored; reflect first HLAfederateState=:1 RO reliable by somebody;
      reflect second HLAfederateState=:1 RO reliable by somebody
   beta: requestAttributeValueUpdate second HLAfederateName
   told beta "reflect second HLAfederateName='beta'"
   gamma: join
   beta: third = getObjectInstanceHandle HLAfederate-3
   beta < discover third HLAfederate third;
      reflect third HLAfederateName='gamma' HLAfederateState=:1 RO reliable by somebody

story says who was lost
   beta: subscribe HLAfederate HLAfederateName; subscribe HLAreportFederateLost
   know-two beta
   beta < whatever
   alpha: destroyAmbassador
   beta <~ receive HLAreportFederateLost HLAfaultDescription='Its...' HLAfederate=#alpha HLAfederateName='alpha'
      HLAtimestamp=x0000000000000000 RO reliable by somebody; remove first RO by somebody

# Of the federation, which has reports of the names that some of the federates' have.
to ask-for $report $arguments
   alpha: subscribe HLAfederation.HLAreport.HLAreport$report; publish HLAfederation.HLArequest.HLArequest$report
   alpha: send HLAfederation.HLArequest.HLArequest$report $arguments
story reports on the federation
   alpha: registerFederationSynchronizationPoint here; synchronizationPointAchieved here
   all < whatever
   ask-for SynchronizationPoints ""
   told alpha "receive HLAfederation.HLAreport.HLAreportSynchronizationPoints HLAsyncPoints=('here')"
   ask-for SynchronizationPointStatus HLAsyncPointName='here'
   told alpha "receive HLAfederation.HLAreport.HLAreportSynchronizationPointStatus
      HLAsyncPointFederates=(#alpha+:3,#beta+:2) HLAsyncPointName='here'"
   ask-for FOMmoduleData HLAFOMmoduleIndicator=:[0|1]
   ask-for MIMdata ""
   alpha < whatever
