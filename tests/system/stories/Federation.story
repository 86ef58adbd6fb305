# Connections and federations, from their creation to their end.
story is created and destroyed once
   alpha: connect; destroyFederationExecution $federation -> FederationExecutionDoesNotExist
   federation Road.xml
   alpha: createFederationExecution $federation [|$fom/Weather.xml] $fom/Road.xml -> FederationExecutionAlreadyExists
   alpha: createFederationExecutionWithMIM $federation $fom/Road.xml with $mim -> FederationExecutionAlreadyExists
   alpha: joinFederationExecution test $other -> FederationExecutionDoesNotExist
   beta: join
   alpha: destroyFederationExecution $federation -> FederatesCurrentlyJoined
   beta: resignFederationExecution NO_ACTION
   alpha: destroyFederationExecution $federation
   alpha: destroyFederationExecution $federation -> FederationExecutionDoesNotExist
   beta: join -> FederationExecutionDoesNotExist

to live-in $time $asked
   alpha: createFederationExecution $federation $fom/Road.xml $asked; join; getTimeFactory = $time
   alpha: resignFederationExecution NO_ACTION; destroyFederationExecution $federation
story lives in one kind of time
   alpha: connect
   alpha: createFederationExecution $federation [|$fom/Weather.xml] $fom/Road.xml HLAlunarTime -> CouldNotCreateLogicalTimeFactory
   alpha: createFederationExecutionWithMIM $federation $fom/Road.xml with $mim HLAlunarTime -> CouldNotCreateLogicalTimeFactory
   live-in HLAfloat64Time ""
   live-in [HLAfloat64Time HLAfloat64Time|HLAinteger64Time HLAinteger64Time]

story is joined once by each name and ambassador
   federation Road.xml
   alpha: join; connect -> AlreadyConnected; disconnect -> FederateIsExecutionMember; joinFederationExecution gamma test $federation -> FederateAlreadyExecutionMember
   beta: connect; joinFederationExecution alpha test $federation -> FederateNameAlreadyInUse
   alpha: resignFederationExecution NO_ACTION
   beta: second = joinFederationExecution alpha test $federation; getFederateHandle alpha = second

story knows its federates by name and handle
   federation Road.xml
   alpha: join
   beta, gamma: connect
   beta: unnamed = joinFederationExecution test $federation
   gamma: other = joinFederationExecution test $federation
   beta: getFederateHandle alpha = alpha; getFederateName alpha = alpha
   alpha: getFederateName other
   beta: resignFederationExecution NO_ACTION
   alpha: getFederateName unnamed -> FederateHandleNotKnown

to refuse $modules $exception $named
   beta: createFederationExecution $other $modules -> $exception $named
   beta: createFederationExecutionWithMIM $other $modules with $mim -> $exception $named
   beta: join $modules -> $exception $named; joinFederationExecution test $federation $modules -> $exception $named
story is not made of broken modules nor joined with them
   federation Road.xml float
   alpha: join
   beta: connect
   refuse $fom/Missing.xml CouldNotOpenFDD Missing.xml
   refuse $fom/ CouldNotOpenFDD fom
   refuse $fom/[Letter.xml ErrorReadingFDD Letter.xml|CutOff.xml ErrorReadingFDD CutOff.xml]
   refuse "$fom/Road.xml $fom/Disagreeing.xml" InconsistentFDD Disagreeing.xml
   refuse "$fom/Road.xml $fom/Missing.xml" CouldNotOpenFDD Missing.xml
   beta: createFederationExecution $other $fom/Rootless.xml -> InconsistentFDD Rootless.xml
   beta: createFederationExecution $other $fom/Road.xml $fom/Letter.xml -> ErrorReadingFDD Letter.xml
   beta: listFederationExecutions => beta < reportFederationExecutions $federation=HLAfloat64Time
   alpha: getFederateHandle beta -> NameNotFound
   beta: join $fom/Road.xml $fom/Weather.xml

story takes modules by path or by url
   alpha: connect
   make-of ["$copies/Weather (50% rain).xml"|file://$copies/Weather%20(50%25%20rain).xml|file:$fom/Weather.xml]
to make-of $module
   alpha: createFederationExecution $federation "$module"; destroyFederationExecution $federation

story may replace the standard management object model
   alpha: connect
   with-mim $fom/Missing.xml CouldNotOpenMIM Missing.xml
   with-mim [$fom/Letter.xml ErrorReadingMIM Letter.xml|$fom/Recipe.xml ErrorReadingMIM Recipe.xml]
   with-mim HLAstandardMIM DesignatorIsHLAstandardMIM HLAstandardMIM
   alpha: createFederationExecutionWithMIM $federation $fom/Road.xml with $mim HLAinteger64Time
   alpha: join; getTimeFactory = HLAinteger64Time
to with-mim $module $exception $named
   alpha: createFederationExecutionWithMIM $federation $fom/Road.xml with $module -> $exception $named
