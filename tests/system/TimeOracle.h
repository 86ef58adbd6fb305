// What time management owes to federates, as far as they can tell themselves: no message is lost, comes
// twice, too late or out of order, and no grant comes earlier than the others' promises allow it, or later.
// The greatest available logical times are tried until they fit.
#ifndef RTI1516E_TESTS_SYSTEM_TIMEORACLE_H
#define RTI1516E_TESTS_SYSTEM_TIMEORACLE_H

#include "Text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace system_tests {

class TimeOracle
{
public:
   static constexpr double never = std::numeric_limits<double>::infinity();

   // Times and intervals of either family are real numbers here; those of integers stay small.
   TimeOracle(std::size_t federates, bool integers) : _integers(integers), _all(federates) {}

   // What was first not as it has to be, if anything.
   std::string const& fault() const { return _fault; }

   double time(std::size_t who) const { return _all[who].time; }
   bool isRegulating(std::size_t who) const { return _all[who].regulation == on; }
   double leastSendTime(std::size_t who) const
   {
      Federate const& of = _all[who];
      return leastSendTime(of, of.advance.empty() ? of.time : of.requested);
   }
   // What was asked for, or what is left of a longer one.
   double lookahead(std::size_t who) const
   {
      Federate const& of = _all[who];
      return plus(of.time, of.lookahead) < of.promised ? of.promised - of.time : of.lookahead;
   }
   double lits(std::size_t who) const { return std::min(galt(who), firstDue(_all[who])); }

   // Nobody sends anything, to begin with; then everybody only what the others let him.
   double galt(std::size_t who) const
   {
      std::vector<double> sends(_all.size(), never);
      auto const ofOthers = [&](std::size_t one) {
         auto others = sends;
         others[one] = never;
         return *std::min_element(others.begin(), others.end());
      };
      for (bool changed = true; changed;) {
         changed = false;
         for (std::size_t one = 0; one < _all.size(); ++one) {
            Federate const& of = _all[one];
            double const available = stopsAtMessage(of) && of.constraint == on ? ofOthers(one) : never;
            double const at = of.advance.empty() ? of.time : std::min(target(of), available);
            double const least = of.regulation == off ? never : leastSendTime(of, at);
            changed |= least != std::exchange(sends[one], least);
         }
      }
      return ofOthers(who);
   }

   void join(std::size_t who)
   {
      _all[who].joined = true;
      _allHaveHeard = false;
   }
   void resign(std::size_t who)
   {
      regulateNoMore(who);
      _all[who] = Federate();
      _allHaveHeard = false;
   }

   // The federate has called a service, successfully or not.
   void called(std::size_t who, std::vector<std::string> const& words, bool done)
   {
      Federate& of = _all[who];
      bool const allHaveHeard = std::exchange(_allHaveHeard, false);
      double const value = number(words.back());
      if (words[0] == "retract") {
         return retract(who, messageCalled(words[1]), done);
      }
      if (words.size() > 2) {
         return send(who, {value, messageCalled(words[0])}, done);
      }
      if (!done) {
         return;
      }
      if (words[0] == "enableTimeRegulation") {
         of.last = {-never, 0};
         of.regulation = pending;
         of.lookahead = value;
         of.start = allHaveHeard ? earliestStart(of) : -never;
      } else if (words[0] == "disableTimeRegulation") {
         regulateNoMore(who);
      } else if (words[0] == "enableTimeConstrained") {
         of.constraint = pending;
      } else if (words[0] == "disableTimeConstrained") {
         of.constraint = off;
         of.surely = -never;
      } else if (words[0] == "modifyLookahead") {
         of.promised = std::max(of.promised, plus(of.time, of.lookahead));
         of.lookahead = value;
      } else {
         of.advance = words[0];
         of.requested = value;
         of.surely = of.constraint == on && flushes(of) ? galt(who) : never;
         of.newest = _newest;
         of.last = {-never, 0};
      }
   }

   // A callback has come, if it is one that has to do with time.
   void told(std::size_t who, std::vector<std::string> const& words)
   {
      Federate& of = _all[who];
      if (words[0] == "timeAdvanceGrant") {
         grant(of, number(words[1]));
      } else if (words[0] == "timeRegulationEnabled") {
         double const start = number(words[1]);
         demand(of.regulation == pending && start >= std::max(of.time, of.last.first), "regulates too early");
         demand(of.start == -never || of.start == start, "regulates from another time");
         of.regulation = on;
         of.excluded &= start == of.time;
         of.time = start;
      } else if (words[0] == "timeConstrainedEnabled") {
         demand(of.constraint == pending && number(words[1]) == of.time, "is constrained at another time");
         of.constraint = on;
      } else if (words[0] == "requestRetraction") {
         demand(of.retracted.erase(messageCalled(words[1])) != 0, "has " + words[1] + " retracted");
      } else if (words[0] == "receive" && words[1] == "Accident") {
         receive(of, {number(words[6]), messageCalled(words[2].substr(4))}, words[7] == "TSO");
      }
   }

   // When everybody has heard all that there is to hear, nobody waits for what could be.
   void expectNoMore(std::size_t who)
   {
      Federate const& of = _all[who];
      _allHaveHeard = true;
      double const available = galt(who);
      demand(of.retracted.empty(), "is not told of a retraction");
      demand(of.regulation != pending, "is not told that it regulates");
      demand(of.constraint == off || (of.constraint == on) == (available >= leastReceiveTime(of)),
             "is constrained without need, or is not");
      if (of.constraint != on) {
         demand(of.due.empty(), "waits for messages though it is not constrained");
         demand(of.advance.empty(), "waits for time though it is not constrained");
      } else if (!of.advance.empty()) {
         demand(excludes(of) ? target(of) >= available : target(of) > available, "is not granted its time");
         demand(stopsAtMessage(of) || firstDue(of) >= std::min(available, next(of.requested)),
                "does not get what nothing can overtake any more");
      }
   }

private:
   enum Switch
   {
      off,
      pending,
      on
   };
   using Message = std::pair<double, int>; // its time, and its number
   struct Federate
   {
      bool joined = false;
      double time = 0;
      bool excluded = false; // nothing more comes or goes for just that time
      Switch regulation = off;
      Switch constraint = off;
      double start = 0; // of regulation, where it is known
      double lookahead = 0;
      double promised = -never; // not to send anything before
      std::string advance;      // the service that asked for it
      double requested = 0;
      double surely = never; // how far that leads, where it does not lead to the requested time or a message
      int newest = 0;        // message when it asked
      Message first;         // in the order of time since it asked
      Message last{-never, 0};
      std::set<Message> due;
      std::set<int> received;
      std::set<int> retracted; // of which it is to be told
   };

   static double number(std::string const& text) { return std::strtod(text.c_str(), nullptr); }
   static int messageCalled(std::string const& name) { return std::atoi(name.c_str() + 1); } // such as m5

   static bool excludes(Federate const& of)
   {
      return of.advance == "timeAdvanceRequest" || of.advance == "nextMessageRequest";
   }
   static bool flushes(Federate const& of) { return of.advance == "flushQueueRequest"; }
   static bool stopsAtMessage(Federate const& of) { return of.advance[0] == 'n' || flushes(of); }
   static double firstDue(Federate const& of) { return of.due.empty() ? never : of.due.begin()->first; }
   static double target(Federate const& of)
   {
      return stopsAtMessage(of) ? std::min(of.requested, firstDue(of)) : of.requested;
   }

   void demand(bool holds, std::string const& otherwise)
   {
      if (!holds && _fault.empty()) {
         _fault = otherwise;
      }
   }

   double next(double time) const { return _integers ? time + 1 : std::nextafter(time, never); }
   double plus(double time, double interval) const
   {
      return time + interval == time && interval > 0 ? next(time) : time + interval;
   }
   double leastReceiveTime(Federate const& of) const { return of.excluded ? next(of.time) : of.time; }
   double earliestStart(Federate const& of) const
   {
      double promised = of.time;
      for (Federate const& each : _all) {
         if (&each != &of && each.constraint == on) {
            double const received = each.advance.empty() ? -never : each.last.first;
            promised = std::max({promised, received, leastReceiveTime(each)});
         }
      }
      double start = std::max(of.time, promised - of.lookahead);
      while (plus(start, of.lookahead) < promised) {
         start = next(start);
      }
      return start;
   }
   double leastSendTime(Federate const& of, double at) const
   {
      bool const excluded = excludes(of) || (of.excluded && at == of.time);
      return std::max(of.promised, excluded && of.lookahead == 0 ? next(at) : plus(at, of.lookahead));
   }

   void regulateNoMore(std::size_t who)
   {
      _all[who].regulation = off;
      _all[who].promised = -never;
      for (auto each = _retractable.begin(); each != _retractable.end();) {
         each = each->second.sender == who ? _retractable.erase(each) : std::next(each);
      }
   }

   void send(std::size_t who, Message const& message, bool done)
   {
      demand(done == (message.first >= leastSendTime(who)), "may send what is too early, or may not");
      for (std::size_t each = 0; done && each < _all.size(); ++each) {
         if (each != who && _all[each].joined) {
            _all[each].due.insert(message);
         }
      }
      if (done) {
         _newest = message.second;
         _retractable[_newest] = {who, message.first};
      }
   }

   void retract(std::size_t who, int number, bool done)
   {
      auto const sent = _retractable.find(number);
      bool const may = sent != _retractable.end() && sent->second.time >= leastSendTime(who);
      demand(done == may, "may retract what is too late, or may not");
      if (done && may) {
         for (Federate& each : _all) {
            if (each.due.erase({sent->second.time, number}) == 0 && each.received.erase(number) != 0) {
               each.retracted.insert(number);
            }
         }
         _retractable.erase(sent);
      }
   }

   void receive(Federate& of, Message const& message, bool ordered)
   {
      demand(of.due.erase(message) != 0, "receives what is not for it");
      of.received.insert(message.second);
      demand(ordered == (of.constraint == on), "receives in the wrong order");
      if (ordered) {
         demand(of.regulation == pending || flushes(of) ||
                   (!of.advance.empty() && message.first <= of.requested),
                "receives too early");
         demand(message.first >= leastReceiveTime(of), "receives too late");
         demand(message > of.last, "receives the later one first");
         of.first = of.last.first == -never ? message : of.first;
         of.last = message;
      }
   }

   void grant(Federate& of, double to)
   {
      bool const stops = stopsAtMessage(of) && of.last.first != -never;
      double const latest = std::max(of.time, stops ? std::min(of.requested, of.first.first) : of.requested);
      double const earliest = std::max(of.time, std::min(latest, of.surely));
      demand(!of.advance.empty() && earliest <= to && to <= latest, "is granted another time");
      demand(of.constraint != on || (excludes(of) ? firstDue(of) > to : firstDue(of) >= to),
             "has not received all that is before");
      for (Message const& each : of.due) {
         demand(!flushes(of) || each.second > of.newest, "has not received all that there was");
      }
      of.excluded = excludes(of) || (of.excluded && to == of.time);
      of.time = to;
      of.advance.clear();
   }

   struct Sent
   {
      std::size_t sender;
      double time;
   };

   bool _integers;
   std::vector<Federate> _all;
   std::map<int, Sent> _retractable;
   int _newest = 0; // message
   bool _allHaveHeard = true;
   std::string _fault;
};

} // namespace system_tests

#endif
