// What the federates of a random run do: a row for each service, with what it changes for the player.
#include "RandomPlayer.h"
#include "Refusal.h"

#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <algorithm>
#include <tuple>

namespace system_tests {

namespace {

// What a service is called with, drawn before the call.
struct Draw
{
   Draw(Player& player, Dice& theDice)
      : dice(theDice),
        c(static_cast<std::size_t>(dice.below(4))),
        k(static_cast<std::size_t>(dice.below(3))),
        some(any(playedClasses[c].attributes)),
        region(player.life.regions.empty() ? RegionHandle() : dice.oneOf(player.life.regions)),
        inLanes({{player.setOf(static_cast<Attributes>(1 + dice.below(3))), {region}}}),
        flag(dice.oneIn(2))
   {
      if (!player.life.known.empty()) {
         std::tie(object, knownClass) = dice.oneOf(player.life.known);
         owned = player.life.owned[object];
         given = any(owned);
         wanted = any(without(player.life.published[knownClass], owned));
      }
   }
   Attributes any(unsigned int of) { return static_cast<Attributes>(of & dice.number()); }

   Dice& dice;
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
   player.life.owned[object] = without(player.life.owned[object], attributes);
}

int shortLookahead(Draw const& draw) { return draw.dice.oneIn(2) ? 0 : draw.dice.below(5); }

// A time that is not too early, and often just not; or none.
std::unique_ptr<HLAinteger64Time> timeToSendAt(Player& player, Draw const& draw)
{
   if (draw.dice.oneIn(3) || player.life.enabling > 0) {
      return nullptr;
   }
   return std::make_unique<HLAinteger64Time>(player.leastSendTime() + draw.dice.below(4));
}

// dueFor says which parts another player has to receive; call sends, with a time if there is one.
template <class DueFor, class Call>
void send(Player& player, Draw const& draw, DueFor&& dueFor, Call&& call)
{
   Ledger& ledger = player.ledger;
   auto const at = timeToSendAt(player, draw);
   std::size_t const id = ledger.sent++;
   if (at != nullptr && player.life.regulating && !ledger.concurrent && draw.dice.oneIn(4)) {
      HLAinteger64Time const tooEarly(player.leastSendTime() - 1);
      std::string const seen = refusal([&] { call(std::to_string(id), &tooEarly); });
      player.demand(seen != "nothing", "may send too early", tooEarly);
      return;
   }
   MessageRetractionHandle const handle = call(std::to_string(id), at.get());
   if (handle.isValid()) {
      player.life.sent.push_back(handle);
      Ledger::Lock const lock(ledger.mutex);
      player.demand(ledger.messages.retractable.emplace(handle, id).second,
                    "is given a retraction handle that is taken");
   }
   for (std::size_t other = 0; other < ledger.lives.size() && !ledger.concurrent; ++other) {
      Life& life = ledger.lives[other];
      Attributes const parts = other != player.index && life.isJoined ? dueFor(life) : Attributes(0);
      if (parts != 0) {
         life.due[id] = {draw.object, parts};
      }
   }
}

void update(Player& player, Draw& draw)
{
   Attributes const updated = draw.any(without(draw.owned, privilegeToDelete));
   auto const dueFor = [&](Life const& other) {
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
         return player.rti->updateAttributeValues(draw.object, values, bytes(id), *at);
      }
      player.rti->updateAttributeValues(draw.object, values, bytes(id));
      return MessageRetractionHandle();
   };
   if (updated != 0) {
      send(player, draw, dueFor, call);
   }
}

void sendInteraction(Player& player, Draw& draw)
{
   InteractionClassHandle const theClass = player.interactions[draw.k];
   RegionHandleSet const where = {draw.region};
   bool const inRegion = draw.k == withRegions && draw.region.isValid() && draw.flag;
   auto const dueFor = [&](Life const& other) { return static_cast<Attributes>(other.isSubscribed(draw.k)); };
   auto const call = [&](std::string const& id, LogicalTime const* at) {
      if (at != nullptr) {
         return inRegion ? player.rti->sendInteractionWithRegions(theClass, {}, where, bytes(id), *at)
                         : player.rti->sendInteraction(theClass, {}, bytes(id), *at);
      }
      inRegion ? player.rti->sendInteractionWithRegions(theClass, {}, where, bytes(id))
               : player.rti->sendInteraction(theClass, {}, bytes(id));
      return MessageRetractionHandle();
   };
   draw.object = {};
   if (player.life.publishedInteractions[draw.k]) {
      send(player, draw, dueFor, call);
   }
}

void retract(Player& player, Draw&)
{
   if (player.life.sent.empty()) {
      return;
   }
   MessageRetractionHandle const handle = player.life.sent.back();
   player.life.sent.pop_back();
   player.rti->retract(handle);
   Ledger::Lock const lock(player.ledger.mutex);
   std::size_t const id = player.ledger.messages.retractable.at(handle);
   player.ledger.messages.retracted.insert(id);
   for (std::size_t other = 0; other < player.ledger.lives.size() && !player.ledger.concurrent; ++other) {
      player.ledger.lives[other].due.erase(id);
   }
}

void forget(Player& player, ObjectInstanceHandle const& object)
{
   player.life.known.erase(object);
   player.life.owned.erase(object);
   player.expectNoMore(&object);
}

void registerObject(Player& player, Draw& draw)
{
   Attributes const published = player.life.published[draw.c];
   ObjectClassHandle const theClass = player.classes[draw.c];
   if (published != 0 && player.life.known.size() < 30) {
      AttributeHandleSet const laned = player.setOf(published & withLanes);
      ObjectInstanceHandle const object =
         draw.region.isValid() && draw.flag
            ? player.rti->registerObjectInstanceWithRegions(theClass, {{laned, {draw.region}}})
            : player.rti->registerObjectInstance(theClass);
      player.life.known[object] = draw.c;
      player.life.owned[object] = with(published, privilegeToDelete);
   }
}

void remove(Player& player, Draw& draw)
{
   if ((draw.owned & privilegeToDelete) != 0) {
      if (auto const at = timeToSendAt(player, draw)) {
         player.rti->deleteObjectInstance(draw.object, bytes(""), *at);
      } else {
         player.rti->deleteObjectInstance(draw.object, bytes(""));
      }
      forget(player, draw.object);
   }
}

// Alone, for it might be discovered again before this player knows that it has forgotten it.
void removeLocally(Player& player, Draw& draw)
{
   if (draw.object.isValid() && !player.ledger.concurrent) {
      player.rti->localDeleteObjectInstance(draw.object);
      forget(player, draw.object);
      player.demand(draw.owned == 0, "forgets an object that it owns a part of");
   }
}

void confirm(Player& player, Draw& draw)
{
   if (player.life.toConfirm.empty()) {
      return;
   }
   auto const asked = player.life.toConfirm.back();
   player.life.toConfirm.pop_back();
   draw.object = asked.first;
   auto const found = player.life.owned.find(asked.first);
   unsigned int const given = found == player.life.owned.end() ? 0U : asked.second & found->second;
   if (given != 0) {
      player.rti->confirmDivestiture(asked.first, player.setOf(with(given, 0)), bytes(""));
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
   void (*call)(Player& p, Draw& d);
};

using P = Player;
using D = Draw;

// A service that makes no sense for what was drawn is not called.
bool any(Draw const&) { return true; }
bool owner(Draw const& d) { return d.owned != 0; }
bool giver(Draw const& d) { return d.given != 0; }
bool taker(Draw const& d) { return d.wanted != 0; }
bool inRegion(Draw const& d) { return d.region.isValid(); }
bool objectInRegion(Draw const& d) { return d.region.isValid() && d.object.isValid(); }

// clang-format off
Row const rows[] = {
   {"publishObjectClassAttributes", 15, any, "", [](P& p, D& d) {
      p.rti->publishObjectClassAttributes(p.classes[d.c], p.setOf(d.some));
      p.life.published[d.c] = with(p.life.published[d.c], d.some); }},
   {"unpublishObjectClass", 1, any, "OwnershipAcquisitionPending", [](P& p, D& d) {
      p.rti->unpublishObjectClass(p.classes[d.c]);
      p.life.published[d.c] = 0;
      for (auto const& [object, knownClass] : p.life.known) {
         p.life.owned[object] = knownClass == d.c ? Attributes(0) : p.life.owned[object];
      } }},
   {"subscribeObjectClassAttributes", 15, any, "", [](P& p, D& d) {
      p.rti->subscribeObjectClassAttributes(p.classes[d.c], p.setOf(d.some), d.flag);
      p.life.subscribed[d.c] = with(p.life.subscribed[d.c], d.some); }},
   {"unsubscribeObjectClass", 3, any, "", [](P& p, D& d) {
      p.rti->unsubscribeObjectClass(p.classes[d.c]);
      p.life.subscribed[d.c] = p.life.subscribedSomewhere[d.c] = 0;
      p.expectNoMore(nullptr); }},
   {"publishInteractionClass", 5, any, "", [](P& p, D& d) {
      p.rti->publishInteractionClass(p.interactions[d.k]);
      p.life.publishedInteractions[d.k] = true; }},
   {"subscribeInteractionClass", 10, any, "", [](P& p, D& d) {
      p.rti->subscribeInteractionClass(p.interactions[d.k], d.flag);
      p.life.subscribedInteractions[d.k] = true; }},
   {"unsubscribeInteractionClass", 2, any, "", [](P& p, D& d) {
      p.rti->unsubscribeInteractionClass(p.interactions[d.k]);
      p.life.subscribedInteractions[d.k] = false;
      p.life.subscribedInteractionSomewhere &= d.k != withRegions;
      p.expectNoMore(nullptr); }},
   {"registerObjectInstance", 25, any, "", registerObject},
   {"updateAttributeValues", 300, any, "", update},
   {"sendInteraction", 150, any, "", sendInteraction},
   {"retract", 15, any, "MessageCanNoLongerBeRetracted TimeRegulationIsNotEnabled", retract},
   {"deleteObjectInstance", 6, any, "", remove},
   {"localDeleteObjectInstance", 4, any, "OwnershipAcquisitionPending FederateOwnsAttributes", removeLocally},
   {"requestAttributeValueUpdate", 8, any, "", [](P& p, D& d) {
      p.rti->requestAttributeValueUpdate(p.classes[d.c], p.setOf(d.some), bytes("")); }},
   {"requestAttributeTransportationTypeChange", 8, owner, "AttributeAlreadyBeingChanged", [](P& p, D& d) {
      auto const type = d.flag ? RELIABLE : BEST_EFFORT;
      p.rti->requestAttributeTransportationTypeChange(d.object, p.setOf(d.owned), type); }},
   {"changeAttributeOrderType", 8, owner, "", [](P& p, D& d) {
      p.rti->changeAttributeOrderType(d.object, p.setOf(d.owned), d.flag ? RECEIVE : TIMESTAMP); }},
   {"unconditionalAttributeOwnershipDivestiture", 10, giver, "", [](P& p, D& d) {
      p.rti->unconditionalAttributeOwnershipDivestiture(d.object, p.setOf(d.given));
      lose(p, d.object, d.given); }},
   {"negotiatedAttributeOwnershipDivestiture", 20, giver, "AttributeAlreadyBeingDivested", [](P& p, D& d) {
      p.rti->negotiatedAttributeOwnershipDivestiture(d.object, p.setOf(d.given), bytes("")); }},
   {"confirmDivestiture", 60, any, "NoAcquisitionPending AttributeDivestitureWasNotRequested", confirm},
   {"cancelNegotiatedAttributeOwnershipDivestiture", 8, giver, "AttributeDivestitureWasNotRequested",
    [](P& p, D& d) {
      p.rti->cancelNegotiatedAttributeOwnershipDivestiture(d.object, p.setOf(d.given)); }},
   {"attributeOwnershipDivestitureIfWanted", 10, giver, "", [](P& p, D& d) {
      AttributeHandleSet divested;
      p.rti->attributeOwnershipDivestitureIfWanted(d.object, p.setOf(d.given), divested);
      lose(p, d.object, p.maskOf(divested)); }},
   {"attributeOwnershipAcquisition", 40, taker, "FederateOwnsAttributes", [](P& p, D& d) {
      p.rti->attributeOwnershipAcquisition(d.object, p.setOf(d.wanted), bytes("")); }},
   {"attributeOwnershipAcquisitionIfAvailable", 20, taker,
    "AttributeAlreadyBeingAcquired FederateOwnsAttributes", [](P& p, D& d) {
      p.rti->attributeOwnershipAcquisitionIfAvailable(d.object, p.setOf(d.wanted)); }},
   {"cancelAttributeOwnershipAcquisition", 15, taker,
    "AttributeAcquisitionWasNotRequested AttributeAlreadyOwned", [](P& p, D& d) {
      p.rti->cancelAttributeOwnershipAcquisition(d.object, p.setOf(d.wanted)); }},
   {"enableTimeRegulation", 10, any, pending + "TimeRegulationAlreadyEnabled", [](P& p, D& d) {
      int const lookahead = shortLookahead(d);
      p.rti->enableTimeRegulation(HLAinteger64Interval(lookahead));
      p.life.lookahead = lookahead;
      ++p.life.enabling; }},
   {"enableTimeConstrained", 10, any, pending + "TimeConstrainedAlreadyEnabled", [](P& p, D&) {
      p.rti->enableTimeConstrained();
      ++p.life.enabling; }},
   {"disableTimeRegulation", 1, any, "TimeRegulationIsNotEnabled", [](P& p, D&) {
      if (!p.isBehind()) {
         p.rti->disableTimeRegulation();
         p.life.regulating = false;
      } }},
   {"disableTimeConstrained", 1, any, "TimeConstrainedIsNotEnabled", [](P& p, D&) {
      if (!p.isBehind()) {
         p.rti->disableTimeConstrained();
         p.life.constrained = false;
      } }},
   {"modifyLookahead", 5, any, "InTimeAdvancingState TimeRegulationIsNotEnabled", [](P& p, D& d) {
      int const lookahead = shortLookahead(d);
      p.rti->modifyLookahead(HLAinteger64Interval(lookahead));
      p.life.promised = std::max(p.life.promised, p.life.now + p.life.lookahead);
      p.life.lookahead = lookahead; }},
   {"enableAsynchronousDelivery", 2, any, "AsynchronousDeliveryAlreadyEnabled", [](P& p, D&) {
      if (p.index % 2 == 0) { // what the others receive is checked more closely
         p.life.asynchronous = true;
         p.rti->enableAsynchronousDelivery();
      } }},
   {"an advance", 150, any, pending, [](P& p, D& d) {
      p.advance(d.dice.below(5), p.life.now + d.dice.below(d.dice.oneIn(2) ? 2 : 8)); }},
   {"createRegion", 6, any, "", [](P& p, D&) {
      if (p.life.regions.size() < 3) {
         p.life.regions.push_back(p.rti->createRegion({p.lane}));
      } }},
   {"commitRegionModifications", 12, inRegion, "", [](P& p, D& d) {
      auto const lower = static_cast<unsigned long>(d.dice.below(7));
      p.rti->setRangeBounds(d.region, p.lane, RangeBounds(lower, lower + 1));
      p.rti->commitRegionModifications({d.region}); }},
   {"deleteRegion", 3, inRegion, "RegionInUseForUpdateOrSubscription", [](P& p, D& d) {
      p.rti->deleteRegion(d.region);
      p.life.regions.erase(std::find(p.life.regions.begin(), p.life.regions.end(), d.region)); }},
   {"subscribeObjectClassAttributesWithRegions", 6, inRegion, "", [](P& p, D& d) {
      p.rti->subscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes);
      p.life.subscribedSomewhere[d.c] = with(p.life.subscribedSomewhere[d.c], p.maskOf(d.inLanes[0].first)); }},
   {"unsubscribeObjectClassAttributesWithRegions", 3, inRegion, "", [](P& p, D& d) {
      p.rti->unsubscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes); }},
   {"subscribeInteractionClassWithRegions", 5, inRegion, "", [](P& p, D& d) {
      p.rti->subscribeInteractionClassWithRegions(p.interactions[withRegions], {d.region});
      p.life.subscribedInteractionSomewhere = true; }},
   {"associateRegionsForUpdates", 8, objectInRegion, "", [](P& p, D& d) {
      p.rti->associateRegionsForUpdates(d.object, d.inLanes); }},
   {"unassociateRegionsForUpdates", 5, objectInRegion, "", [](P& p, D& d) {
      p.rti->unassociateRegionsForUpdates(d.object, d.inLanes); }},
   {"enableAttributeRelevanceAdvisorySwitch", 2, any, "AttributeRelevanceAdvisorySwitchIsOn", [](P& p, D&) {
      p.rti->enableAttributeRelevanceAdvisorySwitch(); }},
   {"resignFederationExecution", 2, any, "OwnershipAcquisitionPending FederateOwnsAttributes", [](P& p, D& d) {
      p.rti->resignFederationExecution(static_cast<ResignAction>(d.dice.below(6)));
      p.life.isJoined = false;
      p.life.due.clear(); }},
   {"registerFederationSynchronizationPoint", 5, any, "", [](P& p, D&) {
      p.rti->registerFederationSynchronizationPoint(std::to_wstring(++p.ledger.points), bytes("")); }},
   {"requestFederationSave", 2, any, "", [](P& p, D&) { p.rti->requestFederationSave(p.ledger.saveLabel); }},
   {"requestFederationSave at a time", 1, any, "LogicalTimeAlreadyPassed FederateUnableToUseTime", [](P& p, D& d) {
      p.rti->requestFederationSave(p.ledger.saveLabel, HLAinteger64Time(p.life.now + d.dice.below(10))); }},
   {"requestFederationRestore", 1, any, "", [](P& p, D&) {
      p.rti->requestFederationRestore(p.ledger.saveLabel); }},
   {"setAutomaticResignDirective", 2, any, "", [](P& p, D& d) {
      p.rti->setAutomaticResignDirective(static_cast<ResignAction>(d.dice.below(6))); }},
};
// clang-format on

// What may be on its way while the player does something, and what another thread's player does at the same
// time.
std::string const always = " nothing SaveInProgress RestoreInProgress ";
std::string const raced = " AttributeNotOwned DeletePrivilegeNotHeld LogicalTimeAlreadyPassed ";

} // namespace

void Player::act(Dice dice)
{
   if (life.isJoined && !ledger.concurrent && dice.oneIn(8000)) {
      ledger.note(index, "vanishes");
      vanish();
      return;
   }
   Lock const lock(mutex);
   auto const attempt = [&](std::string const& what, std::string const& allowed, auto&& call) {
      std::string const seen = refusal(call);
      ledger.note(index, what + " -> " + seen);
      bool const isAllowed =
         (always + allowed + (ledger.concurrent ? raced : " ")).find(" " + seen + " ") != std::string::npos;
      // It regulates already when the callback that says so is still on its way to it.
      bool const isEarly = ledger.concurrent && life.enabling > 0 && seen == "InvalidLogicalTime";
      demand(isAllowed || isEarly || seen == "ObjectInstanceNotKnown",
             (what + " is refused: " + seen).c_str());
      return seen;
   };
   if (!life.isJoined) {
      std::wstring const name =
         L"player " + std::to_wstring(index) + L" in life " + std::to_wstring(++_lives);
      attempt("join", "", [&] { join(name); });
      return;
   }
   bool goesOn = false;
   if (_task != idle || dice.oneIn(50)) {
      attempt("answer", " SaveNotInitiated FederateHasNotBegunSave RestoreNotRequested ",
              [&] { goesOn = answer(); });
   }
   if (_task == idle) {
      Row const& row = dice.byChance(rows);
      Draw draw(*this, dice);
      if (row.isFor(draw) &&
          attempt(row.service, row.allowed, [&] { row.call(*this, draw); }) == "ObjectInstanceNotKnown") {
         life.doubts.insert(draw.object); // its removal is under way, then
      }
   }
}

void Player::advance(int way, std::int64_t to)
{
   static constexpr void (RTIambassador::*ways[])(LogicalTime const&) = {
      &RTIambassador::timeAdvanceRequest, &RTIambassador::nextMessageRequest,
      &RTIambassador::timeAdvanceRequestAvailable, &RTIambassador::nextMessageRequestAvailable,
      &RTIambassador::flushQueueRequest};
   Lock const lock(mutex);
   if (!life.advancing && life.isJoined && to >= life.now && !isBehind()) {
      auto const request = ways[way]; // in the call itself g++ 12's check of the index reads another value
      ((*rti).*request)(HLAinteger64Time(to));
      life.requested = to;
      life.advancing = true;
      life.flushing = way == 4;
      life.excluding = way < 2;
   }
}

} // namespace system_tests
