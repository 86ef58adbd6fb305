include Road.include

# Of all federates.
to register-ready $set
   alpha: registerFederationSynchronizationPoint ready tag=now $set
   alpha <~ synchronizationPointRegistrationSucceeded ready; announceSynchronizationPoint ready tag=now
   others < announceSynchronizationPoint ready tag=now

story of an empty set is of all and tells who failed
   gamma: join
   register-ready {}
   alpha, gamma: synchronizationPointAchieved ready unsuccessfully
   beta: synchronizationPointAchieved ready => alpha, beta, gamma < federationSynchronized ready alpha gamma

story is of the given federates alone
   gamma: join
   alpha: registerFederationSynchronizationPoint ready tag=now beta gamma
   alpha < synchronizationPointRegistrationSucceeded ready
   beta, gamma < announceSynchronizationPoint ready tag=now
   late: join
   alpha, late: synchronizationPointAchieved ready -> SynchronizationPointLabelNotAnnounced
   beta, gamma: synchronizationPointAchieved ready => beta, gamma < federationSynchronized ready

story is announced to who joins late
   register-ready ""
   late: connect
   late on announceSynchronizationPoint: getFederateName alpha # as one of them
   late: join => late < announceSynchronizationPoint ready tag=now
   alpha, beta: synchronizationPointAchieved ready => alpha < nothing
   late: synchronizationPointAchieved ready => alpha, beta, late < federationSynchronized ready
   latest: join => latest < nothing

to go $how
   register-ready ""
   alpha: synchronizationPointAchieved ready => alpha < nothing
   beta: $how => alpha < federationSynchronized ready
   beta: join
story does not wait for who resigned or went
   go ["resignFederationExecution NO_ACTION"|destroyAmbassador]

story is not registered twice nor for who is not joined
   gone: join; resignFederationExecution NO_ACTION
   alpha: registerFederationSynchronizationPoint ready tag=now beta
   alpha < synchronizationPointRegistrationSucceeded ready
   beta < announceSynchronizationPoint ready tag=now
   beta: registerFederationSynchronizationPoint ready tag=other
   beta < synchronizationPointRegistrationFailed ready label-not-unique
   alpha: registerFederationSynchronizationPoint done tag=now beta gone
   alpha < synchronizationPointRegistrationFailed done member-not-joined
