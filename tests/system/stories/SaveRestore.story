include Road.include

to expect-saving $alpha $beta
   beta: queryFederationSaveStatus => beta < federationSaveStatusResponse alpha=$alpha beta=$beta
to expect-restoring $alpha $beta
   beta: queryFederationRestoreStatus => beta < federationRestoreStatusResponse alpha=$alpha beta=$beta

story saves when all have saved
   expect-saving idle idle
   ask-for-a-save
   expect-saving instructed instructed
   alpha: federateSaveBegun
   expect-saving saving instructed
   alpha: federateSaveComplete
   expect-saving waiting instructed
   beta: federateSaveBegun
   expect-saving waiting saving
   alpha < nothing
   beta: federateSaveComplete => alpha, beta < federationSaved
   expect-saving idle idle
   save

story does not save when one cannot or resigns
   ask-for-a-save
   alpha: federateSaveBegun; federateSaveComplete
   beta: federateSaveBegun; federateSaveNotComplete => alpha, beta < federationNotSaved federate-failed
   alpha: requestFederationRestore noon => alpha < requestFederationRestoreFailed noon
   save
   ask-for-a-save
   alpha: federateSaveBegun; federateSaveComplete
   beta: federateSaveBegun; resignFederationExecution NO_ACTION
   alpha < federationNotSaved federate-resigned

story saves in the right order
   beta: disableCallbacks
   alpha: requestFederationSave noon
   beta: federateSaveBegun -> SaveNotInitiated # as far as beta knows
   alpha: abortFederationSave
   beta: enableCallbacks => alpha, beta < initiateFederateSave noon; federationNotSaved aborted
   ask-for-a-save
   alpha: [federateSaveComplete|federateSaveNotComplete] -> FederateHasNotBegunSave

story restores when all have restored
   save
   expect-restoring idle idle
   ask-for-a-restore
   expect-restoring restoring restoring
   alpha: federateRestoreComplete
   expect-restoring waiting restoring
   alpha < nothing
   beta: federateRestoreComplete => alpha, beta < federationRestored
   expect-restoring idle idle
   ask-for-a-restore

story does not restore when one cannot or aborts it or resigns
   save
   ask-for-a-restore
   alpha: federateRestoreComplete
   beta: federateRestoreNotComplete => alpha, beta < federationNotRestored federate-failed
   ask-for-a-restore
   beta: abortFederationRestore => alpha, beta < federationNotRestored aborted
   expect-restoring idle idle
   ask-for-a-restore
   alpha: federateRestoreComplete
   beta: resignFederationExecution NO_ACTION => alpha < federationNotRestored federate-resigned

story restores only what was saved by the same federates
   save
   alpha: requestFederationRestore midnight => alpha < requestFederationRestoreFailed midnight
   late: join
   alpha: requestFederationRestore noon => alpha < requestFederationRestoreFailed noon => beta < nothing
   late: resignFederationExecution NO_ACTION
   ask-for-a-restore

story restores each as itself or else as another of its type
   save
   alpha, beta: resignFederationExecution NO_ACTION
   gamma, alpha: join
   alpha: requestFederationRestore noon
   alpha < requestFederationRestoreSucceeded noon; federationRestoreBegun; initiateFederateRestore noon alpha alpha
   gamma < federationRestoreBegun; initiateFederateRestore noon beta beta
   alpha, gamma: federateRestoreComplete => alpha, gamma < federationRestored
   gamma: getFederateName beta = beta
