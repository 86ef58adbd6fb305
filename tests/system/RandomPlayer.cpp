#include "RandomPlayer.h"

#include "Refusal.h"

#include <RTI/RTIambassadorFactory.h>
#include <RTI/time/HLAinteger64Time.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>
#include <utility>

namespace system_tests {

static std::int64_t number(LogicalTime const& time) { return dynamic_cast<HLAinteger64Time const&>(time); }

Player::Player(Ledger& theLedger, std::size_t theIndex, CallbackModel model, std::string const& federation)
   : ledger(theLedger),
     index(theIndex),
     life(theLedger.lives[theIndex]),
     _model(model),
     _federation(wide(federation))
{
   connect();
}

void Player::connect()
{
   rti.reset(RTIambassadorFactory().createRTIambassador().release());
   rti->connect(*this, _model);
}

// The type is this player's own, so that a restore makes it what it was.
void Player::join(std::wstring const& name)
{
   Lock const lock(mutex);
   std::size_t const first = ledger.sent;
   rti->joinFederationExecution(name, L"player " + std::to_wstring(index), _federation);
   life = Life();
   life.name = name;
   life.isJoined = true;
   life.firstMessage = first;
   _task = idle;
   for (std::size_t i = 0; i < classes.size(); ++i) {
      classes[i] = rti->getObjectClassHandle(playedClasses[i].name);
   }
   for (std::size_t i = 0; i < attributes.size(); ++i) {
      attributes[i] = rti->getAttributeHandle(classes[playedAttributes[i].ofClass], playedAttributes[i].name);
   }
   for (std::size_t i = 0; i < interactions.size(); ++i) {
      interactions[i] = rti->getInteractionClassHandle(playedInteractions[i]);
   }
   lane = rti->getDimensionHandle(L"Lane");
}

// Its ambassador is destroyed. It waits until the federation has noticed and its name is free, so that the
// run does not depend on when that is; which is why federates on threads of their own, whom others wait for,
// do not vanish.
void Player::vanish()
{
   std::wstring const name = life.name;
   rti.reset();
   connect();
   while (refusal([&] { join(name); }) != "nothing") {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
   }
}

// The list of federations is asked for only to hear when all callbacks before it have come.
void Player::drain()
{
   _drained = false;
   rti->listFederationExecutions();
   while (!_drained) {
      if (_model == HLA_EVOKED) {
         rti->evokeMultipleCallbacks(0.0, 1.0);
      } else {
         std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
   }
}

AttributeHandleSet Player::setOf(Attributes some) const
{
   AttributeHandleSet set;
   for (std::size_t i = 0; i < attributes.size(); ++i) {
      if (some >> i & 1) {
         set.insert(attributes[i]);
      }
   }
   return set;
}

Attributes Player::maskOf(AttributeHandleSet const& set) const
{
   unsigned int mask = 0;
   for (std::size_t i = 0; i < attributes.size(); ++i) {
      mask |= static_cast<unsigned int>(set.count(attributes[i])) << i;
   }
   return static_cast<Attributes>(mask);
}

// What is under way to this player need not come any more, though it may.
void Player::expectNoMore(ObjectInstanceHandle const* ofObject)
{
   for (auto each = life.due.begin(); each != life.due.end();) {
      bool const concerned = ofObject == nullptr || each->second.first == *ofObject;
      each = concerned ? life.due.erase(each) : std::next(each);
   }
}

void Player::demand(bool holds, char const* what, std::int64_t detail)
{
   if (!holds) {
      ledger.fault(std::to_string(index) + " " + what + " (" + std::to_string(detail) + ")");
   }
}

void Player::checkOwnership(std::map<ObjectInstanceHandle, Attributes>& ofOthers)
{
   demand(life.doubts.empty(), "knows an object that the infrastructure does not");
   for (auto const& [object, knownClass] : life.known) {
      unsigned int really = 0;
      for (unsigned int i = 0; i < attributes.size(); ++i) {
         if ((with(playedClasses[knownClass].attributes, privilegeToDelete) >> i & 1) != 0 &&
             rti->isAttributeOwnedByFederate(object, attributes[i])) {
            really |= 1U << i;
         }
      }
      demand(really == life.owned[object] || ledger.concurrent, "owns other attributes than it was told",
             really);
      demand((ofOthers[object] & really) == 0, "owns what another owns too", really);
      ofOthers[object] = with(ofOthers[object], really);
   }
}

void Player::checkOwned(char const* callback, ObjectInstanceHandle const& object,
                        AttributeHandleSet const& some)
{
   Lock const lock(mutex);
   demandSurely(without(maskOf(some), life.owned[object]) == 0, callback);
}

void Player::received(VariableLengthData const& tag, Attributes parts, Stamp const& stamp)
{
   std::size_t const id = std::stoul(show(tag));
   auto const number = static_cast<std::int64_t>(id);
   checkTime(stamp);
   demandSurely(id >= life.firstMessage && life.isJoined, "receives a message that is not from this life",
                number);
   if (stamp.sent == TIMESTAMP) { // and so it can be retracted
      life.toTakeBack.insert(id);
      Ledger::Lock const ledgerLock(ledger.mutex);
      demandSurely(ledger.messages.retracted.count(id) == 0, "receives a message that is retracted", number);
   }
   demand((life.got[id] & parts) == 0, "receives a message again", number);
   life.got[id] = with(life.got[id], parts);
   auto const left = life.due.find(id);
   if (left != life.due.end() && (left->second.second = without(left->second.second, parts)) == 0) {
      life.due.erase(left);
   }
}

void Player::reflected(ObjectInstanceHandle const& object, AttributeHandleValueMap const& values,
                       VariableLengthData const& tag, Stamp const& stamp)
{
   Lock const lock(mutex);
   AttributeHandleSet seen;
   for (auto const& [attribute, value] : values) {
      seen.insert(attribute);
      demand(show(value) == show(tag) + " of " + show(object), "sees another value than was sent");
   }
   Attributes const parts = maskOf(seen);
   auto const found = life.known.find(object);
   demandSurely(found != life.known.end(), "sees an object that it does not know");
   demandSurely(
      found == life.known.end() ||
         without(parts, with(life.subscribed[found->second], life.subscribedSomewhere[found->second])) == 0,
      "sees attributes that it is not subscribed to", parts);
   received(tag, parts, stamp);
}

void Player::interaction(InteractionClassHandle const& theClass, VariableLengthData const& tag,
                         Stamp const& stamp)
{
   Lock const lock(mutex);
   auto const found = std::find(interactions.begin(), interactions.end(), theClass);
   auto const k = static_cast<std::size_t>(found - interactions.begin());
   demandSurely(found != interactions.end() && (life.subscribedInteractions[k] ||
                                                (k == withRegions && life.subscribedInteractionSomewhere)),
                "receives an interaction that it is not subscribed to");
   received(tag, 1, stamp);
}

// Neither late nor early nor out of order.
void Player::checkTime(Stamp const& stamp)
{
   if (stamp.received == RECEIVE) {
      demand(!life.constrained || life.asynchronous || life.advancing,
             "receives without order when it does not advance");
      return;
   }
   std::int64_t const at = number(*stamp.time);
   if (!life.constrained) {
      demandSurely(false, "receives in order while it is not constrained",
                   at); // else it was on its way already
      return;
   }
   demand(at >= life.earliest && at >= life.latest, "receives a message late", at);
   demand(life.advancing ? at <= life.requested || life.flushing : life.enabling > 0,
          "receives a message early", at);
   life.latest = at;
}

void Player::discoverObjectInstance(ObjectInstanceHandle object, ObjectClassHandle theClass,
                                    std::wstring const&)
{
   Lock const lock(mutex);
   auto const found = std::find(classes.begin(), classes.end(), theClass);
   demand(found != classes.end(), "discovers an object of a class that it does not know");
   demand(life.known.emplace(object, static_cast<std::size_t>(found - classes.begin())).second,
          "discovers an object again");
}

void Player::removed(ObjectInstanceHandle const& object, Stamp const& stamp)
{
   Lock const lock(mutex);
   checkTime(stamp);
   demand(life.known.erase(object) != 0, "loses an object that it does not know");
   life.owned.erase(object);
   life.doubts.erase(object);
   expectNoMore(&object);
}

void Player::requestDivestitureConfirmation(ObjectInstanceHandle object, AttributeHandleSet const& some)
{
   Lock const lock(mutex);
   checkOwned("is to confirm that it divests what it does not own", object, some);
   life.toConfirm.emplace_back(object, maskOf(some));
}

void Player::attributeOwnershipAcquisitionNotification(ObjectInstanceHandle object,
                                                       AttributeHandleSet const& some,
                                                       VariableLengthData const&)
{
   Lock const lock(mutex);
   demandSurely(life.known.count(object) != 0, "acquires what it does not know");
   demandSurely((life.owned[object] & maskOf(some)) == 0, "acquires what it owns already");
   life.owned[object] = with(life.owned[object], maskOf(some));
}

void Player::requestRetraction(MessageRetractionHandle retracted)
{
   Lock const lock(mutex);
   Ledger::Lock const ledgerLock(ledger.mutex);
   demand(life.toTakeBack.erase(ledger.messages.retractable.at(retracted)) != 0,
          "is asked to take back a message that it has not received, or took back already");
}

void Player::enabled(LogicalTime const& time)
{
   demand(number(time) >= life.now, "goes back in time", number(time));
   life.excluded &= number(time) == life.now;
   life.now = life.requested = number(time);
   life.earliest = std::max(life.earliest, life.now);
   life.latest = 0;
   --life.enabling;
}

void Player::timeRegulationEnabled(LogicalTime const& time)
{
   Lock const lock(mutex);
   enabled(time);
   life.regulating = true;
   life.promised = 0;
}

void Player::timeConstrainedEnabled(LogicalTime const& time)
{
   Lock const lock(mutex);
   enabled(time);
   life.constrained = true;
}

void Player::timeAdvanceGrant(LogicalTime const& time)
{
   Lock const lock(mutex);
   std::int64_t const at = number(time);
   demand(life.advancing && at <= life.requested && at >= life.now,
          "is granted another time than it asked for", at);
   demand(life.latest <= at || life.flushing, "is granted a time after a message for a later one", at);
   life.excluded = life.excluding || (life.excluded && at == life.now);
   life.earliest = life.excluded ? at + 1 : at;
   life.latest = 0;
   life.now = life.requested = at;
   life.advancing = life.flushing = false;
}

// The least time that it may send with.
std::int64_t Player::leastSendTime() const
{
   bool const excluded =
      life.advancing ? life.excluding || (life.excluded && life.requested == life.now) : life.excluded;
   return std::max(life.promised, furthest() + (excluded && life.lookahead == 0 ? 1 : life.lookahead));
}

void Player::announceSynchronizationPoint(std::wstring const& label, VariableLengthData const&)
{
   Lock const lock(mutex);
   demand(life.toAchieve.insert(label).second, "is told of a synchronization point again");
}

void Player::federationSynchronized(std::wstring const& label, FederateHandleSet const&)
{
   Lock const lock(mutex);
   demand(life.achieved.erase(label) == 1, "is synchronized at a point that it has not achieved");
}

void Player::become(Task task)
{
   Lock const lock(mutex);
   _task = task;
}

// What the federation has is kept and put back with the first who hears of it: before the others do, they
// wait.
void Player::federationSaved()
{
   Lock const lock(mutex);
   Ledger::Lock const ledgerLock(ledger.mutex);
   _task = idle;
   _saved = _beingSaved;
   if (std::exchange(ledger.saving, false)) {
      ledger.saved = ledger.beingSaved;
   }
}

void Player::federationRestored()
{
   Lock const lock(mutex);
   Ledger::Lock const ledgerLock(ledger.mutex);
   demand(_task == toWait && _saved.isJoined, "is restored without having saved");
   _task = idle;
   life = _saved;
   if (std::exchange(ledger.restoring, false)) {
      ledger.messages = ledger.saved;
   }
}

// Whoever has answered to a save or restore does nothing until he is told the outcome.
bool Player::answer()
{
   Lock const lock(mutex);
   if (_task == toSave) {
      Ledger::Lock const ledgerLock(ledger.mutex);
      _beingSaved = life;
      ledger.beingSaved = ledger.messages;
      ledger.saving = true;
      _task = toWait;
      rti->federateSaveBegun();
      rti->federateSaveComplete();
   } else if (_task == toRestore) {
      Ledger::Lock const ledgerLock(ledger.mutex);
      ledger.restoring = true;
      _task = toWait;
      rti->federateRestoreComplete();
   }
   while (_task == idle && !life.toAchieve.empty()) {
      rti->synchronizationPointAchieved(*life.toAchieve.begin());
      life.achieved.insert(life.toAchieve.extract(life.toAchieve.begin()));
   }
   return _task == idle;
}

} // namespace system_tests
