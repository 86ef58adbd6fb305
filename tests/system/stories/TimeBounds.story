# Where numbers end.
to end-at $time $final $end
   federation Road.xml $time
   alpha, beta: join; enableTimeConstrained => alpha, beta < timeConstrainedEnabled 0
   beta: timeAdvanceRequest $final => beta < whatever
   alpha: enableTimeRegulation 1 => alpha < timeRegulationEnabled $end
story integer time has nothing behind its end
   end-at integer final 9223372036854775806
story float time has nothing behind its end
   end-at float inf inf

story what is no number is no time
   federation Road.xml float
   alpha: join; enableTimeRegulation 1 => alpha < timeRegulationEnabled 0
   alpha: [* nan|requestFederationSave noon at nan] -> InvalidLogicalTime
   alpha: modifyLookahead nan -> InvalidLookahead
