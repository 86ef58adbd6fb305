// What the federates of a random run do: a row for each service, with what it changes for the player.
#include "RandomPlayer.h"
#include "Refusal.h"

#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

namespace system_tests {

namespace {

// What a service is called with, drawn before the call.
struct Draw
{
   explicit Draw(Player& player)
      : c(static_cast<std::size_t>(player.below(4))),
        k(static_cast<std::size_t>(player.below(3))),
        some(player.some(playedClasses[c].attributes)),
        region(player.regions.empty() ? RegionHandle() : player.oneOf(player.regions)),
        inLanes({{player.setOf(static_cast<Attributes>(1 + player.below(3))), {region}}}),
        flag(player.oneIn(2))
   {
      if (!player.known.empty()) {
         auto const picked = player.oneOf(player.known);
         object = picked.first;
         knownClass = picked.second;
         owned = player.owned[object];
         given = player.some(owned);
         wanted = player.some(without(player.published[knownClass], owned));
      }
      player.subject = object;
   }

   std::size_t c; // an object class
   std::size_t k; // an interaction class
   Attributes some;
   RegionHandle region;
   AttributeHandleSetRegionHandleSetPairVector inLanes; // some of the attributes that have lanes
   bool flag;
   ObjectInstanceHandle object;
   std::size_t knownClass = 0;
   Attributes owned = 0;
   Attributes given = 0;
   Attributes wanted = 0;
};

void lose(Player& player, ObjectInstanceHandle const& object, Attributes attributes)
{
   player.owned[object] = without(player.owned[object], attributes);
}

// A time that is not too early, or none.
std::unique_ptr<HLAinteger64Time> timeToSendAt(Player& player)
{
   if (player.oneIn(3) || player.enabling > 0) {
      return nullptr;
   }
   std::int64_t lookahead = 0;
   if (player.regulating) {
      lookahead = dynamic_cast<HLAinteger64Interval const&>(*player.rti().queryLookahead());
   }
   return std::make_unique<HLAinteger64Time>(player.furthest() + lookahead + 1 + player.below(6));
}

// dueFor says which parts another player has to receive; call sends, with a time if there is one.
template <class DueFor, class Call>
void send(Player& player, ObjectInstanceHandle const& object, DueFor&& dueFor, Call&& call)
{
   Ledger& ledger = player.ledger;
   auto const at = timeToSendAt(player);
   std::size_t const id = ledger.messages++;
   MessageRetractionHandle const handle = call(std::to_string(id), at.get());
   if (handle.isValid()) {
      player.sent.push_back(handle);
      Ledger::Lock const lock(ledger.mutex);
      if (!ledger.retractable.emplace(handle, id).second) {
         player.fault("is given a retraction handle that is taken");
      }
   }
   for (Player* const other : ledger.concurrent ? std::vector<Player*>() : ledger.players) {
      Attributes const parts = other != &player && other->isJoined ? dueFor(*other) : Attributes(0);
      if (parts != 0) {
         other->due[id] = {object, parts};
      }
   }
}

void update(Player& player, Draw const& draw)
{
   Attributes const updated = player.some(without(draw.owned, privilegeToDelete));
   auto const dueFor = [&](Player const& other) {
      auto const found = other.known.find(draw.object);
      return found == other.known.end() ? Attributes(0)
                                        : static_cast<Attributes>(updated & other.subscribed[found->second]);
   };
   auto const call = [&](std::string const& id, LogicalTime const* at) {
      AttributeHandleValueMap values;
      for (auto const& attribute : player.setOf(updated)) {
         values[attribute] = bytes(id + " of " + show(draw.object));
      }
      if (at != nullptr) {
         return player.rti().updateAttributeValues(draw.object, values, bytes(id), *at);
      }
      player.rti().updateAttributeValues(draw.object, values, bytes(id));
      return MessageRetractionHandle();
   };
   if (updated != 0) {
      send(player, draw.object, dueFor, call);
   }
}

void sendInteraction(Player& player, Draw const& draw)
{
   InteractionClassHandle const theClass = player.interactions[draw.k];
   RegionHandleSet const where = {draw.region};
   bool const inRegion = draw.k == withRegions && draw.region.isValid() && draw.flag;
   auto const dueFor = [&](Player const& other) {
      return static_cast<Attributes>(other.isSubscribed(draw.k));
   };
   auto const call = [&](std::string const& id, LogicalTime const* at) {
      if (at != nullptr) {
         return inRegion ? player.rti().sendInteractionWithRegions(theClass, {}, where, bytes(id), *at)
                         : player.rti().sendInteraction(theClass, {}, bytes(id), *at);
      }
      inRegion ? player.rti().sendInteractionWithRegions(theClass, {}, where, bytes(id))
               : player.rti().sendInteraction(theClass, {}, bytes(id));
      return MessageRetractionHandle();
   };
   if (player.publishedInteractions[draw.k]) {
      send(player, {}, dueFor, call);
   }
}

void retract(Player& player, Draw const&)
{
   if (player.sent.empty()) {
      return;
   }
   MessageRetractionHandle const handle = player.sent.back();
   player.sent.pop_back();
   player.rti().retract(handle);
   Ledger::Lock const lock(player.ledger.mutex);
   std::size_t const id = player.ledger.retractable.at(handle);
   player.ledger.retracted.insert(id);
   for (Player* const other : player.ledger.concurrent ? std::vector<Player*>() : player.ledger.players) {
      other->due.erase(id);
   }
}

void forget(Player& player, ObjectInstanceHandle const& object)
{
   player.known.erase(object);
   player.owned.erase(object);
   player.expectNoMore(&object);
}

void registerObject(Player& player, Draw const& draw)
{
   Attributes const published = player.published[draw.c];
   ObjectClassHandle const theClass = player.classes[draw.c];
   if (published != 0 && player.known.size() < 30) {
      AttributeHandleSet const laned = player.setOf(published & withLanes);
      ObjectInstanceHandle const object =
         draw.region.isValid() && draw.flag
            ? player.rti().registerObjectInstanceWithRegions(theClass, {{laned, {draw.region}}})
            : player.rti().registerObjectInstance(theClass);
      player.known[object] = draw.c;
      player.owned[object] = with(published, privilegeToDelete);
   }
}

void remove(Player& player, Draw const& draw)
{
   if ((draw.owned & privilegeToDelete) != 0) {
      if (auto const at = timeToSendAt(player)) {
         player.rti().deleteObjectInstance(draw.object, bytes(""), *at);
      } else {
         player.rti().deleteObjectInstance(draw.object, bytes(""));
      }
      forget(player, draw.object);
   }
}

// Alone, for it might be discovered again before this player knows that it has forgotten it.
void removeLocally(Player& player, Draw const& draw)
{
   if (draw.object.isValid() && !player.ledger.concurrent) {
      player.rti().localDeleteObjectInstance(draw.object);
      forget(player, draw.object);
      if (draw.owned != 0) {
         player.fault("forgets an object that it owns a part of");
      }
   }
}

void confirm(Player& player, Draw const&)
{
   if (player.toConfirm.empty()) {
      return;
   }
   auto const asked = player.toConfirm.back();
   player.toConfirm.pop_back();
   player.subject = asked.first;
   auto const found = player.owned.find(asked.first);
   unsigned int const given = found == player.owned.end() ? 0U : asked.second & found->second;
   if (given != 0) {
      player.rti().confirmDivestiture(asked.first, player.setOf(with(given, 0)), bytes(""));
      lose(player, asked.first, with(given, 0));
   }
}

std::string const pending =
   "InTimeAdvancingState RequestForTimeRegulationPending RequestForTimeConstrainedPending ";

struct Row
{
   char const* service;
   int chances;
   bool (*isFor)(Draw const& draw);
   std::string allowed; // refusals that come of what others did, or of what the player does not look at
   void (*call)(Player& p, Draw const& d);
};

using P = Player;
using D = Draw const;

// A service that makes no sense for what was drawn is not called.
bool any(D&) { return true; }
bool owner(D& d) { return d.owned != 0; }
bool giver(D& d) { return d.given != 0; }
bool taker(D& d) { return d.wanted != 0; }
bool inRegion(D& d) { return d.region.isValid(); }
bool objectInRegion(D& d) { return d.region.isValid() && d.object.isValid(); }

// clang-format off
Row const rows[] = {
   {"publishObjectClassAttributes", 15, any, "", [](P& p, D& d) {
      p.rti().publishObjectClassAttributes(p.classes[d.c], p.setOf(d.some));
      p.published[d.c] = with(p.published[d.c], d.some); }},
   {"unpublishObjectClass", 1, any, "OwnershipAcquisitionPending", [](P& p, D& d) {
      p.rti().unpublishObjectClass(p.classes[d.c]);
      p.published[d.c] = 0;
      for (auto const& [object, knownClass] : p.known) {
         p.owned[object] = knownClass == d.c ? Attributes(0) : p.owned[object];
      } }},
   {"subscribeObjectClassAttributes", 15, any, "", [](P& p, D& d) {
      p.rti().subscribeObjectClassAttributes(p.classes[d.c], p.setOf(d.some), d.flag);
      p.subscribed[d.c] = with(p.subscribed[d.c], d.some); }},
   {"unsubscribeObjectClass", 3, any, "", [](P& p, D& d) {
      p.rti().unsubscribeObjectClass(p.classes[d.c]);
      p.subscribed[d.c] = p.subscribedSomewhere[d.c] = 0;
      p.expectNoMore(nullptr); }},
   {"publishInteractionClass", 5, any, "", [](P& p, D& d) {
      p.rti().publishInteractionClass(p.interactions[d.k]);
      p.publishedInteractions[d.k] = true; }},
   {"subscribeInteractionClass", 10, any, "", [](P& p, D& d) {
      p.rti().subscribeInteractionClass(p.interactions[d.k], d.flag);
      p.subscribedInteractions[d.k] = true; }},
   {"unsubscribeInteractionClass", 2, any, "", [](P& p, D& d) {
      p.rti().unsubscribeInteractionClass(p.interactions[d.k]);
      p.subscribedInteractions[d.k] = false;
      p.subscribedInteractionSomewhere &= d.k != withRegions;
      p.expectNoMore(nullptr); }},
   {"registerObjectInstance", 25, any, "", registerObject},
   {"updateAttributeValues", 300, any, "", update},
   {"sendInteraction", 150, any, "", sendInteraction},
   {"retract", 15, any, "MessageCanNoLongerBeRetracted TimeRegulationIsNotEnabled", retract},
   {"deleteObjectInstance", 6, any, "", remove},
   {"localDeleteObjectInstance", 4, any, "OwnershipAcquisitionPending FederateOwnsAttributes", removeLocally},
   {"requestAttributeValueUpdate", 8, any, "", [](P& p, D& d) {
      p.rti().requestAttributeValueUpdate(p.classes[d.c], p.setOf(d.some), bytes("")); }},
   {"requestAttributeTransportationTypeChange", 8, owner, "AttributeAlreadyBeingChanged", [](P& p, D& d) {
      auto const type = d.flag ? RELIABLE : BEST_EFFORT;
      p.rti().requestAttributeTransportationTypeChange(d.object, p.setOf(d.owned), type); }},
   {"changeAttributeOrderType", 8, owner, "", [](P& p, D& d) {
      p.rti().changeAttributeOrderType(d.object, p.setOf(d.owned), d.flag ? RECEIVE : TIMESTAMP); }},
   {"unconditionalAttributeOwnershipDivestiture", 10, giver, "", [](P& p, D& d) {
      p.rti().unconditionalAttributeOwnershipDivestiture(d.object, p.setOf(d.given));
      lose(p, d.object, d.given); }},
   {"negotiatedAttributeOwnershipDivestiture", 20, giver, "AttributeAlreadyBeingDivested", [](P& p, D& d) {
      p.rti().negotiatedAttributeOwnershipDivestiture(d.object, p.setOf(d.given), bytes("")); }},
   {"confirmDivestiture", 60, any, "NoAcquisitionPending AttributeDivestitureWasNotRequested", confirm},
   {"cancelNegotiatedAttributeOwnershipDivestiture", 8, giver, "AttributeDivestitureWasNotRequested",
    [](P& p, D& d) {
      p.rti().cancelNegotiatedAttributeOwnershipDivestiture(d.object, p.setOf(d.given)); }},
   {"attributeOwnershipDivestitureIfWanted", 10, giver, "", [](P& p, D& d) {
      AttributeHandleSet divested;
      p.rti().attributeOwnershipDivestitureIfWanted(d.object, p.setOf(d.given), divested);
      lose(p, d.object, p.maskOf(divested)); }},
   {"attributeOwnershipAcquisition", 40, taker, "FederateOwnsAttributes", [](P& p, D& d) {
      p.rti().attributeOwnershipAcquisition(d.object, p.setOf(d.wanted), bytes("")); }},
   {"attributeOwnershipAcquisitionIfAvailable", 20, taker,
    "AttributeAlreadyBeingAcquired FederateOwnsAttributes", [](P& p, D& d) {
      p.rti().attributeOwnershipAcquisitionIfAvailable(d.object, p.setOf(d.wanted)); }},
   {"cancelAttributeOwnershipAcquisition", 15, taker,
    "AttributeAcquisitionWasNotRequested AttributeAlreadyOwned", [](P& p, D& d) {
      p.rti().cancelAttributeOwnershipAcquisition(d.object, p.setOf(d.wanted)); }},
   {"enableTimeRegulation", 10, any, pending + "TimeRegulationAlreadyEnabled", [](P& p, D&) {
      p.rti().enableTimeRegulation(HLAinteger64Interval(p.below(5)));
      ++p.enabling; }},
   {"enableTimeConstrained", 10, any, pending + "TimeConstrainedAlreadyEnabled", [](P& p, D&) {
      p.rti().enableTimeConstrained();
      ++p.enabling; }},
   {"disableTimeRegulation", 1, any, "TimeRegulationIsNotEnabled", [](P& p, D&) {
      if (!p.isBehind()) {
         p.rti().disableTimeRegulation();
         p.regulating = false;
      } }},
   {"disableTimeConstrained", 1, any, "TimeConstrainedIsNotEnabled", [](P& p, D&) {
      if (!p.isBehind()) {
         p.rti().disableTimeConstrained();
         p.constrained = false;
      } }},
   {"modifyLookahead", 5, any, "InTimeAdvancingState TimeRegulationIsNotEnabled", [](P& p, D&) {
      p.rti().modifyLookahead(HLAinteger64Interval(p.below(5))); }},
   {"enableAsynchronousDelivery", 2, any, "AsynchronousDeliveryAlreadyEnabled", [](P& p, D&) {
      if (p.index % 2 == 0) { // what the others receive is checked more closely
         p.asynchronous = true;
         p.rti().enableAsynchronousDelivery();
      } }},
   {"an advance", 150, any, pending, [](P& p, D&) { advance(p, p.below(5), p.now + p.below(8)); }},
   {"createRegion", 6, any, "", [](P& p, D&) {
      if (p.regions.size() < 3) {
         p.regions.push_back(p.rti().createRegion({p.lane}));
      } }},
   {"commitRegionModifications", 12, inRegion, "", [](P& p, D& d) {
      auto const lower = static_cast<unsigned long>(p.below(7));
      p.rti().setRangeBounds(d.region, p.lane, RangeBounds(lower, lower + 1));
      p.rti().commitRegionModifications({d.region}); }},
   {"deleteRegion", 3, inRegion, "RegionInUseForUpdateOrSubscription", [](P& p, D& d) {
      p.rti().deleteRegion(d.region);
      p.regions.erase(std::find(p.regions.begin(), p.regions.end(), d.region)); }},
   {"subscribeObjectClassAttributesWithRegions", 6, inRegion, "", [](P& p, D& d) {
      p.rti().subscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes);
      p.subscribedSomewhere[d.c] = with(p.subscribedSomewhere[d.c], p.maskOf(d.inLanes[0].first)); }},
   {"unsubscribeObjectClassAttributesWithRegions", 3, inRegion, "", [](P& p, D& d) {
      p.rti().unsubscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes); }},
   {"subscribeInteractionClassWithRegions", 5, inRegion, "", [](P& p, D& d) {
      p.rti().subscribeInteractionClassWithRegions(p.interactions[withRegions], {d.region});
      p.subscribedInteractionSomewhere = true; }},
   {"associateRegionsForUpdates", 8, objectInRegion, "", [](P& p, D& d) {
      p.rti().associateRegionsForUpdates(d.object, d.inLanes); }},
   {"unassociateRegionsForUpdates", 5, objectInRegion, "", [](P& p, D& d) {
      p.rti().unassociateRegionsForUpdates(d.object, d.inLanes); }},
   {"enableAttributeRelevanceAdvisorySwitch", 2, any, "AttributeRelevanceAdvisorySwitchIsOn", [](P& p, D&) {
      p.rti().enableAttributeRelevanceAdvisorySwitch(); }},
   {"resignFederationExecution", 2, any, "OwnershipAcquisitionPending FederateOwnsAttributes", [](P& p, D&) {
      p.rti().resignFederationExecution(static_cast<ResignAction>(p.below(6)));
      p.isJoined = false;
      p.due.clear(); }},
};
// clang-format on

// What another thread's player does at the same time may come in between.
std::string const raced =
   " AttributeNotOwned DeletePrivilegeNotHeld LogicalTimeAlreadyPassed InvalidLogicalTime";

Row const& oneOfTheRows(Player& player)
{
   static int const all = [] {
      int sum = 0;
      for (Row const& row : rows) {
         sum += row.chances;
      }
      return sum;
   }();
   int dice = player.below(all);
   Row const* row = rows;
   while ((dice -= row->chances) >= 0) {
      ++row;
   }
   return *row;
}

} // namespace

void actAtRandom(Player& player, std::string const& federation)
{
   Player::Lock const lock(player.mutex);
   if (!player.isJoined) {
      player.join(federation);
      return;
   }
   Row const& row = oneOfTheRows(player);
   Draw const draw(player);
   if (!row.isFor(draw)) {
      return;
   }
   std::string const seen = refusal([&] { row.call(player, draw); });
   std::string const allowed = " nothing " + row.allowed + (player.ledger.concurrent ? raced : "") + " ";
   if (seen == "ObjectInstanceNotKnown") {
      player.doubts.insert(player.subject); // its removal is under way, then
   } else if (allowed.find(" " + seen + " ") == std::string::npos) {
      player.fault(std::string(row.service) + " is refused: " + seen);
   }
}

void advance(Player& player, int way, std::int64_t to)
{
   static constexpr void (RTIambassador::*ways[])(LogicalTime const&) = {
      &RTIambassador::timeAdvanceRequest, &RTIambassador::nextMessageRequest,
      &RTIambassador::timeAdvanceRequestAvailable, &RTIambassador::nextMessageRequestAvailable,
      &RTIambassador::flushQueueRequest};
   Player::Lock const lock(player.mutex);
   if (!player.advancing && player.isJoined && to >= player.now && !player.isBehind()) {
      auto const request = ways[way]; // in the call itself g++ 12's check of the index reads another value
      (player.rti().*request)(HLAinteger64Time(to));
      player.requested = to;
      player.advancing = true;
      player.flushing = way == 4;
      player.inclusive = way < 2;
   }
}

} // namespace system_tests
