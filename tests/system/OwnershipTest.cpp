#include "RoadTest.h"

namespace {

using namespace system_tests;

// Alpha's car, whose attributes beta and gamma may own too.
class Ownership : public RoadTest
{
protected:
   Ownership() : gamma(joined("gamma"))
   {
      shareACar();
      gamma->publishObjectClassAttributes(car, ofVehicle);
      gamma->subscribeObjectClassAttributes(car, ofVehicle);
      expect(gamma, {"discoverObjectInstance(car, Car, car, alpha)"});
   }

   // As the federates themselves see it, and as one that asks is told.
   void expectOwner(AttributeHandle attribute, Federate const* owner)
   {
      for (Federate* const federate : {&alpha, &beta, &gamma}) {
         EXPECT_EQ((*federate)->isAttributeOwnedByFederate(object, attribute), federate == owner)
            << federate->name();
      }
      gamma->queryAttributeOwnership(object, attribute);
      std::string const which = names().in("(car, " + show(attribute));
      expect(gamma, {owner == nullptr ? "attributeIsNotOwned" + which + ")"
                                      : "informAttributeOwnership" + which + ", " + owner->name() + ")"});
   }

   // No federate wanted to be asked.
   void forgetOffers()
   {
      alpha.callbacks();
      beta.callbacks();
      gamma.callbacks();
   }

   Federate& gamma;
};
IN_BOTH_CALLBACK_MODELS(Ownership);

TEST_P(Ownership, IsGivenAwayUnconditionally)
{
   expectOwner(position, &alpha);
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position, speed});
   expectEach({&beta, &gamma}, {"requestAttributeOwnershipAssumption(car, {Position Speed}, )"});
   expectNothing(alpha);
   expectOwner(position, nullptr);
   expectOwner(fuel, &alpha);
   beta->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   expectOwner(position, &beta);
   expectNothing(alpha);
   beta->updateAttributeValues(object, values({{position, "1"}}), bytes(""));
   expect(gamma, {"reflectAttributeValues(car, {Position=1}, , RO, reliable, by beta)"});
}

TEST_P(Ownership, IsGivenAwayByAgreement)
{
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position, speed}, bytes("offer"));
   expectEach({&beta, &gamma}, {"requestAttributeOwnershipAssumption(car, {Position Speed}, offer)"});
   EXPECT_REFUSED("AttributeAlreadyBeingDivested",
                  alpha->negotiatedAttributeOwnershipDivestiture(object, {speed, fuel}, {}));
   EXPECT_REFUSED("NoAcquisitionPending", alpha->confirmDivestiture(object, {position}, {}));
   EXPECT_REFUSED("AttributeDivestitureWasNotRequested", alpha->confirmDivestiture(object, {fuel}, {}));

   beta->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   expect(alpha, {"requestDivestitureConfirmation(car, {Position})"});
   expectOwner(position, &alpha);
   alpha->confirmDivestiture(object, {position}, bytes("yours"));
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, yours)"});
   expectOwner(position, &beta);

   gamma->attributeOwnershipAcquisitionIfAvailable(object, {speed});
   expect(alpha, {"requestDivestitureConfirmation(car, {Speed})"});
   alpha->confirmDivestiture(object, {speed}, bytes("yours"));
   expect(gamma, {"attributeOwnershipAcquisitionNotification(car, {Speed}, yours)"});
   expectOwner(speed, &gamma);
}

TEST_P(Ownership, IsKeptWhenTheOfferIsTakenBack)
{
   EXPECT_REFUSED("AttributeDivestitureWasNotRequested",
                  alpha->cancelNegotiatedAttributeOwnershipDivestiture(object, {position}));
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position}, bytes("offer"));
   forgetOffers();
   alpha->cancelNegotiatedAttributeOwnershipDivestiture(object, {position});
   EXPECT_REFUSED("AttributeDivestitureWasNotRequested", alpha->confirmDivestiture(object, {position}, {}));
   expectOwner(position, &alpha);
   beta->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position}, mine)"});
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position}, bytes("offer"));
   expect(alpha, {"requestDivestitureConfirmation(car, {Position})"});
}

TEST_P(Ownership, IsAskedOfTheOwner)
{
   beta->attributeOwnershipAcquisition(object, {position, speed}, bytes("mine"));
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position Speed}, mine)"});
   expectNothing(beta);
   expectOwner(position, &alpha);
   AttributeHandleSet divested{fuel};
   alpha->attributeOwnershipDivestitureIfWanted(object, {position, fuel}, divested);
   EXPECT_EQ(divested, (AttributeHandleSet{position}));
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   alpha->attributeOwnershipDivestitureIfWanted(object, {fuel}, divested);
   EXPECT_EQ(divested, AttributeHandleSet());
   expectOwner(position, &beta);
   expectOwner(fuel, &alpha);
   alpha->attributeOwnershipReleaseDenied(object, {speed});
   expectOwner(speed, &alpha);
}

TEST_P(Ownership, GoesStraightToWhoIsWaitingForIt)
{
   beta->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   expect(alpha, {"requestAttributeOwnershipRelease(car, {Position}, mine)"});
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   expectOwner(position, &beta);
   gamma->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   expect(beta, {"requestAttributeOwnershipRelease(car, {Position}, mine)"});
   beta->unpublishObjectClassAttributes(car, {position});
   expect(gamma, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
}

TEST_P(Ownership, GoesToWhoAskedFirst)
{
   beta->attributeOwnershipAcquisition(object, {position}, bytes("first"));
   beta->attributeOwnershipAcquisition(object, {position}, bytes("first again"));
   gamma->attributeOwnershipAcquisition(object, {position}, bytes("second"));
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )",
                 "requestAttributeOwnershipRelease(car, {Position}, second)"});
   expectNothing(gamma);
}

TEST_P(Ownership, IsStillOnOfferWhenWhoWantedItResigns)
{
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position}, bytes(""));
   beta->attributeOwnershipAcquisition(object, {position}, bytes(""));
   expect(alpha, {"requestDivestitureConfirmation(car, {Position})"});
   beta->resignFederationExecution(CANCEL_PENDING_OWNERSHIP_ACQUISITIONS);
   EXPECT_REFUSED("NoAcquisitionPending", alpha->confirmDivestiture(object, {position}, {}));
   gamma->attributeOwnershipAcquisition(object, {position}, bytes(""));
   expect(alpha, {"requestDivestitureConfirmation(car, {Position})"});
}

TEST_P(Ownership, BringsNothingOfHowTheFormerOwnerHadItTravel)
{
   alpha->requestAttributeTransportationTypeChange(object, {position}, BEST_EFFORT);
   alpha.callbacks(1);
   alpha->negotiatedAttributeOwnershipDivestiture(object, {position}, bytes(""));
   beta->attributeOwnershipAcquisitionIfAvailable(object, {position});
   EXPECT_REFUSED("AttributeAcquisitionWasNotRequested", // it is not insisted on
                  beta->cancelAttributeOwnershipAcquisition(object, {position}));
   alpha->confirmDivestiture(object, {position}, bytes(""));
   forgetOffers();
   beta->queryAttributeTransportationType(object, position);
   expect(beta, {"reportAttributeTransportationType(car, Position, reliable)"});
   beta->negotiatedAttributeOwnershipDivestiture(object, {position}, bytes("")); // which alpha's was not
   expect(alpha, {"requestAttributeOwnershipAssumption(car, {Position}, )"});
}

TEST_P(Ownership, IsAskedForNoMore)
{
   EXPECT_REFUSED("AttributeAcquisitionWasNotRequested",
                  beta->cancelAttributeOwnershipAcquisition(object, {position}));
   EXPECT_REFUSED("AttributeAlreadyOwned", alpha->cancelAttributeOwnershipAcquisition(object, {position}));
   beta->attributeOwnershipAcquisition(object, {position}, bytes("mine"));
   beta->cancelAttributeOwnershipAcquisition(object, {position});
   expect(beta, {"confirmAttributeOwnershipAcquisitionCancellation(car, {Position})"});
   forgetOffers();
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   expectEach({&beta, &gamma}, {"requestAttributeOwnershipAssumption(car, {Position}, )"});
   expectOwner(position, nullptr);
}

TEST_P(Ownership, IsTakenIfAvailable)
{
   alpha->unconditionalAttributeOwnershipDivestiture(object, {position});
   forgetOffers();
   beta->attributeOwnershipAcquisitionIfAvailable(object, {position, speed});
   expectInAnyOrder(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )",
                           "attributeOwnershipUnavailable(car, {Speed})"});
   expectNothing(alpha);
   expectOwner(position, &beta);
   expectOwner(speed, &alpha);

   beta->attributeOwnershipAcquisition(object, {speed}, bytes("mine"));
   EXPECT_REFUSED("AttributeAlreadyBeingAcquired",
                  beta->attributeOwnershipAcquisitionIfAvailable(object, {speed}));
   EXPECT_REFUSED("FederateOwnsAttributes",
                  beta->attributeOwnershipAcquisitionIfAvailable(object, {position}));
}

TEST_P(Ownership, IsForPublishers)
{
   Federate& delta = joined("delta");
   delta->subscribeObjectClassAttributes(car, ofVehicle);
   expect(delta, {"discoverObjectInstance(car, Car, car, alpha)"});
   auto const acquire = [&](Federate& federate, AttributeHandle attribute) {
      std::string const way =
         refusal([&] { federate->attributeOwnershipAcquisition(object, {attribute}, {}); });
      EXPECT_REFUSED(way, federate->attributeOwnershipAcquisitionIfAvailable(object, {attribute}));
      return way;
   };
   EXPECT_EQ(acquire(delta, position), "ObjectClassNotPublished");
   EXPECT_EQ(acquire(beta, passengers), "AttributeNotPublished");
   EXPECT_EQ(acquire(alpha, position), "FederateOwnsAttributes");
   EXPECT_EQ(acquire(joined("epsilon"), position), "ObjectInstanceNotKnown");
}

TEST_P(Ownership, OfThePrivilegeToDeletePassesTheRightToDelete)
{
   alpha->unconditionalAttributeOwnershipDivestiture(object, {privilege});
   forgetOffers();
   EXPECT_REFUSED("DeletePrivilegeNotHeld", alpha->deleteObjectInstance(object, {}));
   beta->attributeOwnershipAcquisitionIfAvailable(object, {privilege});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {HLAprivilegeToDeleteObject}, )"});
   beta->deleteObjectInstance(object, bytes(""));
   expectEach({&alpha, &gamma}, {"removeObjectInstance(car, , RO, by beta)"});
}

struct Resignation
{
   ResignAction action;
   std::string whileOwning;    // position, speed, fuel and the privilege to delete
   std::string whileAcquiring; // something more, owning nothing
};

TEST_P(Ownership, EndsAsTheResigningFederateHasIt)
{
   Resignation const rows[] = {
      {NO_ACTION, "FederateOwnsAttributes", "OwnershipAcquisitionPending"},
      {CANCEL_PENDING_OWNERSHIP_ACQUISITIONS, "FederateOwnsAttributes", "nothing"},
      {UNCONDITIONALLY_DIVEST_ATTRIBUTES, "nothing", "OwnershipAcquisitionPending"},
      {DELETE_OBJECTS, "nothing", "OwnershipAcquisitionPending"},
      {DELETE_OBJECTS_THEN_DIVEST, "nothing", "OwnershipAcquisitionPending"},
      {CANCEL_THEN_DELETE_THEN_DIVEST, "nothing", "nothing"},
   };
   for (auto const& row : rows) {
      SCOPED_TRACE(row.action);
      Federate& owner = joined("owner " + std::to_string(row.action));
      Federate& buyer = joined("buyer " + std::to_string(row.action));
      for (Federate* const federate : {&owner, &buyer}) {
         (*federate)->publishObjectClassAttributes(truck, {position, speed, fuel});
         (*federate)->subscribeObjectClassAttributes(truck, ofVehicle);
      }
      ObjectInstanceHandle const lorry = registered(owner, truck, "lorry");
      buyer.callbacks(1);
      buyer->attributeOwnershipAcquisition(lorry, {fuel}, {});
      owner.callbacks(1);
      EXPECT_REFUSED(row.whileAcquiring, buyer->resignFederationExecution(row.action));
      EXPECT_REFUSED(row.whileOwning, owner->resignFederationExecution(row.action));
      for (Federate* const federate : {&owner, &buyer}) {
         refusal([&] { (*federate)->resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
      }
   }
}

TEST_P(Ownership, IsOnOfferAfterTheOwnerResigned)
{
   alpha->resignFederationExecution(UNCONDITIONALLY_DIVEST_ATTRIBUTES);
   // Whoever publishes a class publishes the privilege to delete with it.
   expectEach(
      {&beta, &gamma},
      {"requestAttributeOwnershipAssumption(car, {Fuel HLAprivilegeToDeleteObject Position Speed}, )"});
   beta->attributeOwnershipAcquisition(object, {position}, {});
   expect(beta, {"attributeOwnershipAcquisitionNotification(car, {Position}, )"});
   beta->resignFederationExecution(DELETE_OBJECTS_THEN_DIVEST); // without the privilege to delete
   expect(gamma, {"requestAttributeOwnershipAssumption(car, {Position}, )"});
   gamma->queryAttributeOwnership(object, position);
   expect(gamma, {"attributeIsNotOwned(car, Position)"});
}

} // namespace
