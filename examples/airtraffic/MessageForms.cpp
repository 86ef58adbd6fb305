#include "MessageForms.h"

namespace airtraffic {

using namespace rti1516e;

void MessageForms::discoverObjectInstance(ObjectInstanceHandle object, ObjectClassHandle,
                                          std::wstring const& name)
{
   discovered(object, name);
}

void MessageForms::discoverObjectInstance(ObjectInstanceHandle object, ObjectClassHandle,
                                          std::wstring const& name, FederateHandle)
{
   discovered(object, name);
}

void MessageForms::reflectAttributeValues(ObjectInstanceHandle object, AttributeHandleValueMap const& values,
                                          Tag const&, OrderType, TransportationType, SupplementalReflectInfo)
{
   reflectedWithoutTime(object, values);
}

void MessageForms::reflectAttributeValues(ObjectInstanceHandle object, AttributeHandleValueMap const& values,
                                          Tag const&, OrderType, TransportationType, LogicalTime const& time,
                                          OrderType receivedOrder, SupplementalReflectInfo)
{
   arrives(&time, receivedOrder);
   reflected(object, values);
}

void MessageForms::reflectAttributeValues(ObjectInstanceHandle object, AttributeHandleValueMap const& values,
                                          Tag const&, OrderType, TransportationType, LogicalTime const& time,
                                          OrderType receivedOrder, MessageRetractionHandle,
                                          SupplementalReflectInfo)
{
   arrives(&time, receivedOrder);
   reflected(object, values);
}

void MessageForms::receiveInteraction(InteractionClassHandle interaction,
                                      ParameterHandleValueMap const& values, Tag const&, OrderType,
                                      TransportationType, SupplementalReceiveInfo)
{
   arrives(nullptr, RECEIVE);
   received(interaction, values);
}

void MessageForms::receiveInteraction(InteractionClassHandle interaction,
                                      ParameterHandleValueMap const& values, Tag const&, OrderType,
                                      TransportationType, LogicalTime const& time, OrderType receivedOrder,
                                      SupplementalReceiveInfo)
{
   arrives(&time, receivedOrder);
   received(interaction, values);
}

void MessageForms::receiveInteraction(InteractionClassHandle interaction,
                                      ParameterHandleValueMap const& values, Tag const&, OrderType,
                                      TransportationType, LogicalTime const& time, OrderType receivedOrder,
                                      MessageRetractionHandle, SupplementalReceiveInfo)
{
   arrives(&time, receivedOrder);
   received(interaction, values);
}

void MessageForms::removeObjectInstance(ObjectInstanceHandle object, Tag const&, OrderType,
                                        SupplementalRemoveInfo)
{
   arrives(nullptr, RECEIVE);
   removed(object);
}

void MessageForms::removeObjectInstance(ObjectInstanceHandle object, Tag const&, OrderType,
                                        LogicalTime const& time, OrderType receivedOrder,
                                        SupplementalRemoveInfo)
{
   arrives(&time, receivedOrder);
   removed(object);
}

void MessageForms::removeObjectInstance(ObjectInstanceHandle object, Tag const&, OrderType,
                                        LogicalTime const& time, OrderType receivedOrder,
                                        MessageRetractionHandle, SupplementalRemoveInfo)
{
   arrives(&time, receivedOrder);
   removed(object);
}

} // namespace airtraffic
