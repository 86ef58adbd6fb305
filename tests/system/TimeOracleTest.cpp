// A few federates that advance, send and change their minds at random, and the oracle: what each of them is
// called back with, refused and told of times is what the oracle says. SYSTEM_TESTS_SEED and
// SYSTEM_TESTS_CALLS make it another run, or a longer one.
#include "TimeOracle.h"

#include "FederationTest.h"
#include "Steps.h"

#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTIambassadorFactory.h>
#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <cmath>

namespace {

using namespace system_tests;

double number(LogicalTime const& time)
{
   auto const* const integer = dynamic_cast<HLAinteger64Time const*>(&time);
   return integer != nullptr ? static_cast<double>(integer->getTime())
                             : dynamic_cast<HLAfloat64Time const&>(time).getTime();
}
double length(LogicalTimeInterval const& interval)
{
   auto const* const integer = dynamic_cast<HLAinteger64Interval const*>(&interval);
   return integer != nullptr ? static_cast<double>(integer->getInterval())
                             : dynamic_cast<HLAfloat64Interval const&>(interval).getInterval();
}
std::string answered(TimeQueryReturn const& answer)
{
   return answer.timeIsValid ? digits(number(*answer.time)) : digits(TimeOracle::never);
}

// Writes down its callbacks as the oracle does.
class Timed : private NullFederateAmbassador
{
public:
   explicit Timed(std::map<MessageRetractionHandle, std::size_t>& messages)
      : ambassador(RTIambassadorFactory().createRTIambassador().release()), _messages(messages)
   {
      ambassador->connect(*this, HLA_EVOKED);
   }
   std::string evoke()
   {
      _askedForAll = true; // whose answer comes behind all that is under way
      ambassador->listFederationExecutions();
      while (_askedForAll) {
         ambassador->evokeCallback(1.0);
      }
      return std::exchange(_told, "");
   }
   std::unique_ptr<RTIambassador> const ambassador;

private:
   void reportFederationExecutions(FederationExecutionInformationVector const&) override
   {
      _askedForAll = false;
   }
   void timeRegulationEnabled(LogicalTime const& time) override { tell("regulates at ", time); }
   void timeConstrainedEnabled(LogicalTime const& time) override { tell("constrained at ", time); }
   void timeAdvanceGrant(LogicalTime const& time) override { tell("granted ", time); }
   void tell(std::string const& what, LogicalTime const& time)
   {
      _told += what + digits(number(time)) + "; ";
   }
   void receiveInteraction(InteractionClassHandle, ParameterHandleValueMap const&,
                           VariableLengthData const& tag, OrderType, TransportationType,
                           LogicalTime const& time, OrderType order, MessageRetractionHandle,
                           SupplementalReceiveInfo) override
   {
      tell("message " + show(tag) + (order == TIMESTAMP ? " in order at " : " at "), time);
   }
   void requestRetraction(MessageRetractionHandle handle) override
   {
      _told += "retraction " + std::to_string(_messages.at(handle)) + "; ";
   }

   std::map<MessageRetractionHandle, std::size_t>& _messages;
   std::string _told;
   bool _askedForAll = false;
};

constexpr void (RTIambassador::*ways[])(LogicalTime const&) = {
   &RTIambassador::timeAdvanceRequest, &RTIambassador::timeAdvanceRequestAvailable,
   &RTIambassador::nextMessageRequest, &RTIambassador::nextMessageRequestAvailable,
   &RTIambassador::flushQueueRequest};
constexpr char const* wayNames[] = {"TAR", "TARA", "NMR", "NMRA", "FQR"};

// Both families of time, rather than both callback models: callbacks are always evoked here.
class TimeAgainstOracle : public FederationTest
{
protected:
   TimeAgainstOracle()
   {
      create({fom("Road.xml")}, _integers ? "HLAinteger64Time" : "HLAfloat64Time");
      for (int i = 0; i < 3; ++i) {
         _federates.push_back(std::make_unique<Timed>(_messages));
      }
   }

   // What does not fit, or nothing. What was done is written to the log.
   std::string play(Steps const& steps)
   {
      _fault.clear();
      _log.clear();
      _messages.clear();
      _handles.clear();
      _oracle = std::make_unique<TimeOracle>(_federates.size(), _integers);
      for (std::size_t who = 0; who < _federates.size(); ++who) {
         RTIambassador& rti = *_federates[who]->ambassador;
         rti.joinFederationExecution(L"federate " + std::to_wstring(who), L"test", federationName());
         _interaction = rti.getInteractionClassHandle(L"Accident");
         rti.publishInteractionClass(_interaction);
         rti.subscribeInteractionClass(_interaction);
      }
      for (std::size_t i = 0; i < steps.size() && _fault.empty(); ++i) {
         act(Dice(steps[i]));
      }
      for (auto const& federate : _federates) {
         refusal([&] { federate->ambassador->resignFederationExecution(NO_ACTION); });
         federate->evoke();
      }
      return _fault;
   }

   std::string const& fault() const { return _fault; }
   std::string const& log() const { return _log; }

private:
   void act(Dice dice)
   {
      std::size_t const who = static_cast<std::size_t>(dice.below(3));
      if (!_oracle->isJoined(who)) {
         return;
      }
      int const what = dice.below(100);
      std::string const name = std::to_string(who) + ": ";
      RTIambassador& rti = *_federates[who]->ambassador;
      double const unit = _integers ? 1 : 0.1;
      double const some = dice.below(dice.oneIn(4) ? 10 : 3) * unit;
      // Next to nothing, but more: 5 and a lookahead of that is the next time after 5.
      double const lookahead = dice.oneIn(2) ? 0 : !_integers && dice.oneIn(4) ? 1e-20 : some;
      double const now = _oracle->time(who);
      if (what < 36) {
         auto const way = static_cast<TimeOracle::Way>(dice.below(5));
         double const to = dice.oneIn(30) ? now - unit : now + some;
         compare(name + wayNames[way] + " " + digits(to), _oracle->advance(who, way, to),
                 [&] { (rti.*ways[way])(*time(to)); });
      } else if (what < 60) {
         send(who, dice.oneIn(4) ? -1 : some);
      } else if (what < 72) {
         compare(name + "enableTimeRegulation " + digits(lookahead),
                 _oracle->enableRegulation(who, lookahead),
                 [&] { rti.enableTimeRegulation(*interval(lookahead)); });
      } else if (what < 81) {
         compare(name + "enableTimeConstrained", _oracle->enableConstrained(who),
                 [&] { rti.enableTimeConstrained(); });
      } else if (what < 87) {
         compare(name + "modifyLookahead " + digits(lookahead), _oracle->modifyLookahead(who, lookahead),
                 [&] { rti.modifyLookahead(*interval(lookahead)); });
      } else if (what < 91) {
         compare(name + "disableTimeRegulation", _oracle->disableRegulation(who),
                 [&] { rti.disableTimeRegulation(); });
      } else if (what < 94) {
         compare(name + "disableTimeConstrained", _oracle->disableConstrained(who),
                 [&] { rti.disableTimeConstrained(); });
      } else if (what < 99 && !_handles.empty()) {
         auto const message = static_cast<std::size_t>(dice.below(static_cast<int>(_handles.size())));
         compare(name + "retract " + std::to_string(message), _oracle->retract(who, message),
                 [&] { rti.retract(_handles[message]); });
      } else if (what == 99 && dice.oneIn(3)) {
         _oracle->resign(who);
         compare(name + "resign", "nothing", [&] { rti.resignFederationExecution(NO_ACTION); });
         _federates[who]->evoke();
      }
      auto const next = static_cast<std::size_t>(dice.below(6));
      if (next < _federates.size() && _oracle->isJoined(next)) {
         evoke(next);
      }
      compareTimes();
      for (std::string const& broken : _oracle->brokenPromises()) {
         _fault = broken + " comes too late";
      }
   }

   // At just the least time that may be sent, that much later, or just before it.
   void send(std::size_t who, double later)
   {
      if (!_oracle->isRegulating(who)) {
         return;
      }
      double const least = _oracle->leastSendTime(who);
      double const at = later >= 0 ? least + later : _integers ? least - 1 : std::nextafter(least, -1);
      RTIambassador& rti = *_federates[who]->ambassador;
      auto const call = [&] {
         auto const handle =
            rti.sendInteraction(_interaction, {}, bytes(std::to_string(_handles.size())), *time(at));
         _messages[handle] = _handles.size();
         _handles.push_back(handle);
      };
      compare(std::to_string(who) + ": send message " + std::to_string(_handles.size()) + " at " + digits(at),
              _oracle->send(who, at), call);
   }

   template <class Call>
   void compare(std::string const& what, std::string const& expected, Call&& call)
   {
      check(what, expected, refusal(call));
   }

   void evoke(std::size_t who)
   {
      check(std::to_string(who) + " is told", _oracle->evoke(who), _federates[who]->evoke());
   }

   void compareTimes()
   {
      for (std::size_t who = 0; who < _federates.size() && _fault.empty(); ++who) {
         if (_oracle->isJoined(who)) {
            RTIambassador& rti = *_federates[who]->ambassador;
            std::string const name = std::to_string(who) + "'s ";
            check(name + "time", digits(_oracle->time(who)), digits(number(*rti.queryLogicalTime())));
            check(name + "GALT", digits(_oracle->galt(who)), answered(rti.queryGALT()));
            check(name + "LITS", digits(_oracle->lits(who)), answered(rti.queryLITS()));
            if (_oracle->isRegulating(who)) {
               check(name + "lookahead", digits(_oracle->lookahead(who)),
                     digits(length(*rti.queryLookahead())));
            }
         }
      }
   }

   void check(std::string const& what, std::string const& expected, std::string const& seen)
   {
      if (what.find("'s ") == std::string::npos) { // what is asked for after each step is no step
         _log += what + " -> " + seen + "\n";
      }
      if (seen != expected && _fault.empty()) {
         _fault = what + " -> " + seen + ", where the oracle says " + expected;
      }
   }

   std::unique_ptr<LogicalTime> time(double value) const
   {
      return _integers ? std::unique_ptr<LogicalTime>(new HLAinteger64Time(static_cast<Integer64>(value)))
                       : std::unique_ptr<LogicalTime>(new HLAfloat64Time(value));
   }
   std::unique_ptr<LogicalTimeInterval> interval(double value) const
   {
      return _integers ? std::unique_ptr<LogicalTimeInterval>(
                            new HLAinteger64Interval(static_cast<Integer64>(value)))
                       : std::unique_ptr<LogicalTimeInterval>(new HLAfloat64Interval(value));
   }

   bool const _integers = GetParam() == HLA_EVOKED;
   std::vector<std::unique_ptr<Timed>> _federates;
   std::unique_ptr<TimeOracle> _oracle;
   InteractionClassHandle _interaction;
   std::vector<MessageRetractionHandle> _handles; // of the messages, by their numbers
   std::map<MessageRetractionHandle, std::size_t> _messages;
   std::string _fault;
   std::string _log;
};
IN_BOTH_CALLBACK_MODELS(TimeAgainstOracle);

TEST_P(TimeAgainstOracle, IsAsTheOracleSays)
{
   Dice dice(static_cast<std::uint32_t>(fromEnvironment("SYSTEM_TESTS_SEED", 1516)));
   constexpr int length = 60;
   for (long left = fromEnvironment("SYSTEM_TESTS_CALLS", 100000) / length / 2; left > 0; --left) {
      Steps const steps = randomSteps(dice.number(), length);
      if (!play(steps).empty()) {
         play(shrunk(steps, [&](Steps const& some) { return !play(some).empty(); }));
         FAIL() << fault() << "; all that it takes:\n" << log();
      }
   }
}

} // namespace
