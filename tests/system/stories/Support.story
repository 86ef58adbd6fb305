# Names, handles, switches and other things to ask for.
include Road.include

every story
   take-the-road

story knows classes and attributes by name and handle
   beta: getObjectClassHandle HLAobjectRoot.Vehicle = Vehicle; getObjectClassHandle HLAobjectRoot.Vehicle.Car = Car
   beta: Root = getObjectClassHandle HLAobjectRoot; getObjectClassName Root = HLAobjectRoot
   beta: getObjectClassName Taxi = HLAobjectRoot.Vehicle.Car.Taxi; getObjectClassName Car = HLAobjectRoot.Vehicle.Car
   beta: decodeObjectClassHandle Car = Car; decodeObjectClassHandle Taxi = Taxi; decodeAttributeHandle Fare = Fare
   beta: getObjectClassHandle [HLAobjectRoot.Car|""] -> NameNotFound
   beta: getObjectClassName noObjectClass -> InvalidObjectClassHandle
   beta: getAttributeHandle Taxi Position = Position; getAttributeName Taxi Position = Position
   beta: getAttributeName Taxi Fare = Fare; getAttributeHandle Vehicle Fare -> NameNotFound
   beta: getAttributeHandle noObjectClass Fare -> InvalidObjectClassHandle
   beta: getAttributeName Vehicle Fare -> AttributeNotDefined
   beta: getAttributeName Vehicle noAttribute -> InvalidAttributeHandle
   beta: getAttributeName noObjectClass noAttribute -> InvalidObjectClassHandle

story knows interactions and parameters by name and handle
   beta: getInteractionClassHandle HLAinteractionRoot.Message.Urgent = Urgent
   beta: getInteractionClassName Urgent = HLAinteractionRoot.Message.Urgent
   beta: decodeInteractionClassHandle Urgent = Urgent; decodeParameterHandle Words = Words
   beta: getInteractionClassHandle Urgent -> NameNotFound
   beta: getInteractionClassName noInteractionClass -> InvalidInteractionClassHandle
   beta: getParameterHandle Urgent Words = Words; getParameterName Urgent Words = Words
   beta: getParameterHandle Message Level -> NameNotFound
   beta: getParameterHandle noInteractionClass Level -> InvalidInteractionClassHandle
   beta: getParameterName Message Level -> InteractionParameterNotDefined
   beta: getParameterName Message noParameter -> InvalidParameterHandle
   beta: getParameterName noInteractionClass noParameter -> InvalidInteractionClassHandle

story knows orders transportations and update rates
   alpha: getOrderType Receive = RO; getOrderType TimeStamp = TSO; getOrderType Chaos -> InvalidOrderName
   alpha: getOrderName RO = Receive; getOrderName TSO = TimeStamp
   alpha: getTransportationTypeHandle HLAreliable = reliable; getTransportationTypeName reliable = HLAreliable
   alpha: getTransportationTypeHandle HLAbestEffort = best-effort
   alpha: getTransportationTypeName best-effort = HLAbestEffort
   alpha: getTransportationTypeHandle Pigeon -> InvalidTransportationName
   alpha: getUpdateRateValue Slow = 0.5; getUpdateRateValue Fast = 50
   alpha: getUpdateRateValue Breakneck -> InvalidUpdateRateDesignator
   alpha: publish Car Position; car = register Car; decodeObjectInstanceHandle car = car
   beta: subscribe Car Position Fast => beta < discover car Car car alpha
   beta: getUpdateRateValueForAttribute car Position = 50

story knows dimensions
   beta: getDimensionHandle Lane = Lane; getDimensionName Lane = Lane; decodeDimensionHandle Lane = Lane
   beta: getDimensionUpperBound Lane = 8; getDimensionUpperBound Distance = 1000
   beta: getDimensionHandle Depth -> NameNotFound
   beta: [getDimensionName|getDimensionUpperBound] noDimension -> InvalidDimensionHandle
   beta: getAvailableDimensionsForClassAttribute Taxi Position = Distance Lane
   beta: getAvailableDimensionsForClassAttribute Taxi Speed = Lane
   beta: getAvailableDimensionsForClassAttribute Taxi Fuel =
   beta: getAvailableDimensionsForInteractionClass Accident = Distance Lane
   beta: getAvailableDimensionsForInteractionClass Message =
   beta: getAvailableDimensionsForClassAttribute Car Load -> AttributeNotDefined
   beta: getAvailableDimensionsForClassAttribute Car noAttribute -> InvalidAttributeHandle
   beta: getAvailableDimensionsForClassAttribute noObjectClass noAttribute -> InvalidObjectClassHandle
   beta: getAvailableDimensionsForInteractionClass noInteractionClass -> InvalidInteractionClassHandle

story has advisory switches that each federate turns
   turn [ObjectClassRelevance|AttributeRelevance|AttributeScope|InteractionRelevance]
to turn $switch
   alpha: disable$switchAdvisorySwitch -> $switchAdvisorySwitchIsOff
   alpha: enable$switchAdvisorySwitch; enable$switchAdvisorySwitch -> $switchAdvisorySwitchIsOn
   beta: disable$switchAdvisorySwitch -> $switchAdvisorySwitchIsOff
   alpha: disable$switchAdvisorySwitch
