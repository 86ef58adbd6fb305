# Names, handles, switches and other things to ask for.
include Road.include

story knows classes and attributes by name and handle
   beta: Root = getObjectClassHandle HLAobjectRoot; getObjectClassName Root = HLAobjectRoot
   beta: getObjectClassName Taxi = HLAobjectRoot.Vehicle.Car.Taxi; getObjectClassName Vehicle = HLAobjectRoot.Vehicle
   beta: getObjectClassHandle HLAobjectRoot.Vehicle = Vehicle; getObjectClassHandle HLAobjectRoot.Vehicle.Car.Taxi = Taxi
   beta: getObjectClassHandle [HLAobjectRoot.Car|""] -> NameNotFound
   beta: getAttributeHandle Taxi Position = Position; getAttributeName Taxi Position = Position
   beta: getAttributeName Taxi Fare = Fare; getAttributeHandle Vehicle Fare -> NameNotFound
   beta: getAttributeName Vehicle Fare -> AttributeNotDefined
   beta: getAttributeName Vehicle noAttribute -> InvalidAttributeHandle

story knows interactions and parameters by name and handle
   beta: getInteractionClassName Urgent = HLAinteractionRoot.Message.Urgent
   beta: getInteractionClassHandle HLAinteractionRoot.Message.Urgent = Urgent
   beta: getInteractionClassHandle Urgent -> NameNotFound
   beta: getParameterHandle Urgent Words = Words; getParameterName Urgent Words = Words
   beta: getParameterHandle Message Level -> NameNotFound
   beta: getParameterName Message Level -> InteractionParameterNotDefined
   beta: getParameterName Message noParameter -> InvalidParameterHandle

story knows orders and update rates
   alpha: getOrderType Receive = RO; getOrderType TimeStamp = TSO; getOrderType Chaos -> InvalidOrderName
   alpha: getOrderName RO = Receive; getOrderName TSO = TimeStamp
   alpha: getUpdateRateValue Slow = 0.5; getUpdateRateValue Fast = 50
   alpha: getUpdateRateValue Breakneck -> InvalidUpdateRateDesignator

story knows dimensions
   beta: getDimensionName Lane = Lane; getDimensionHandle Lane = Lane
   beta: getDimensionUpperBound Lane = 8; getDimensionUpperBound Distance = 1000
   beta: getAvailableDimensionsForClassAttribute Taxi Position = Distance Lane
   beta: getAvailableDimensionsForClassAttribute Taxi Speed = Lane
   beta: getAvailableDimensionsForClassAttribute Taxi Fuel =
   beta: getAvailableDimensionsForInteractionClass Accident = Distance Lane
   beta: getAvailableDimensionsForInteractionClass Message =
   beta: getAvailableDimensionsForClassAttribute Car Fare -> AttributeNotDefined
   beta: getAvailableDimensionsForClassAttribute Car noAttribute -> InvalidAttributeHandle
