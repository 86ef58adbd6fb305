#include "RandomPlayer.h"

#include <RTI/RTIambassadorFactory.h>
#include <RTI/time/HLAinteger64Time.h>

#include <chrono>
#include <thread>

namespace system_tests {

static std::int64_t number(LogicalTime const& time) { return dynamic_cast<HLAinteger64Time const&>(time); }

Player::Player(Ledger& theLedger, int theIndex, unsigned int seed, CallbackModel model)
   : ledger(theLedger),
     index(theIndex),
     _random(seed),
     _rti(RTIambassadorFactory().createRTIambassador().release())
{
   _rti->connect(*this, model);
}

void Player::join(std::string const& federation)
{
   std::wstring const name = L"player " + std::to_wstring(index) + L" in life " + std::to_wstring(++_lives);
   static_cast<Life&>(*this) = Life();
   firstMessage = ledger.messages;
   handle = rti().joinFederationExecution(name, L"player", wide(federation));
   isJoined = true;
   for (std::size_t i = 0; i < classes.size(); ++i) {
      classes[i] = _rti->getObjectClassHandle(playedClasses[i].name);
   }
   for (std::size_t i = 0; i < attributes.size(); ++i) {
      attributes[i] =
         _rti->getAttributeHandle(classes[playedAttributes[i].ofClass], playedAttributes[i].name);
   }
   for (std::size_t i = 0; i < interactions.size(); ++i) {
      interactions[i] = _rti->getInteractionClassHandle(playedInteractions[i].name);
   }
   lane = _rti->getDimensionHandle(L"Lane");
}

// The list of federations is asked for only to hear when all callbacks before it have come.
void Player::drain(CallbackModel model)
{
   _drained = false;
   _rti->listFederationExecutions();
   while (!_drained) {
      if (model == HLA_EVOKED) {
         _rti->evokeMultipleCallbacks(0.0, 1.0);
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

bool Player::isSubscribed(std::size_t interaction) const
{
   for (int c = static_cast<int>(interaction); c >= 0;
        c = playedInteractions[static_cast<std::size_t>(c)].parent) {
      if (subscribedInteractions[static_cast<std::size_t>(c)]) {
         return true;
      }
   }
   return false;
}

// What is under way to this player need not come any more, though it may.
void Player::expectNoMore(ObjectInstanceHandle const* ofObject)
{
   for (auto each = due.begin(); each != due.end();) {
      bool const concerned = ofObject == nullptr || each->second.object == *ofObject;
      each = concerned ? due.erase(each) : std::next(each);
   }
}

void Player::checkOwnership(std::map<ObjectInstanceHandle, Attributes>& ofOthers)
{
   if (!doubts.empty()) {
      fault("knows an object that the infrastructure does not");
   }
   for (auto const& [object, knownClass] : known) {
      unsigned int really = 0;
      for (unsigned int i = 0; i < attributes.size(); ++i) {
         if ((with(playedClasses[knownClass].attributes, privilegeToDelete) >> i & 1) != 0 &&
             _rti->isAttributeOwnedByFederate(object, attributes[i])) {
            really |= 1U << i;
         }
      }
      if (really != owned[object] && !ledger.concurrent) {
         fault("owns " + std::to_string(really) + " of " + show(object) + " but was told " +
               std::to_string(owned[object]));
      }
      if ((ofOthers[object] & really) != 0) {
         fault("owns what another owns too");
      }
      ofOthers[object] = with(ofOthers[object], really);
   }
}

void Player::checkOwned(char const* callback, ObjectInstanceHandle const& object,
                        AttributeHandleSet const& some)
{
   Lock const lock(mutex);
   if (!ledger.concurrent && without(maskOf(some), owned[object]) != 0) {
      fault(std::string(callback) + " what it does not own");
   }
}

void Player::received(VariableLengthData const& tag, Attributes parts, Stamp const& stamp)
{
   std::size_t const id = std::stoul(show(tag));
   std::string const what = "receives message " + std::to_string(id);
   checkTime(stamp);
   if (!ledger.concurrent && (id < firstMessage || !isJoined)) {
      fault(what + ", which is not from this life");
   }
   if (stamp.sent == TIMESTAMP) { // and so it can be retracted
      toTakeBack.insert(id);
      Ledger::Lock const lock(ledger.mutex);
      if (!ledger.concurrent && ledger.retracted.count(id) != 0) {
         fault(what + ", which is retracted");
      }
   }
   if ((got[id] & parts) != 0) {
      fault(what + " again");
   }
   got[id] = with(got[id], parts);
   auto const left = due.find(id);
   if (left != due.end() && (left->second.parts = without(left->second.parts, parts)) == 0) {
      due.erase(left);
   }
}

void Player::reflected(ObjectInstanceHandle const& object, AttributeHandleValueMap const& values,
                       VariableLengthData const& tag, Stamp const& stamp)
{
   Lock const lock(mutex);
   AttributeHandleSet seen;
   for (auto const& [attribute, value] : values) {
      seen.insert(attribute);
      if (show(value) != show(tag) + " of " + show(object)) {
         fault("sees another value than was sent, or of another object");
      }
   }
   Attributes const parts = maskOf(seen);
   auto const found = known.find(object);
   if (!ledger.concurrent && found == known.end()) {
      fault("sees an object that it does not know");
   } else if (!ledger.concurrent &&
              without(parts, with(subscribed[found->second], subscribedSomewhere[found->second])) != 0) {
      fault("sees attributes that it is not subscribed to");
   }
   received(tag, parts, stamp);
}

void Player::interaction(InteractionClassHandle const& theClass, VariableLengthData const& tag,
                         Stamp const& stamp)
{
   Lock const lock(mutex);
   auto const k = static_cast<std::size_t>(std::find(interactions.begin(), interactions.end(), theClass) -
                                           interactions.begin());
   bool const wanted = k < interactions.size() &&
                       (subscribedInteractions[k] || (k == withRegions && subscribedInteractionSomewhere));
   if (!wanted && !ledger.concurrent) {
      fault("receives an interaction that it is not subscribed to");
   }
   received(tag, 1, stamp);
}

// Neither late nor early nor out of order.
void Player::checkTime(Stamp const& stamp)
{
   if (stamp.received == RECEIVE) {
      if (constrained && !asynchronous && !advancing) {
         fault("receives a message without order while it does not advance");
      }
      return;
   }
   std::int64_t const at = number(*stamp.time);
   std::string const what = "receives a message for " + std::to_string(at);
   if (!constrained) {
      if (!ledger.concurrent) { // else it was on its way already
         fault(what + " in order while it is not constrained");
      }
      return;
   }
   if (at < earliest) {
      fault(what + " although only " + std::to_string(earliest) + " and later were to come");
   }
   if (at < latest) {
      fault(what + " after one for " + std::to_string(latest));
   }
   bool const inTime = advancing ? at <= requested || flushing : enabling > 0;
   if (!inTime) {
      fault(what + " early");
   }
   latest = at;
}

void Player::discoverObjectInstance(ObjectInstanceHandle object, ObjectClassHandle theClass,
                                    std::wstring const&)
{
   Lock const lock(mutex);
   auto const found = std::find(classes.begin(), classes.end(), theClass);
   if (found == classes.end() ||
       !known.emplace(object, static_cast<std::size_t>(found - classes.begin())).second) {
      fault("discovers an object again, or as a class that it does not know");
   }
}

void Player::removed(ObjectInstanceHandle const& object, Stamp const& stamp)
{
   Lock const lock(mutex);
   checkTime(stamp);
   if (known.erase(object) == 0) {
      fault("loses an object that it does not know");
   }
   owned.erase(object);
   doubts.erase(object);
   expectNoMore(&object);
}

void Player::requestDivestitureConfirmation(ObjectInstanceHandle object, AttributeHandleSet const& some)
{
   Lock const lock(mutex);
   checkOwned("is to confirm that it divests", object, some);
   toConfirm.emplace_back(object, maskOf(some));
}

void Player::attributeOwnershipAcquisitionNotification(ObjectInstanceHandle object,
                                                       AttributeHandleSet const& some,
                                                       VariableLengthData const&)
{
   Lock const lock(mutex);
   if (!ledger.concurrent && (known.count(object) == 0 || (owned[object] & maskOf(some)) != 0)) {
      fault("acquires what it does not know or owns already");
   }
   owned[object] = with(owned[object], maskOf(some));
}

void Player::enabled(LogicalTime const& time)
{
   if (number(time) < now) {
      fault("goes back in time");
   }
   now = requested = number(time);
   earliest = std::max(earliest, now);
   latest = 0;
   --enabling;
}

void Player::timeRegulationEnabled(LogicalTime const& time)
{
   Lock const lock(mutex);
   regulating = true;
   enabled(time);
}

void Player::timeConstrainedEnabled(LogicalTime const& time)
{
   Lock const lock(mutex);
   constrained = true;
   enabled(time);
}

void Player::timeAdvanceGrant(LogicalTime const& time)
{
   Lock const lock(mutex);
   std::int64_t const at = number(time);
   if (!advancing || at > requested || at < now) {
      fault("is granted " + std::to_string(at) + ", having asked for " + std::to_string(requested) + " at " +
            std::to_string(now));
   }
   if (latest > at && !flushing) {
      fault("is granted " + std::to_string(at) + " after a message for " + std::to_string(latest));
   }
   earliest = inclusive ? at + 1 : at;
   latest = 0;
   now = requested = at;
   advancing = flushing = false;
}

void Player::requestRetraction(MessageRetractionHandle retracted)
{
   Lock const lock(mutex);
   Ledger::Lock const ledgerLock(ledger.mutex);
   std::size_t const id = ledger.retractable.at(retracted);
   if (toTakeBack.erase(id) == 0) {
      fault("is asked to take back a message that it has not received, or took back already");
   }
}

} // namespace system_tests
