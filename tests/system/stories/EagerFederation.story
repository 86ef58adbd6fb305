story tells of objects without being asked
   federation Eager.xml
   owner, reader: join
   owner: publish Buoy Drift; first = register Buoy => owner < nothing
   reader: subscribe Buoy Drift
   owner <~ startRegistrationForObjectClass Buoy; turnUpdatesOnForObjectInstance first Drift;
      provideAttributeValueUpdate first Drift
   reader < discover first Buoy first owner; attributesInScope first Drift
   owner: getAutomaticResignDirective = DELETE_OBJECTS_THEN_DIVEST
   owner: destroyAmbassador # which resigns as the FOM has it
   reader < remove first RO by owner
