// A federate of a random run: what it does, and whether what it is told fits what it knows.
#ifndef RTI1516E_TESTS_SYSTEM_RANDOMPLAYER_H
#define RTI1516E_TESTS_SYSTEM_RANDOMPLAYER_H

#include "RandomLedger.h"
#include "Steps.h"

#include <RTI/NullFederateAmbassador.h>

#include <memory>

namespace system_tests {

class Player : private NullFederateAmbassador
{
public:
   using Object = ObjectInstanceHandle;
   using Lock = std::lock_guard<std::recursive_mutex>;

   Player(Ledger& theLedger, std::size_t theIndex, CallbackModel model, std::string const& federation);

   // Does one thing, which may be to be born or to die.
   void act(Dice dice);
   void join(std::wstring const& name);
   void vanish();
   bool answer(); // to a save, a restore or a synchronization point; whether it can go on
   void advance(int way, std::int64_t to); // 0 is the timeAdvanceRequest
   void evoke() { rti->evokeMultipleCallbacks(0.0, 1.0); }
   void drain(); // until all that was under way to it has come

   AttributeHandleSet setOf(Attributes attributes) const;
   Attributes maskOf(AttributeHandleSet const& attributes) const;
   // The infrastructure may have enabled something that this player has yet to hear of.
   bool isBehind() const { return ledger.concurrent && life.enabling > 0; }
   std::int64_t furthest() const { return std::max(life.requested, life.now); }
   void expectNoMore(Object const* ofObject);
   std::int64_t leastSendTime() const;
   void demand(bool holds, char const* what, std::int64_t detail = 0);
   // What a player on a thread of its own cannot know for certain.
   void demandSurely(bool holds, char const* what, std::int64_t detail = 0)
   {
      demand(holds || ledger.concurrent, what, detail);
   }

   // What the infrastructure says is owned must be what this player was told, and nobody else's.
   void checkOwnership(std::map<Object, Attributes>& ofOthers);

   Ledger& ledger;
   std::size_t const index;
   Life& life;
   std::unique_ptr<RTIambassador> rti;
   std::recursive_mutex mutex; // guards the life; held during a service and during a callback

   // The handles are the same in each life.
   std::array<AttributeHandle, 7> attributes;
   std::array<ObjectClassHandle, 4> classes;
   std::array<InteractionClassHandle, 3> interactions;
   DimensionHandle lane;

private:
   enum Task
   {
      idle,
      toSave,
      toRestore,
      toWait // for the others to have saved or restored
   };

   struct Stamp
   {
      OrderType sent;
      LogicalTime const* time;
      OrderType received;
   };

   void connect();
   void received(VariableLengthData const& tag, Attributes parts, Stamp const& stamp);
   void checkTime(Stamp const& stamp);
   void checkOwned(char const* callback, Object const& object, AttributeHandleSet const& some);
   void enabled(LogicalTime const& time);
   void reflected(Object const& object, AttributeHandleValueMap const& values, VariableLengthData const& tag,
                  Stamp const& stamp);
   void interaction(InteractionClassHandle const& theClass, VariableLengthData const& tag,
                    Stamp const& stamp);
   void removed(Object const& object, Stamp const& stamp);
   void become(Task task);

   using Tag = VariableLengthData const&;
   using Set = AttributeHandleSet const&;
   using Values = AttributeHandleValueMap const&;
   using Parameters = ParameterHandleValueMap const&;
   using Interaction = InteractionClassHandle;
   using Text = std::wstring const&;
   using Time = LogicalTime const&;
   using Retraction = MessageRetractionHandle;

   // clang-format off
   void reportFederationExecutions(FederationExecutionInformationVector const&) override { _drained = true; }
   void announceSynchronizationPoint(Text label, Tag) override;
   void federationSynchronized(Text label, FederateHandleSet const&) override;
   void initiateFederateSave(Text, Time) override { become(toSave); }
   void initiateFederateSave(Text) override { become(toSave); }
   void federationSaved() override;
   void federationNotSaved(SaveFailureReason) override { become(idle); }
   void initiateFederateRestore(Text, Text, FederateHandle) override { become(toRestore); }
   void federationRestored() override;
   void federationNotRestored(RestoreFailureReason) override { become(idle); }
   void discoverObjectInstance(Object object, ObjectClassHandle theClass, Text) override;
   void discoverObjectInstance(Object object, ObjectClassHandle theClass, Text name, FederateHandle) override
   { discoverObjectInstance(object, theClass, name); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, TransportationType, Time time,
                               OrderType order, Retraction, SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, &time, order}); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, TransportationType, Time time,
                               OrderType order, SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, &time, order}); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, TransportationType,
                               SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, nullptr, RECEIVE}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, TransportationType, Time time,
                           OrderType order, Retraction, SupplementalReceiveInfo) override
   { interaction(theClass, tag, {how, &time, order}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, TransportationType, Time time,
                           OrderType order, SupplementalReceiveInfo) override
   { interaction(theClass, tag, {how, &time, order}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, TransportationType,
                           SupplementalReceiveInfo) override
   { interaction(theClass, tag, {how, nullptr, RECEIVE}); }
   void removeObjectInstance(Object object, Tag, OrderType how, Time time, OrderType order, Retraction,
                             SupplementalRemoveInfo) override
   { removed(object, {how, &time, order}); }
   void removeObjectInstance(Object object, Tag, OrderType how, Time time, OrderType order,
                             SupplementalRemoveInfo) override
   { removed(object, {how, &time, order}); }
   void removeObjectInstance(Object object, Tag, OrderType how, SupplementalRemoveInfo) override
   { removed(object, {how, nullptr, RECEIVE}); }
   void provideAttributeValueUpdate(Object object, Set some, Tag) override
   { checkOwned("provides what it does not own", object, some); }
   void requestAttributeOwnershipRelease(Object object, Set some, Tag) override
   { checkOwned("releases what it does not own", object, some); }
   // clang-format on
   void requestDivestitureConfirmation(Object object, Set some) override;
   void attributeOwnershipAcquisitionNotification(Object object, Set some, Tag) override;
   void timeRegulationEnabled(Time time) override;
   void timeConstrainedEnabled(Time time) override;
   void timeAdvanceGrant(Time time) override;
   void requestRetraction(Retraction handle) override;

   CallbackModel const _model;
   std::wstring const _federation;
   std::atomic<bool> _drained{false};
   Task _task = idle;
   Life _beingSaved;
   Life _saved;
   int _lives = 0;
};

} // namespace system_tests

#endif
