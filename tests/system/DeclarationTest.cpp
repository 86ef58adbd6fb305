#include "RoadTest.h"

namespace {

using namespace system_tests;

class Declaration : public RoadTest
{};
IN_BOTH_CALLBACK_MODELS(Declaration);

TEST_P(Declaration, OfPublicationAllowsToRegisterAndToSend)
{
   EXPECT_REFUSED("ObjectClassNotPublished", alpha->registerObjectInstance(car));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->sendInteraction(message, {}, {}));

   alpha->publishObjectClassAttributes(vehicle, {position});
   alpha->publishInteractionClass(message);
   EXPECT_REFUSED("ObjectClassNotPublished", alpha->registerObjectInstance(car));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->sendInteraction(urgent, {}, {}));
   EXPECT_REFUSED("ObjectClassNotPublished", beta->registerObjectInstance(vehicle));
   alpha->registerObjectInstance(vehicle);
   alpha->sendInteraction(message, {}, {});

   alpha->unpublishObjectClass(vehicle);
   alpha->unpublishInteractionClass(message);
   EXPECT_REFUSED("ObjectClassNotPublished", alpha->registerObjectInstance(vehicle));
   EXPECT_REFUSED("InteractionClassNotPublished", alpha->sendInteraction(message, {}, {}));
}

TEST_P(Declaration, OfPublicationAddsUpAndEndsWithOwnership)
{
   alpha->publishObjectClassAttributes(car, {position});
   alpha->publishObjectClassAttributes(car, {speed, fuel});
   object = registered(alpha, car, "car");
   auto const owned = [&] {
      AttributeHandleSet result;
      for (AttributeHandle const attribute : {position, speed, fuel, passengers, privilege}) {
         if (alpha->isAttributeOwnedByFederate(object, attribute)) {
            result.insert(attribute);
         }
      }
      return result;
   };
   EXPECT_EQ(owned(), (AttributeHandleSet{position, speed, fuel, privilege}));
   alpha->unpublishObjectClassAttributes(car, {speed, passengers});
   EXPECT_EQ(owned(), (AttributeHandleSet{position, fuel, privilege}));
   EXPECT_REFUSED("AttributeNotOwned", alpha->updateAttributeValues(object, values({{speed, "5"}}), {}));
   alpha->unpublishObjectClass(car);
   EXPECT_EQ(owned(), AttributeHandleSet());
}

TEST_P(Declaration, IsNotTakenBackWhileOwnershipIsBeingAcquired)
{
   shareACar();
   beta->attributeOwnershipAcquisition(object, {speed}, {});
   EXPECT_REFUSED("OwnershipAcquisitionPending", beta->unpublishObjectClass(car));
   EXPECT_REFUSED("OwnershipAcquisitionPending", beta->unpublishObjectClassAttributes(car, {speed, fuel}));
   beta->unpublishObjectClassAttributes(car, {fuel});
   beta->cancelAttributeOwnershipAcquisition(object, {speed});
   beta->attributeOwnershipAcquisition(object, {privilege}, {});
   EXPECT_REFUSED("OwnershipAcquisitionPending",
                  beta->unpublishObjectClassAttributes(car, {position, speed})); // the privilege would go too
}

TEST_P(Declaration, IsToldToPublishersWhoWantToKnowWhetherToRegister)
{
   alpha->enableObjectClassRelevanceAdvisorySwitch();
   alpha->publishObjectClassAttributes(car, {position, speed});
   expectNothing(alpha);

   beta->subscribeObjectClassAttributes(car, {passengers}); // which alpha does not publish
   beta->subscribeObjectClassAttributes(truck, {position});
   beta->subscribeObjectClassAttributes(car, {position}, false); // passively
   expectNothing(alpha);
   beta->subscribeObjectClassAttributes(vehicle, {position});
   expect(alpha, {"startRegistrationForObjectClass(Car)"});
   joined("gamma")->subscribeObjectClassAttributes(car, {speed});
   expectNothing(alpha);
   beta->unsubscribeObjectClass(vehicle);
   expectNothing(alpha);
   joined("gamma")->resignFederationExecution(NO_ACTION);
   expect(alpha, {"stopRegistrationForObjectClass(Car)"});

   beta->subscribeObjectClassAttributes(vehicle, {fuel});
   expectNothing(alpha);
   alpha->publishObjectClassAttributes(car, {fuel});
   expect(alpha, {"startRegistrationForObjectClass(Car)"});
   alpha->disableObjectClassRelevanceAdvisorySwitch();
   beta->unsubscribeObjectClass(vehicle);
   expectNothing(alpha);
   expectNothing(beta);
}

TEST_P(Declaration, IsToldToPublishersWhoWantToKnowWhetherToSend)
{
   alpha->enableInteractionRelevanceAdvisorySwitch();
   beta->subscribeInteractionClass(message);
   expectNothing(alpha);
   alpha->publishInteractionClass(urgent);
   expect(alpha, {"turnInteractionsOn(Urgent)"});
   beta->subscribeInteractionClass(urgent);
   beta->unsubscribeInteractionClass(message);
   expectNothing(alpha);
   beta->unsubscribeInteractionClass(urgent);
   expect(alpha, {"turnInteractionsOff(Urgent)"});
   beta->subscribeInteractionClass(urgent, false); // passively
   alpha->subscribeInteractionClass(urgent);       // nobody sends to himself
   beta->subscribeInteractionClass(accident);
   expectNothing(alpha);
   beta->subscribeInteractionClass(urgent);
   expect(alpha, {"turnInteractionsOn(Urgent)"});
   beta->resignFederationExecution(NO_ACTION);
   expect(alpha, {"turnInteractionsOff(Urgent)"});
}

TEST_P(Declaration, OfOnesOwnInterestIsNothingToBeToldOf)
{
   alpha->enableObjectClassRelevanceAdvisorySwitch();
   alpha->publishObjectClassAttributes(car, {position});
   alpha->subscribeObjectClassAttributes(car, {position});
   expectNothing(alpha);
}

} // namespace
