# Where numbers end.
to begin
   alpha, beta: join; enableTimeConstrained => alpha, beta < timeConstrainedEnabled 0

story integer time has nothing behind its end
   federation Road.xml integer
   begin
   beta: timeAdvanceRequest final => beta < whatever
   alpha: enableTimeRegulation 1 => alpha < timeRegulationEnabled 9223372036854775806

story float time has nothing behind its end
   federation Road.xml float
   begin
   beta: timeAdvanceRequest inf => beta < whatever
   alpha: enableTimeRegulation 1 => alpha < timeRegulationEnabled inf

story what is no number is no time
   federation Road.xml float
   alpha: join; enableTimeRegulation 1 => alpha < timeRegulationEnabled 0
   alpha: [* nan|requestFederationSave noon at nan] -> InvalidLogicalTime
   alpha: modifyLookahead nan -> InvalidLookahead
