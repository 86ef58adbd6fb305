// A federate of a random run: what it knows, from what it did and from what it was told, and whether that
// fits.
#ifndef RTI1516E_TESTS_SYSTEM_RANDOMPLAYER_H
#define RTI1516E_TESTS_SYSTEM_RANDOMPLAYER_H

#include "RandomLedger.h"
#include "Text.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace system_tests {

// Sets of attributes have a bit for each of these, in their order, with a class that has it.
struct PlayedAttribute
{
   wchar_t const* name;
   std::size_t ofClass;
};
constexpr PlayedAttribute playedAttributes[] = {{L"Position", 0},
                                                {L"Speed", 0},
                                                {L"Fuel", 0},
                                                {L"Passengers", 1},
                                                {L"Fare", 2},
                                                {L"Load", 3},
                                                {L"HLAprivilegeToDeleteObject", 0}};
using Attributes = std::uint8_t;
constexpr Attributes withLanes = 0x03;
constexpr Attributes privilegeToDelete = 0x40;

struct PlayedClass
{
   wchar_t const* name;
   int parent;
   Attributes attributes; // without the privilege
};
constexpr PlayedClass playedClasses[] = {{L"HLAobjectRoot.Vehicle", -1, 0x07},
                                         {L"HLAobjectRoot.Vehicle.Car", 0, 0x0f},
                                         {L"HLAobjectRoot.Vehicle.Car.Taxi", 1, 0x1f},
                                         {L"HLAobjectRoot.Vehicle.Truck", 0, 0x27}};
constexpr PlayedClass playedInteractions[] = {{L"HLAinteractionRoot.Message", -1, 0},
                                              {L"HLAinteractionRoot.Message.Urgent", 0, 0},
                                              {L"HLAinteractionRoot.Accident", -1, 0}};
constexpr std::size_t withRegions = 2; // the interaction class that has a dimension

constexpr Attributes without(unsigned int attributes, unsigned int others)
{
   return static_cast<Attributes>(attributes & ~others);
}
constexpr Attributes with(unsigned int attributes, unsigned int others)
{
   return static_cast<Attributes>(attributes | others);
}

// What a player has had, from joining to resigning.
struct Life
{
   bool isJoined = false;
   FederateHandle handle;
   std::size_t firstMessage = 0; // that can be for it
   std::array<Attributes, 4> published{};
   std::array<Attributes, 4> subscribed{};
   std::array<Attributes, 4> subscribedSomewhere{};
   std::array<bool, 3> publishedInteractions{};
   std::array<bool, 3> subscribedInteractions{};
   bool subscribedInteractionSomewhere = false;
   std::vector<RegionHandle> regions;
   std::vector<MessageRetractionHandle> sent;
   std::map<ObjectInstanceHandle, std::size_t> known; // with the known class
   std::map<ObjectInstanceHandle, Attributes> owned;
   std::vector<std::pair<ObjectInstanceHandle, Attributes>> toConfirm;
   ObjectInstanceHandle subject;          // of the present service
   std::set<ObjectInstanceHandle> doubts; // heard to be known no more, and so to be removed

   // Messages by their numbers: the parts that are still to come, and those that have.
   struct Due
   {
      ObjectInstanceHandle object;
      Attributes parts;
   };
   std::map<std::size_t, Due> due;
   std::map<std::size_t, Attributes> got;
   std::set<std::size_t> toTakeBack; // when they are retracted

   int enabling = 0; // how many answers to requests to be regulating or constrained are due
   bool regulating = false;
   bool constrained = false;
   bool asynchronous = false;
   bool advancing = false;
   bool flushing = false;
   bool inclusive = false; // the request covers all messages of its time
   std::int64_t now = 0;
   std::int64_t requested = 0;
   std::int64_t earliest = 0; // that a message received in order may still have
   std::int64_t latest = 0;   // that one had since the last grant
};

class Player : private NullFederateAmbassador, public Life
{
public:
   using Object = ObjectInstanceHandle;
   using Lock = std::lock_guard<std::recursive_mutex>;

   Player(Ledger& ledger, int index, unsigned int seed, CallbackModel model);

   void join(std::string const& federation);

   // Calls are counted by the asking for whom to call.
   RTIambassador& rti()
   {
      ++_calls;
      return *_rti;
   }
   long calls() const { return _calls; }

   void evoke() { rti().evokeMultipleCallbacks(0.0, 0.0); }
   void drain(CallbackModel model); // until all that was under way to it has come

   int below(int bound) { return static_cast<int>(_random() % static_cast<unsigned int>(bound)); }
   bool oneIn(int chances) { return below(chances) == 0; }
   Attributes some(unsigned int of) { return static_cast<Attributes>(of & _random()); }
   template <class Container>
   auto oneOf(Container const& container)
   {
      return *std::next(container.begin(), below(static_cast<int>(container.size())));
   }

   AttributeHandleSet setOf(Attributes attributes) const;
   Attributes maskOf(AttributeHandleSet const& attributes) const;
   bool isSubscribed(std::size_t interaction) const; // or to a class above
   // The infrastructure may have enabled something that this player has yet to hear of.
   bool isBehind() const { return ledger.concurrent && enabling > 0; }
   std::int64_t furthest() const { return std::max(requested, now); }
   void expectNoMore(Object const* ofObject);
   void fault(std::string const& what) { ledger.fault(std::to_string(index) + " " + what); }

   // What the infrastructure says is owned must be what this player was told, and nobody else's.
   void checkOwnership(std::map<Object, Attributes>& ofOthers);

   Ledger& ledger;
   int const index;
   std::recursive_mutex mutex; // guards this life; held during a service and during a callback

   // The handles are the same in each life.
   std::array<AttributeHandle, 7> attributes;
   std::array<ObjectClassHandle, 4> classes;
   std::array<InteractionClassHandle, 3> interactions;
   DimensionHandle lane;

private:
   struct Stamp
   {
      OrderType sent;
      LogicalTime const* time;
      OrderType received;
   };

   void received(VariableLengthData const& tag, Attributes parts, Stamp const& stamp);
   void checkTime(Stamp const& stamp);
   void checkOwned(char const* callback, Object const& object, AttributeHandleSet const& some);
   void enabled(LogicalTime const& time);
   void reflected(Object const& object, AttributeHandleValueMap const& values, VariableLengthData const& tag,
                  Stamp const& stamp);
   void interaction(InteractionClassHandle const& theClass, VariableLengthData const& tag,
                    Stamp const& stamp);
   void removed(Object const& object, Stamp const& stamp);

   using Tag = VariableLengthData const&;
   using Set = AttributeHandleSet const&;
   using Values = AttributeHandleValueMap const&;
   using Parameters = ParameterHandleValueMap const&;
   using Interaction = InteractionClassHandle;
   using Transport = TransportationType;
   using Time = LogicalTime const&;
   using Retraction = MessageRetractionHandle;

   // clang-format off
   void reportFederationExecutions(FederationExecutionInformationVector const&) override { _drained = true; }
   void discoverObjectInstance(Object object, ObjectClassHandle theClass, std::wstring const&) override;
   void discoverObjectInstance(Object object, ObjectClassHandle theClass, std::wstring const& name,
                               FederateHandle) override
   { discoverObjectInstance(object, theClass, name); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, Transport, Time time,
                               OrderType order, Retraction, SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, &time, order}); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, Transport, Time time,
                               OrderType order, SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, &time, order}); }
   void reflectAttributeValues(Object object, Values values, Tag tag, OrderType how, Transport,
                               SupplementalReflectInfo) override
   { reflected(object, values, tag, {how, nullptr, RECEIVE}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, Transport, Time time,
                           OrderType order, Retraction, SupplementalReceiveInfo) override
   { interaction(theClass, tag, {how, &time, order}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, Transport, Time time,
                           OrderType order, SupplementalReceiveInfo) override
   { interaction(theClass, tag, {how, &time, order}); }
   void receiveInteraction(Interaction theClass, Parameters, Tag tag, OrderType how, Transport,
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
   { checkOwned("provides", object, some); }
   void requestAttributeOwnershipRelease(Object object, Set some, Tag) override
   { checkOwned("releases", object, some); }
   // clang-format on
   void requestDivestitureConfirmation(Object object, Set some) override;
   void attributeOwnershipAcquisitionNotification(Object object, Set some, Tag) override;
   void timeRegulationEnabled(Time time) override;
   void timeConstrainedEnabled(Time time) override;
   void timeAdvanceGrant(Time time) override;
   void requestRetraction(Retraction handle) override;

   std::mt19937 _random;
   std::unique_ptr<RTIambassador> _rti;
   std::atomic<long> _calls{0};
   std::atomic<bool> _drained{false};
   int _lives = 0;
};

// The player does one thing, which may be to be born or to die.
void actAtRandom(Player& player, std::string const& federation);

// Asks for an advance as the others do, be it with bad timing; 0 is the timeAdvanceRequest.
void advance(Player& player, int way, std::int64_t to);

} // namespace system_tests

#endif
