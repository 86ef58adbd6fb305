// What time management owes to each federate, reckoned the slow way: every promise is kept in a list, and the
// greatest available logical times are tried until they fit.
#ifndef RTI1516E_TESTS_SYSTEM_TIMEORACLE_H
#define RTI1516E_TESTS_SYSTEM_TIMEORACLE_H

#include <cstddef>
#include <deque>
#include <limits>
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
   TimeOracle(std::size_t federates, bool integers);

   // Each service answers with the exception that it throws, or "nothing".
   std::string enableRegulation(std::size_t who, double lookahead);
   std::string disableRegulation(std::size_t who);
   std::string enableConstrained(std::size_t who);
   std::string disableConstrained(std::size_t who);
   std::string modifyLookahead(std::size_t who, double lookahead);
   std::string advance(std::size_t who, Way way, double to);
   std::string send(std::size_t who, double at); // the messages are numbered, from 0
   std::string retract(std::size_t who, std::size_t message);
   void resign(std::size_t who);

   // The callbacks that wait for the federate, which is told them now.
   std::string evoke(std::size_t who);

   double time(std::size_t who) const { return _all[who].time; }
   double galt(std::size_t who) const;
   double lits(std::size_t who) const;
   double lookahead(std::size_t who) const;
   double leastSendTime(std::size_t who) const;
   bool isRegulating(std::size_t who) const { return _all[who].regulation == on; }
   bool isJoined(std::size_t who) const { return _all[who].joined; }
   double next(double time) const;

   // Messages that came for a time that their receiver had been promised to be over: there must be none.
   std::vector<std::string> const& brokenPromises() const { return _broken; }

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
      bool retractable = true;
   };
   struct Federate
   {
      bool joined = true;
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
   static bool excludes(Federate const& of, double time);
   static bool stopsAtMessage(Way way) { return way >= nextMessage; }
   double plus(double time, double interval) const;
   double least(Federate const& of, State const& state) const;
   double first(Federate const& of) const;
   double reached(Federate const& of) const;
   double leastReceiveTime(Federate const& of) const;
   void deliver(Federate& to, double until, bool including);
   void settle();
   bool settle(std::size_t who);
   std::string tell(Federate& to, Event const& event);

   bool const _integers;
   std::vector<Federate> _all;
   std::vector<Message> _messages;
   std::vector<std::string> _broken;
};

// A time with all its digits.
std::string digits(double time);

} // namespace system_tests

#endif
