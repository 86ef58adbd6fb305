// What the federates of a random run do: a row for each service, with what it changes for the player.
#include "RandomPlayer.h"
#include "Refusal.h"

#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

namespace system_tests {

using namespace rti1516e;

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
         ownable = without(player.published[knownClass], owned);
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
   Attributes ownable = 0;
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

std::string const pending =
   "InTimeAdvancingState RequestForTimeRegulationPending RequestForTimeConstrainedPending ";

struct Row
{
   char const* service;
   int chances;
   std::string allowed; // refusals that come of what others did, or of what the player does not look at
   void (*call)(Player& p, Draw const& d);
};

// A service that makes no sense for what was drawn is not called.
Row const rows[] = {
   {"publishObjectClassAttributes", 15, "",
    [](Player& p, Draw const& d) {
       p.rti().publishObjectClassAttributes(p.classes[d.c], p.setOf(d.some));
       p.published[d.c] = with(p.published[d.c], d.some);
    }},
   {"unpublishObjectClass", 1, "OwnershipAcquisitionPending",
    [](Player& p, Draw const& d) {
       p.rti().unpublishObjectClass(p.classes[d.c]);
       p.published[d.c] = 0;
       for (auto const& [object, knownClass] : p.known) {
          p.owned[object] = knownClass == d.c ? Attributes(0) : p.owned[object];
       }
    }},
   {"subscribeObjectClassAttributes", 15, "",
    [](Player& p, Draw const& d) {
       p.rti().subscribeObjectClassAttributes(p.classes[d.c], p.setOf(d.some), d.flag);
       p.subscribed[d.c] = with(p.subscribed[d.c], d.some);
    }},
   {"unsubscribeObjectClass", 3, "",
    [](Player& p, Draw const& d) {
       p.rti().unsubscribeObjectClass(p.classes[d.c]);
       p.subscribed[d.c] = p.subscribedSomewhere[d.c] = 0;
       p.expectNoMore(nullptr);
    }},
   {"publishInteractionClass", 5, "",
    [](Player& p, Draw const& d) {
       p.rti().publishInteractionClass(p.interactions[d.k]);
       p.publishedInteractions[d.k] = true;
    }},
   {"unpublishInteractionClass", 1, "",
    [](Player& p, Draw const& d) {
       p.rti().unpublishInteractionClass(p.interactions[d.k]);
       p.publishedInteractions[d.k] = false;
    }},
   {"subscribeInteractionClass", 10, "",
    [](Player& p, Draw const& d) {
       p.rti().subscribeInteractionClass(p.interactions[d.k], d.flag);
       p.subscribedInteractions[d.k] = true;
    }},
   {"unsubscribeInteractionClass", 2, "",
    [](Player& p, Draw const& d) {
       p.rti().unsubscribeInteractionClass(p.interactions[d.k]);
       p.subscribedInteractions[d.k] = false;
       p.subscribedInteractionSomewhere &= d.k != withRegions;
       p.expectNoMore(nullptr);
    }},
   {"registerObjectInstance", 25, "",
    [](Player& p, Draw const& d) {
       if (p.published[d.c] != 0 && p.known.size() < 30) {
          AttributeHandleSet const laned = p.setOf(p.published[d.c] & withLanes);
          auto const object =
             d.region.isValid() && d.flag
                ? p.rti().registerObjectInstanceWithRegions(p.classes[d.c], {{laned, {d.region}}})
                : p.rti().registerObjectInstance(p.classes[d.c]);
          p.known[object] = d.c;
          p.owned[object] = with(p.published[d.c], privilegeToDelete);
       }
    }},
   {"updateAttributeValues", 300, "", update},
   {"sendInteraction", 150, "", sendInteraction},
   {"retract", 15, "MessageCanNoLongerBeRetracted TimeRegulationIsNotEnabled", retract},
   {"deleteObjectInstance", 6, "",
    [](Player& p, Draw const& d) {
       if ((d.owned & privilegeToDelete) != 0) {
          auto const at = timeToSendAt(p);
          at ? static_cast<void>(p.rti().deleteObjectInstance(d.object, bytes(""), *at))
             : p.rti().deleteObjectInstance(d.object, bytes(""));
          forget(p, d.object);
       }
    }},
   {"localDeleteObjectInstance", 4, "OwnershipAcquisitionPending FederateOwnsAttributes",
    [](Player& p, Draw const& d) {
       // Alone, for it might be discovered again before this player knows that it has forgotten it.
       if (d.object.isValid() && !p.ledger.concurrent) {
          p.rti().localDeleteObjectInstance(d.object);
          forget(p, d.object);
          if (d.owned != 0) {
             p.fault("forgets an object that it owns a part of");
          }
       }
    }},
   {"requestAttributeValueUpdate", 8, "",
    [](Player& p, Draw const& d) {
       p.rti().requestAttributeValueUpdate(p.classes[d.c], p.setOf(d.some), bytes(""));
    }},
   {"requestAttributeTransportationTypeChange", 8, "AttributeAlreadyBeingChanged",
    [](Player& p, Draw const& d) {
       if (d.owned != 0) {
          p.rti().requestAttributeTransportationTypeChange(d.object, p.setOf(d.owned),
                                                           d.flag ? RELIABLE : BEST_EFFORT);
       }
    }},
   {"changeAttributeOrderType", 8, "",
    [](Player& p, Draw const& d) {
       if (d.owned != 0) {
          p.rti().changeAttributeOrderType(d.object, p.setOf(d.owned), d.flag ? RECEIVE : TIMESTAMP);
       }
    }},
   {"unconditionalAttributeOwnershipDivestiture", 10, "",
    [](Player& p, Draw const& d) {
       if (Attributes const given = p.some(d.owned)) {
          p.rti().unconditionalAttributeOwnershipDivestiture(d.object, p.setOf(given));
          lose(p, d.object, given);
       }
    }},
   {"negotiatedAttributeOwnershipDivestiture", 20, "AttributeAlreadyBeingDivested",
    [](Player& p, Draw const& d) {
       if (Attributes const given = p.some(d.owned)) {
          p.rti().negotiatedAttributeOwnershipDivestiture(d.object, p.setOf(given), bytes(""));
       }
    }},
   {"confirmDivestiture", 60, "NoAcquisitionPending AttributeDivestitureWasNotRequested",
    [](Player& p, Draw const&) {
       if (!p.toConfirm.empty()) {
          auto const asked = p.toConfirm.back();
          p.toConfirm.pop_back();
          p.subject = asked.first;
          Attributes const given = p.known.count(asked.first) == 0
                                      ? Attributes(0)
                                      : static_cast<Attributes>(asked.second & p.owned[asked.first]);
          if (given != 0) {
             p.rti().confirmDivestiture(asked.first, p.setOf(given), bytes(""));
             lose(p, asked.first, given);
          }
       }
    }},
   {"cancelNegotiatedAttributeOwnershipDivestiture", 8, "AttributeDivestitureWasNotRequested",
    [](Player& p, Draw const& d) {
       if (d.owned != 0) {
          p.rti().cancelNegotiatedAttributeOwnershipDivestiture(d.object, p.setOf(p.some(d.owned)));
       }
    }},
   {"attributeOwnershipDivestitureIfWanted", 10, "",
    [](Player& p, Draw const& d) {
       AttributeHandleSet divested;
       if (Attributes const given = p.some(d.owned)) {
          p.rti().attributeOwnershipDivestitureIfWanted(d.object, p.setOf(given), divested);
          lose(p, d.object, p.maskOf(divested));
       }
    }},
   {"attributeOwnershipAcquisition", 40, "FederateOwnsAttributes",
    [](Player& p, Draw const& d) {
       if (Attributes const wanted = p.some(d.ownable)) {
          p.rti().attributeOwnershipAcquisition(d.object, p.setOf(wanted), bytes(""));
       }
    }},
   {"attributeOwnershipAcquisitionIfAvailable", 20, "AttributeAlreadyBeingAcquired FederateOwnsAttributes",
    [](Player& p, Draw const& d) {
       if (Attributes const wanted = p.some(d.ownable)) {
          p.rti().attributeOwnershipAcquisitionIfAvailable(d.object, p.setOf(wanted));
       }
    }},
   {"cancelAttributeOwnershipAcquisition", 15, "AttributeAcquisitionWasNotRequested AttributeAlreadyOwned",
    [](Player& p, Draw const& d) {
       if (Attributes const wanted = p.some(d.ownable)) {
          p.rti().cancelAttributeOwnershipAcquisition(d.object, p.setOf(wanted));
       }
    }},
   {"enableTimeRegulation", 10, pending + "TimeRegulationAlreadyEnabled",
    [](Player& p, Draw const&) {
       p.rti().enableTimeRegulation(HLAinteger64Interval(p.below(5)));
       ++p.enabling;
    }},
   {"enableTimeConstrained", 10, pending + "TimeConstrainedAlreadyEnabled",
    [](Player& p, Draw const&) {
       p.rti().enableTimeConstrained();
       ++p.enabling;
    }},
   {"disableTimeRegulation", 1, "TimeRegulationIsNotEnabled",
    [](Player& p, Draw const&) {
       if (!p.isBehind()) {
          p.rti().disableTimeRegulation();
          p.regulating = false;
       }
    }},
   {"disableTimeConstrained", 1, "TimeConstrainedIsNotEnabled",
    [](Player& p, Draw const&) {
       if (!p.isBehind()) {
          p.rti().disableTimeConstrained();
          p.constrained = false;
       }
    }},
   {"modifyLookahead", 5, "InTimeAdvancingState TimeRegulationIsNotEnabled",
    [](Player& p, Draw const&) { p.rti().modifyLookahead(HLAinteger64Interval(p.below(5))); }},
   {"enableAsynchronousDelivery", 2, "AsynchronousDeliveryAlreadyEnabled",
    [](Player& p, Draw const&) {
       if (p.index % 2 == 0) { // what the others receive is checked more closely
          p.asynchronous = true;
          p.rti().enableAsynchronousDelivery();
       }
    }},
   {"an advance", 150, pending, [](Player& p, Draw const&) { advance(p, p.below(5), p.now + p.below(8)); }},
   {"createRegion", 6, "",
    [](Player& p, Draw const&) {
       if (p.regions.size() < 3) {
          p.regions.push_back(p.rti().createRegion({p.lane}));
       }
    }},
   {"commitRegionModifications", 12, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid()) {
          auto const lower = static_cast<unsigned long>(p.below(7));
          p.rti().setRangeBounds(d.region, p.lane, RangeBounds(lower, lower + 1));
          p.rti().commitRegionModifications({d.region});
       }
    }},
   {"deleteRegion", 3, "RegionInUseForUpdateOrSubscription",
    [](Player& p, Draw const& d) {
       if (d.region.isValid()) {
          p.rti().deleteRegion(d.region);
          p.regions.erase(std::find(p.regions.begin(), p.regions.end(), d.region));
       }
    }},
   {"subscribeObjectClassAttributesWithRegions", 6, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid()) {
          p.rti().subscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes);
          p.subscribedSomewhere[d.c] = with(p.subscribedSomewhere[d.c], p.maskOf(d.inLanes[0].first));
       }
    }},
   {"unsubscribeObjectClassAttributesWithRegions", 3, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid()) {
          p.rti().unsubscribeObjectClassAttributesWithRegions(p.classes[d.c], d.inLanes);
       }
    }},
   {"subscribeInteractionClassWithRegions", 5, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid()) {
          p.rti().subscribeInteractionClassWithRegions(p.interactions[withRegions], {d.region});
          p.subscribedInteractionSomewhere = true;
       }
    }},
   {"associateRegionsForUpdates", 8, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid() && d.object.isValid()) {
          p.rti().associateRegionsForUpdates(d.object, d.inLanes);
       }
    }},
   {"unassociateRegionsForUpdates", 5, "",
    [](Player& p, Draw const& d) {
       if (d.region.isValid() && d.object.isValid()) {
          p.rti().unassociateRegionsForUpdates(d.object, d.inLanes);
       }
    }},
   {"enableAttributeRelevanceAdvisorySwitch", 2, "AttributeRelevanceAdvisorySwitchIsOn",
    [](Player& p, Draw const&) { p.rti().enableAttributeRelevanceAdvisorySwitch(); }},
   {"resignFederationExecution", 2, "OwnershipAcquisitionPending FederateOwnsAttributes",
    [](Player& p, Draw const&) {
       p.rti().resignFederationExecution(static_cast<ResignAction>(p.below(6)));
       p.isJoined = false;
       p.due.clear();
    }},
};

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
      (player.rti().*ways[way])(HLAinteger64Time(to));
      player.requested = to;
      player.advancing = true;
      player.flushing = way == 4;
      player.inclusive = way < 2;
   }
}

} // namespace system_tests
