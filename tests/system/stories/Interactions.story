include Road.include

story are received as the most specific subscribed class
   gamma, delta: join
   alpha: publish Urgent; subscribe Message
   beta, gamma: subscribe Message
   gamma: subscribe Urgent passively # which is as good
   delta: subscribe Accident
   alpha: send Urgent Words=fire Level=9 tag=t
   beta < receive Message Words=fire tag=t RO best-effort by alpha
   gamma < receive Urgent Level=9 Words=fire tag=t RO best-effort by alpha
   gamma: unsubscribe Urgent
   beta: unsubscribe Message
   alpha: send Urgent => gamma < receive Message RO best-effort by alpha => beta < nothing

story are sent as published
   alpha: publish Message; send Message noParameter= -> InteractionParameterNotDefined
   alpha: * Accident [RO|reliable] -> InteractionClassNotPublished
   beta: subscribe Message
   alpha: requestInteractionTransportationTypeChange Message best-effort
   alpha < confirmInteractionTransportationTypeChange Message best-effort
   alpha: send Message Words=hush
   beta: queryInteractionTransportationType alpha Message
   beta < receive Message Words=hush RO best-effort by alpha;
      reportInteractionTransportationType alpha Message best-effort
   beta: queryInteractionTransportationType beta Message
   beta < reportInteractionTransportationType beta Message reliable
