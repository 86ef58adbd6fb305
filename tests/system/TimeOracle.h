// What time management owes to each federate, reckoned the slow way: every promise is kept in a list, and the
// greatest available logical times are tried until they fit.
#ifndef RTI1516E_TESTS_SYSTEM_TIMEORACLE_H
#define RTI1516E_TESTS_SYSTEM_TIMEORACLE_H

#include "Text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <deque>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace system_tests {

class TimeOracle
{
public:
   enum Way // to advance
   {
      timeAdvance,
      timeAdvanceAvailable,
      nextMessage,
      nextMessageAvailable,
      flushQueue
   };
   enum Switch
   {
      off,
      pending, // asked for, or decided and not yet told
      on
   };

   static constexpr double never = std::numeric_limits<double>::infinity();

   // Times and intervals of either family are real numbers here; those of integers stay small.
   TimeOracle(std::size_t federates, bool integers) : _integers(integers), _all(federates) {}

   void join(std::size_t who) { _all[who].joined = true; }

   double time(std::size_t who) const { return _all[who].time; }
   bool isRegulating(std::size_t who) const { return _all[who].regulation == on; }
   std::size_t messages() const { return _messages.size(); }
   // Messages that came for a time that their receiver had been promised to be over: there must be none.
   std::vector<std::string> const& brokenPromises() const { return _broken; }

   double next(double time) const { return _integers ? time + 1 : std::nextafter(time, never); }

   double leastSendTime(std::size_t who) const
   {
      Federate const& of = _all[who];
      return least(of, of.advancing ? State{of.requested, of.lookahead, excludes(of, of.requested)}
                                    : State{of.time, of.lookahead, of.excluded});
   }

   // Nobody sends anything, to begin with; then everybody only what the others let him.
   double galt(std::size_t who) const
   {
      std::vector<double> sends(_all.size(), never);
      auto const ofOthers = [&](std::size_t one) {
         double least = never;
         for (std::size_t other = 0; other < _all.size(); ++other) {
            least = other == one ? least : std::min(least, sends[other]);
         }
         return least;
      };
      for (bool changed = true; changed;) {
         changed = false;
         for (std::size_t one = 0; one < _all.size(); ++one) {
            Federate const& of = _all[one];
            if (!of.joined || of.regulation == off) {
               continue;
            }
            State state{of.time, of.lookahead, of.excluded};
            if (of.advancing) {
               state.time = of.decided ? of.granted : of.requested;
               if (!of.decided && stopsAtMessage(of.way)) {
                  state.time = std::min({of.requested, first(of), of.ordered ? ofOthers(one) : never});
               }
               state.excluded = excludes(of, state.time);
            }
            changed |= least(of, state) != sends[one];
            sends[one] = least(of, state);
         }
      }
      return ofOthers(who);
   }

   double lits(std::size_t who) const { return std::min(galt(who), first(_all[who])); }

   // What was asked for, or what is left of the longer ones that were promised.
   double lookahead(std::size_t who) const
   {
      Federate const& of = _all[who];
      double until = plus(of.time, of.lookahead);
      double lookahead = of.lookahead;
      for (State const& each : of.promises) {
         if (plus(each.time, each.lookahead) > until) {
            until = plus(each.time, each.lookahead);
            lookahead = until - of.time;
         }
      }
      return lookahead;
   }

   std::string enableRegulation(std::size_t who, double lookahead)
   {
      Federate& of = _all[who];
      if (of.regulation != off || of.advancing) {
         return of.regulation == on        ? "TimeRegulationAlreadyEnabled"
                : of.regulation == pending ? "RequestForTimeRegulationPending"
                                           : "InTimeAdvancingState";
      }
      double promised = of.time;
      for (std::size_t other = 0; other < _all.size(); ++other) {
         Federate const& each = _all[other];
         if (other != who && each.joined && each.ordered) {
            promised = std::max({promised, each.received, leastReceiveTime(each)});
         }
      }
      of.regulation = pending;
      of.lookahead = lookahead;
      of.start = std::max(of.time, promised - lookahead);
      while (plus(of.start, lookahead) < promised) {
         of.start = next(of.start);
      }
      of.promises = {{of.start, lookahead, false}};
      if (of.ordered && of.start > of.time) {
         deliver(of, of.start, true);
      }
      of.events.push_back({Event::regulates});
      return "nothing";
   }

   std::string disableRegulation(std::size_t who)
   {
      Federate& of = _all[who];
      if (of.regulation != on) {
         return "TimeRegulationIsNotEnabled";
      }
      of.regulation = off;
      of.promises.clear();
      for (Message& each : _messages) {
         each.retractable &= each.sender != who;
      }
      settle();
      return "nothing";
   }

   std::string enableConstrained(std::size_t who)
   {
      Federate& of = _all[who];
      if (of.constraint != off || of.advancing) {
         return of.constraint == on        ? "TimeConstrainedAlreadyEnabled"
                : of.constraint == pending ? "RequestForTimeConstrainedPending"
                                           : "InTimeAdvancingState";
      }
      of.constraint = pending;
      settle();
      return "nothing";
   }

   std::string disableConstrained(std::size_t who)
   {
      Federate& of = _all[who];
      if (of.constraint != on) {
         return "TimeConstrainedIsNotEnabled";
      }
      of.constraint = off;
      of.ordered = false;
      ++of.constraints;
      deliver(of, never, true);
      settle();
      return "nothing";
   }

   std::string modifyLookahead(std::size_t who, double lookahead)
   {
      Federate& of = _all[who];
      if (of.regulation != on || of.advancing) {
         return of.regulation != on ? "TimeRegulationIsNotEnabled" : "InTimeAdvancingState";
      }
      of.lookahead = lookahead;
      of.promises.push_back({of.time, lookahead, of.excluded});
      settle();
      return "nothing";
   }

   std::string advance(std::size_t who, Way way, double to)
   {
      Federate& of = _all[who];
      if (of.constraint == pending || of.regulation == pending) {
         return of.constraint == pending ? "RequestForTimeConstrainedPending"
                                         : "RequestForTimeRegulationPending";
      }
      if (of.advancing || to < of.time) {
         return of.advancing ? "InTimeAdvancingState" : "LogicalTimeAlreadyPassed";
      }
      of.advancing = true;
      of.way = way;
      of.requested = to;
      settle();
      return "nothing";
   }

   std::string send(std::size_t who, double at)
   {
      if (at < leastSendTime(who)) {
         return "InvalidLogicalTime";
      }
      std::size_t const id = _messages.size();
      _messages.push_back({at, who, {}});
      for (std::size_t receiver = 0; receiver < _all.size(); ++receiver) {
         Federate& to = _all[receiver];
         if (receiver == who || !to.joined) {
            continue;
         }
         _messages.back().receivers.insert(receiver);
         if (!to.ordered) {
            to.events.push_back({Event::message, id, false, to.constraints});
            continue;
         }
         if (at < std::max(to.received, leastReceiveTime(to))) {
            _broken.push_back("message " + std::to_string(id) + " to " + std::to_string(receiver));
         }
         auto const later = [&](std::size_t other) { return _messages[other].time > at; };
         to.inbox.insert(std::find_if(to.inbox.begin(), to.inbox.end(), later), id);
      }
      settle();
      return "nothing";
   }

   std::string retract(std::size_t who, std::size_t id)
   {
      Message& message = _messages[id];
      if (_all[who].regulation != on || message.sender != who) {
         return _all[who].regulation != on ? "TimeRegulationIsNotEnabled"
                : message.retractable      ? "InvalidMessageRetractionHandle"
                                           : "MessageCanNoLongerBeRetracted";
      }
      if (!message.retractable || message.time < leastSendTime(who)) {
         return "MessageCanNoLongerBeRetracted";
      }
      message.retractable = false;
      for (Federate& to : _all) {
         auto const waits = std::find(to.inbox.begin(), to.inbox.end(), id);
         auto const comes = std::find_if(to.events.begin(), to.events.end(), [&](Event const& each) {
            return each.kind == Event::message && each.id == id;
         });
         if (waits != to.inbox.end()) {
            to.inbox.erase(waits);
         } else if (comes != to.events.end()) {
            to.events.erase(comes);
         } else if (message.receivers.count(static_cast<std::size_t>(&to - _all.data())) != 0) {
            to.events.push_back({Event::retraction, id});
         }
      }
      settle();
      return "nothing";
   }

   void resign(std::size_t who)
   {
      disableRegulation(who);
      _all[who] = Federate();
      for (Message& each : _messages) {
         each.receivers.erase(who);
      }
      settle();
   }

   // The callbacks on their way, as federates write them down; they have come with this.
   std::vector<std::string> evoke(std::size_t who)
   {
      Federate& to = _all[who];
      std::vector<std::string> told;
      for (; !to.events.empty(); to.events.pop_front()) {
         told.push_back(tell(to, to.events.front()));
      }
      return told;
   }

private:
   struct State // of a federate that sends
   {
      double time;
      double lookahead;
      bool excluded; // nothing is sent for just that time any more
   };
   struct Event // a callback on its way
   {
      enum Kind
      {
         regulates,
         isConstrained,
         granted,
         message,
         retraction
      } kind;
      std::size_t id = 0; // of the message
      bool ordered = false;
      int constraints = 0; // how often constraint had been given up when it was sent
   };
   struct Message
   {
      double time;
      std::size_t sender;
      std::set<std::size_t> receivers;
      bool retractable = true;
   };
   struct Federate
   {
      bool joined = false;
      double time = 0;
      bool excluded = false; // nothing more comes or goes for just that time
      Switch regulation = off;
      Switch constraint = off;
      bool ordered = false; // its messages are, whether it knows or not
      int constraints = 0;
      double start = 0; // the time it will have when it regulates
      double lookahead = 0;
      std::vector<State> promises;
      bool advancing = false;
      bool decided = false;
      Way way = timeAdvance;
      double requested = 0;
      double granted = 0;
      double received = -never;       // the time of the last message it was sent before a grant
      std::vector<std::size_t> inbox; // by time
      std::deque<Event> events;
   };

   static bool excludes(Way way) { return way == timeAdvance || way == nextMessage; }
   static bool stopsAtMessage(Way way) { return way >= nextMessage; }

   double plus(double time, double interval) const
   {
      return time + interval == time && interval > 0 ? next(time) : time + interval;
   }

   static bool excludes(Federate const& of, double time)
   {
      return excludes(of.way) || (of.excluded && time == of.time);
   }

   // The least time to send with in that state, by that and by all that was promised.
   double least(Federate const& of, State const& state) const
   {
      auto promises = of.promises;
      promises.push_back(state);
      double least = -never;
      for (State const& each : promises) {
         bool const excluded = each.excluded && each.lookahead == 0;
         least = std::max(least, excluded ? next(each.time) : plus(each.time, each.lookahead));
      }
      return least;
   }

   double first(Federate const& of) const
   {
      return of.inbox.empty() ? never : _messages[of.inbox.front()].time;
   }

   double reached(Federate const& of) const
   {
      return of.decided ? of.granted : of.regulation == pending ? std::max(of.time, of.start) : of.time;
   }

   // The least time of a message that may still come, as far as its grants go.
   double leastReceiveTime(Federate const& of) const
   {
      double const at = reached(of);
      bool const excluded = of.decided ? excludes(of, at) : of.excluded && at == of.time;
      return excluded ? next(at) : at;
   }

   void deliver(Federate& to, double until, bool including)
   {
      while (first(to) < until || (including && first(to) == until && !to.inbox.empty())) {
         to.received = to.ordered ? first(to) : to.received;
         to.events.push_back({Event::message, to.inbox.front(), to.ordered, to.constraints});
         to.inbox.erase(to.inbox.begin());
      }
   }

   void settle()
   {
      for (bool changed = true; changed;) {
         changed = false;
         for (std::size_t who = 0; who < _all.size(); ++who) {
            changed |= settle(who);
         }
      }
   }

   // What is decided for the federate now.
   bool settle(std::size_t who)
   {
      Federate& of = _all[who];
      double const available = of.ordered || of.constraint == pending ? galt(who) : never;
      if (of.constraint == pending && !of.ordered && available >= leastReceiveTime(of)) {
         of.ordered = true;
         of.received = reached(of);
         of.events.push_back({Event::isConstrained});
         return true;
      }
      if (!of.advancing || of.decided) {
         return false;
      }
      double at = stopsAtMessage(of.way) ? std::min(of.requested, first(of)) : of.requested;
      if (of.way == flushQueue) {
         at = std::max(of.time, std::min(at, available));
      }
      if (excludes(of.way) ? at < available : at <= available) {
         double const before = of.received; // what a grant brings is covered by its time
         deliver(of, of.way == flushQueue ? never : at, true);
         of.received = before;
         of.decided = true;
         of.granted = at;
         of.events.push_back({Event::granted});
         return true;
      }
      if (!stopsAtMessage(of.way)) {
         deliver(of, std::min(available, next(of.requested)), false);
      }
      return false;
   }

   std::string tell(Federate& to, Event const& event)
   {
      switch (event.kind) {
      case Event::message: {
         bool const ordered = event.ordered && (event.constraints == to.constraints || to.constraint == on);
         return "receive Accident tag=" + std::to_string(event.id) + " TSO reliable at " +
                show(_messages[event.id].time) + (ordered ? " TSO" : " RO");
      }
      case Event::retraction:
         return "requestRetraction m" + std::to_string(event.id);
      case Event::isConstrained:
         to.constraint = on;
         return "timeConstrainedEnabled " + show(to.time);
      case Event::regulates:
         to.regulation = on;
         to.excluded &= to.start <= to.time;
         to.time = std::max(to.time, to.start);
         break;
      case Event::granted:
         to.excluded = excludes(to, to.granted);
         to.time = to.granted;
         to.advancing = to.decided = false;
         break;
      }
      to.promises.push_back({to.time, to.lookahead, to.excluded});
      auto const who = static_cast<std::size_t>(&to - _all.data());
      for (Message& each : _messages) {
         each.retractable &= each.sender != who || each.time >= leastSendTime(who);
      }
      return (event.kind == Event::granted ? "timeAdvanceGrant " : "timeRegulationEnabled ") + show(to.time);
   }

   bool _integers;
   std::vector<Federate> _all;
   std::vector<Message> _messages;
   std::vector<std::string> _broken;
};

} // namespace system_tests

#endif
