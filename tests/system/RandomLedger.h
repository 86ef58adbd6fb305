// All that is known of the federation of a random run: what its federates have and are owed, which messages
// can be taken back, and what was found to be wrong.
#ifndef RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H
#define RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H

#include "Text.h"

#include <RTI/RTI1516.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
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
   Attributes attributes; // without the privilege
};
constexpr PlayedClass playedClasses[] = {
   {L"Vehicle", 0x07}, {L"Vehicle.Car", 0x0f}, {L"Vehicle.Car.Taxi", 0x1f}, {L"Vehicle.Truck", 0x27}};
constexpr wchar_t const* playedInteractions[] = {L"Message", L"Message.Urgent", L"Accident"};
constexpr std::size_t withRegions = 2; // the interaction class that has a dimension

constexpr Attributes without(unsigned int some, unsigned int others)
{
   return static_cast<Attributes>(some & ~others);
}
constexpr Attributes with(unsigned int some, unsigned int others)
{
   return static_cast<Attributes>(some | others);
}

// What a federate has had, from joining to resigning. It can be saved and restored.
struct Life
{
   bool isSubscribed(std::size_t interaction) const // be it to the class above
   {
      return subscribedInteractions[interaction] || (interaction == 1 && subscribedInteractions[0]);
   }

   bool isJoined = false;
   std::wstring name;
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
   std::set<ObjectInstanceHandle> doubts; // heard to be known no more, and so to be removed
   std::set<std::wstring> toAchieve;      // synchronization points
   std::set<std::wstring> achieved;

   // Messages by their numbers: the parts that are still to come, of which object, and those that have.
   std::map<std::size_t, std::pair<ObjectInstanceHandle, Attributes>> due;
   std::map<std::size_t, Attributes> got;
   std::set<std::size_t> toTakeBack; // when they are retracted

   int enabling = 0; // how many answers to requests to be regulating or constrained are due
   bool regulating = false;
   bool constrained = false;
   bool asynchronous = false;
   bool advancing = false;
   bool flushing = false;
   bool excluding = false; // the request is for all messages of its time
   bool excluded = false;  // nothing comes or goes for the present time any more
   std::int64_t lookahead = 0;
   std::int64_t promised = 0; // to send nothing before, by a longer lookahead
   std::int64_t now = 0;
   std::int64_t requested = 0;
   std::int64_t earliest = 0; // that a message received in order may still have
   std::int64_t latest = 0;   // that one had since the last grant
};

struct Ledger
{
   using Lock = std::lock_guard<std::recursive_mutex>;
   struct Messages
   {
      std::map<MessageRetractionHandle, std::size_t> retractable;
      std::set<std::size_t> retracted;
   };

   Ledger(std::size_t federates, bool isConcurrent) : concurrent(isConcurrent), lives(federates) {}

   // Federates that act on threads of their own do not know for certain what the others were told already.
   bool const concurrent;
   std::vector<Life> lives;
   std::vector<std::string> log; // kept when the federates act in turns
   std::wstring saveLabel;
   std::atomic<std::size_t> sent{0}; // a message's number goes with it as its tag
   std::atomic<int> points{0};

   std::recursive_mutex mutex; // guards what follows
   Messages messages;
   Messages beingSaved, saved;
   bool saving = false; // until the first is told that it is saved or restored
   bool restoring = false;
   std::vector<std::string> faults;

   void fault(std::string const& what)
   {
      Lock const lock(mutex);
      faults.push_back(what);
   }
   void note(std::size_t federate, std::string const& what)
   {
      if (!concurrent) {
         log.push_back(std::to_string(federate) + ": " + what);
      }
   }
   bool isFaultless()
   {
      Lock const lock(mutex);
      return faults.empty();
   }
};

} // namespace system_tests

#endif
