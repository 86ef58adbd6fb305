// Federates that do whatever comes to mind, and what must hold whatever that is. When they act in turns, all
// that has to do with time is as the oracle says; an attribute has the owner that was told so, and no other;
// objects and points are known from when they are told of; no service is refused for a reason that the
// standard does not give it; and what is restored is what was saved. When each acts on a thread of its own,
// nothing fails and time goes on; so it is when they are in processes of their own, each with its share of
// them, SYSTEM_TESTS_SHARE of SYSTEM_TESTS_SHARES. SYSTEM_TESTS_SEED and SYSTEM_TESTS_CALLS make it another
// run, or a longer one.
#include "Services.h"
#include "Steps.h"
#include "TimeOracle.h"

#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <thread>

namespace {

using namespace system_tests;
using Texts = std::vector<std::string>;

constexpr std::size_t playerCount = 5;
constexpr std::chrono::seconds patience{60}; // with others

std::map<std::string, Texts> const attributesOf = {
   {"Vehicle", {"Position", "Speed", "Fuel", "HLAprivilegeToDeleteObject"}},
   {"Car", {"Position", "Speed", "Fuel", "Passengers", "HLAprivilegeToDeleteObject"}},
   {"Taxi", {"Position", "Speed", "Fuel", "Passengers", "Fare", "HLAprivilegeToDeleteObject"}},
   {"Truck", {"Position", "Speed", "Fuel", "Load", "HLAprivilegeToDeleteObject"}}};
Texts const directives = {"UNCONDITIONALLY_DIVEST_ATTRIBUTES",     "DELETE_OBJECTS",
                          "CANCEL_PENDING_OWNERSHIP_ACQUISITIONS", "DELETE_OBJECTS_THEN_DIVEST",
                          "CANCEL_THEN_DELETE_THEN_DIVEST",        "NO_ACTION"};

// What a federate was told and has done since it joined. It can be saved and restored.
struct Life
{
   bool joined = false;
   double time = 0;
   Texts sent; // messages that may be retracted
   std::map<std::string, std::set<std::string>> published;
   std::map<std::string, std::string> known; // objects with their classes
   std::map<std::string, std::set<std::string>> owned;
   std::set<std::string> toConfirm; // objects, each with attributes
   std::set<std::string> toAchieve;
   std::set<std::string> achieved;
   Texts regions;
   std::set<std::string> reflected; // each attribute of each message
   Texts news;                      // of a save or restore
};

// A word with a $ is drawn. The refusals come of what others did, or of what the player does not look at.
struct Row
{
   int chances;
   char const* step;
   char const* refusals;
};
Row const rows[] = {
   {15, "publish $class $some", ""},
   {1, "unpublish $class", "OwnershipAcquisitionPending"},
   {10, "subscribe $class $some", ""},
   {5, "subscribe $class $some passively", ""},
   {3, "unsubscribe $class", ""},
   {5, "publish $interaction", ""},
   {10, "subscribe $interaction", ""},
   {2, "unsubscribe $interaction", ""},
   {25, "$new = register $class", "ObjectClassNotPublished"},
   {5, "$new = register $class Position,Speed@$region", "ObjectClassNotPublished AttributeNotPublished"},
   {150, "update $object $values tag=$number", ""},
   {60, "send $interaction tag=$number", "InteractionClassNotPublished"},
   {6, "delete $object", "DeletePrivilegeNotHeld"},
   {4, "localDeleteObjectInstance $object", "OwnershipAcquisitionPending FederateOwnsAttributes"},
   {8, "requestAttributeValueUpdate $class $some", ""},
   {8, "requestAttributeTransportationTypeChange $object $owned best-effort", "AttributeAlreadyBeingChanged"},
   {10, "unconditionalAttributeOwnershipDivestiture $object $owned", ""},
   {20, "negotiatedAttributeOwnershipDivestiture $object $owned", "AttributeAlreadyBeingDivested"},
   {8, "cancelNegotiatedAttributeOwnershipDivestiture $object $owned", "AttributeDivestitureWasNotRequested"},
   {60, "confirmDivestiture $asked",
    "NoAcquisitionPending AttributeDivestitureWasNotRequested AttributeNotOwned ObjectInstanceNotKnown"},
   {10, "attributeOwnershipDivestitureIfWanted $object $owned", ""},
   {40, "attributeOwnershipAcquisition $object $wanted", "FederateOwnsAttributes"},
   {20, "attributeOwnershipAcquisitionIfAvailable $object $wanted",
    "AttributeAlreadyBeingAcquired FederateOwnsAttributes"},
   {15, "cancelAttributeOwnershipAcquisition $object $wanted",
    "AttributeAcquisitionWasNotRequested AttributeAlreadyOwned"},
   {2, "enableAsynchronousDelivery", "AsynchronousDeliveryAlreadyEnabled"},
   {6, "$place = createRegion Lane", ""},
   {12, "setRangeBounds $region Lane $range", ""},
   {12, "commitRegionModifications $region", ""},
   {3, "deleteRegion $region", "RegionInUseForUpdateOrSubscription"},
   {6, "subscribe $class Position,Speed@$region", ""},
   {3, "unsubscribe $class Position,Speed@$region", ""},
   {8, "associateRegionsForUpdates $object Position,Speed@$region", ""},
   {5, "unassociateRegionsForUpdates $object Position,Speed@$region", ""},
   {2, "enableAttributeRelevanceAdvisorySwitch", "AttributeRelevanceAdvisorySwitchIsOn"},
   {5, "registerFederationSynchronizationPoint $point", ""},
   {20, "synchronizationPointAchieved $announced", ""},
   {4, "resignFederationExecution $directive", "OwnershipAcquisitionPending FederateOwnsAttributes"},
   {3, "requestFederationSave noon", ""},
   {2, "requestFederationRestore noon", ""},
   {400, "a step in time", ""}};
#define ADVANCE_REFUSALS                                                            \
   "InTimeAdvancingState LogicalTimeAlreadyPassed RequestForTimeRegulationPending " \
   "RequestForTimeConstrainedPending"
Row const rowsInTime[] = {
   {7, "timeAdvanceRequest $time", ADVANCE_REFUSALS},
   {7, "timeAdvanceRequestAvailable $time", ADVANCE_REFUSALS},
   {7, "nextMessageRequest $time", ADVANCE_REFUSALS},
   {7, "nextMessageRequestAvailable $time", ADVANCE_REFUSALS},
   {7, "flushQueueRequest $time", ADVANCE_REFUSALS},
   {24, "$m = send Accident tag=$m at $sending", "InvalidLogicalTime"},
   {8, "retract $sent", "TimeRegulationIsNotEnabled MessageCanNoLongerBeRetracted"},
   {12, "enableTimeRegulation $lookahead",
    "TimeRegulationAlreadyEnabled RequestForTimeRegulationPending InTimeAdvancingState"},
   {9, "enableTimeConstrained",
    "TimeConstrainedAlreadyEnabled RequestForTimeConstrainedPending InTimeAdvancingState"},
   {6, "modifyLookahead $lookahead", "TimeRegulationIsNotEnabled InTimeAdvancingState"},
   {3, "disableTimeRegulation", "TimeRegulationIsNotEnabled"},
   {4, "disableTimeConstrained", "TimeConstrainedIsNotEnabled"}};
#undef ADVANCE_REFUSALS

class RandomRun : public testing::TestWithParam<std::tuple<CallbackModel, bool>>
{
protected:
   // One after the other. True if nothing is wrong.
   bool playInTurns(Steps const& steps)
   {
      begin(false);
      for (std::size_t i = 0; i < steps.size() && _fault.empty(); ++i) {
         Dice dice(steps[i]);
         std::size_t const who = static_cast<std::size_t>(dice.below(playerCount));
         act(who, dice);
         bool const all = _model == HLA_IMMEDIATE || dice.oneIn(5);
         everybody([&](std::size_t each) { all || dice.oneIn(5) ? hear(each) : void(); });
         if (all) {
            everybody([&](std::size_t each) { _now.oracle.expectNoMore(each); });
         }
         compareTimes(who, all);
      }
      return finish();
   }

   // Each on a thread of its own.
   bool playTogether(std::uint32_t seed, std::size_t steps)
   {
      begin(true);
      std::vector<std::thread> threads;
      if (_shares > 1) {
         awaitAll();
      }
      for (std::size_t who = _share; who < playerCount; who += _shares) {
         threads.emplace_back([this, who, all = randomSteps(seed + static_cast<std::uint32_t>(who), steps)] {
            for (auto const step : all) {
               hear(who);
               answer(who);
               act(who, Dice(step));
            }
         });
      }
      for (auto& thread : threads) {
         thread.join();
      }
      meetInTime();
      return finish();
   }

   std::string report() const { return joined(_log, "\n") + "\n" + _fault; }

   CallbackModel const _model = std::get<0>(GetParam());

private:
   struct State
   {
      TimeOracle oracle;
      std::array<Life, playerCount> lives;
   };

   static std::string nameOf(std::size_t who) { return "p" + std::to_string(who); }
   Federate& federate(std::size_t who) { return _stage->federate(nameOf(who)); }
   Life& life(std::size_t who) { return _now.lives[who]; }

   void begin(bool together)
   {
      _together = together;
      _log.clear();
      _fault.clear();
      _saved.reset();
      _now = {TimeOracle(playerCount, _integers), {}};
      _stage = std::make_unique<Stage>(_model, _integers);
      if (_share == 0) {
         _stage->createFederation("Road.xml", _integers ? "integer" : "float");
      }
      for (std::size_t who = _share; who < playerCount; who += _shares) {
         federate(who);
      }
      join(_share);
   }

   // Nobody begins, and maybe leaves, before those of all processes are there.
   void awaitAll()
   {
      for (std::size_t who = _share + _shares; who < playerCount; who += _shares) {
         join(who);
      }
      for (std::size_t who = 0; _share == 0 && who < playerCount; ++who) {
         awaits(0, [&] {
            return serve(*_stage, federate(0), {"getFederateHandle", nameOf(who)}).exception == "nothing";
         });
      }
      if (_share == 0) {
         perform(0, "registerFederationSynchronizationPoint all", "nothing");
      }
      everybody([&](std::size_t who) {
         awaits(who, [&] { return hear(who), life(who).toAchieve.erase("all") != 0; });
         life(who).achieved.insert("all");
         perform(who, "synchronizationPointAchieved all", "nothing");
      });
      everybody([&](std::size_t who) { awaits(who, [&] { return hear(who), life(who).achieved.empty(); }); });
   }

   void awaits(std::size_t who, std::function<bool()> const& condition)
   {
      demand(federate(who).await(condition, patience), who, "waits in vain for the others");
   }

   // Nobody owns what another owns too, or other than he was told; and everybody can leave.
   bool finish()
   {
      for (std::size_t who = 0; who < playerCount; ++who) {
         hear(who);
      }
      std::map<std::string, std::string> owners;
      for (std::size_t who = 0; who < playerCount && _fault.empty(); ++who) {
         for (auto const& [object, theClass] : life(who).known) {
            for (auto const& attribute : attributesOf.at(theClass)) {
               std::string const asked = "isAttributeOwnedByFederate " + object + " " + attribute;
               bool const owns = serve(*_stage, federate(who), wordsOf(asked)).result == "true";
               demand(!owns || owners.emplace(asked, nameOf(who)).second, who,
                      "owns what another does: " + asked);
               demand(_together || owns == (life(who).owned[object].count(attribute) != 0), who,
                      "has been told otherwise: " + asked);
            }
         }
      }
      _stage->end();
      return _fault.empty();
   }

   void demand(bool holds, std::size_t who, std::string const& what)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      if (!holds && _fault.empty()) {
         _fault = nameOf(who) + " " + what;
      }
   }

   // What does not fit the order of threads is not known to be wrong.
   void demandInTurns(bool holds, std::size_t who, std::string const& what)
   {
      demand(_together || holds, who, what);
   }

   std::string perform(std::size_t who, std::string const& step, std::string const& allowed)
   {
      Outcome const outcome = serve(*_stage, federate(who), wordsOf(step));
      if (!_together) {
         _result = outcome.result;
         _log.push_back("   " + nameOf(who) + ": " + step + " -> " + outcome.exception);
      }
      bool const isWrong = outcome.exception == "RTIinternalError" || outcome.exception == "NotConnected";
      bool const isAllowed = (" " + allowed + " ").find(" " + outcome.exception + " ") != std::string::npos;
      demand(_together ? !isWrong : isAllowed, who,
             step + " raises " + outcome.exception + " where it may " + allowed + ": " + outcome.message);
      return outcome.exception;
   }

   // When there is a federation, and the name is free. What has to do with time goes to everybody.
   void join(std::size_t who)
   {
      awaits(who, [&] { return serve(*_stage, federate(who), {"join"}).exception == "nothing"; });
      life(who) = Life();
      life(who).joined = true;
      if (!_together) {
         _log.push_back("   " + nameOf(who) + ": join");
         _now.oracle.join(who);
      }
      perform(who, "publish Accident", "nothing");
      perform(who, "subscribe Accident", "nothing");
   }

   void act(std::size_t who, Dice dice)
   {
      if (!life(who).joined) {
         return join(who);
      }
      Row const* row = &dice.byChance(rows);
      std::string step = row->step;
      if (!_together && step == "requestFederationSave noon") {
         return save(who, dice);
      }
      if (!_together && step == "requestFederationRestore noon") {
         return restore(who);
      }
      bool const isInTime = step == "a step in time";
      if (isInTime) {
         row = &dice.byChance(rowsInTime);
         step = row->step;
      }
      Texts const words = draw(who, step, dice);
      if (words.empty()) {
         return;
      }
      bool const done = perform(who, joined(words), std::string("nothing ") + row->refusals) == "nothing";
      if (done) {
         take(who, words);
      }
      if (isInTime && !_together) {
         _now.oracle.called(who, words, done);
         demand(_now.oracle.fault().empty(), who, _now.oracle.fault());
      }
   }

   // With what the words with a $ stand for; nothing where there is no such thing.
   Texts draw(std::size_t who, std::string const& step, Dice& dice)
   {
      Life& its = life(who);
      bool const isOfObject = step.find("$object") != std::string::npos;
      if (isOfObject && its.known.empty()) {
         return {};
      }
      auto const [object, theClass] =
         isOfObject ? dice.oneOf(its.known)
                    : std::pair<std::string const, std::string>("", dice.oneOf(attributesOf).first);
      std::string const number = std::to_string(_number++);
      std::string const lane = std::to_string(dice.below(7));
      double const unit = _integers ? 1 : 0.1;
      double const some = dice.below(dice.oneIn(4) ? 10 : 3) * unit;
      double const tiny = _integers ? some : 1e-20; // 5 and a lookahead of that is the next time after 5
      double const least = _together ? its.time + 10 : _now.oracle.leastSendTime(who);
      double const tooEarly = _integers ? least - 1 : std::nextafter(least, -1);
      bool const sends = _together || _now.oracle.isRegulating(who);
      std::map<std::string, Texts> const choices = {
         {"class", {theClass}},
         {"object", {object}},
         {"asked", {its.toConfirm.begin(), its.toConfirm.end()}},
         {"interaction", {"Message", "Urgent"}},
         {"directive", directives},
         {"region", its.regions},
         {"range", {lane + ".." + std::to_string(std::stoi(lane) + 1)}},
         {"announced", {its.toAchieve.begin(), its.toAchieve.end()}},
         {"number", {number}},
         {"new", {"new" + number}},
         {"place", {"place" + number}},
         {"point", {"point" + number}},
         {"m", {"m" + number}},
         {"sent", its.sent},
         {"time", {show(its.time + (dice.oneIn(30) ? -unit : some))}},
         {"lookahead", {"0", "0", show(some), show(dice.oneIn(2) ? some : tiny)}},
         {"sending", sends ? Texts{show(dice.oneIn(4) ? tooEarly : least + some)} : Texts()}};
      Texts words;
      for (std::string const& word : wordsOf(step)) {
         std::size_t const at = word.find('$');
         if (at == std::string::npos) {
            words.push_back(word);
            continue;
         }
         std::string const kind = word.substr(at + 1);
         Texts values;
         auto const choice = choices.find(kind);
         if (choice != choices.end() && !choice->second.empty()) {
            values = {dice.oneOf(choice->second)};
            its.toConfirm.erase(values[0]);
         }
         for (auto const& attribute : attributesOf.at(theClass)) {
            bool const isOwned = its.owned[object].count(attribute) != 0;
            bool const isPublished = its.published[theClass].count(attribute) != 0;
            bool const fits = kind == "some"     ? attribute != "HLAprivilegeToDeleteObject"
                              : kind == "wanted" ? isPublished && !isOwned
                                                 : isOwned && (kind == "owned" || kind == "values");
            if (fits && dice.oneIn(2)) {
               values.push_back(kind == "values" ? attribute + "=" + number : attribute);
            }
         }
         if (values.empty()) {
            return {};
         }
         words.push_back(word.substr(0, at) + joined(values));
      }
      return wordsOf(joined(words));
   }

   // A service or callback and its object.
   static std::set<std::string> behind(Texts const& words)
   {
      return {words.begin() + (words.size() > 2 ? 2 : std::distance(words.begin(), words.end())),
              words.end()};
   }

   // What the step has changed.
   void take(std::size_t who, Texts const& words)
   {
      Life& its = life(who);
      bool const isNew = words.size() > 3 && words[1] == "=";
      std::string const service = words[isNew ? 2 : 0];
      std::string const about = isNew ? words[3] : words.size() > 1 ? words[1] : "";
      std::set<std::string> const attributes = behind(words);
      if (service == "publish") {
         its.published[about].insert(attributes.begin(), attributes.end());
      } else if (service == "unpublish") {
         its.published[about].clear();
         for (auto const& [object, theClass] : its.known) {
            theClass == about ? its.owned[object].clear() : void();
         }
      } else if (service == "register") {
         its.known[words[0]] = about;
         its.owned[words[0]] = its.published[about];
         its.owned[words[0]].insert("HLAprivilegeToDeleteObject");
      } else if (service == "delete" || service == "localDeleteObjectInstance") {
         its.known.erase(about);
         its.owned.erase(about);
      } else if (service == "unconditionalAttributeOwnershipDivestiture" || service == "confirmDivestiture") {
         lose(its.owned[about], attributes);
      } else if (service == "attributeOwnershipDivestitureIfWanted") {
         lose(its.owned[about], wordsOf(_result));
      } else if (service == "send" && isNew) {
         its.sent.push_back(words[0]);
      } else if (service == "createRegion") {
         its.regions.push_back(words[0]);
      } else if (service == "deleteRegion") {
         its.regions.erase(std::find(its.regions.begin(), its.regions.end(), about));
      } else if (service == "synchronizationPointAchieved") {
         its.achieved.insert(its.toAchieve.extract(about));
      } else if (service == "resignFederationExecution") {
         leave(who);
      }
   }

   template <class Attributes>
   static void lose(std::set<std::string>& owned, Attributes const& attributes)
   {
      for (auto const& attribute : attributes) {
         owned.erase(attribute);
      }
   }

   void leave(std::size_t who)
   {
      if (!_together) {
         _now.oracle.resign(who);
      }
      federate(who).callbacks();
      life(who) = Life();
   }

   // With each step, so that a hub has done it before another federate takes its own.
   void compareTimes(std::size_t who, bool allHaveHeard)
   {
      TimeOracle const& oracle = _now.oracle;
      auto const compare = [&](std::string const& query, double expected) {
         std::string const asked = serve(*_stage, federate(who), {query}).result;
         std::string const said = expected == TimeOracle::never ? "none" : show(expected);
         demand(asked == said, who, query + " is " + asked + ", where the oracle says " + said);
      };
      if (life(who).joined) {
         compare("queryLogicalTime", oracle.time(who));
         if (allHaveHeard) {
            compare("queryGALT", oracle.galt(who));
            compare("queryLITS", oracle.lits(who));
         }
         if (oracle.isRegulating(who)) {
            compare("queryLookahead", oracle.lookahead(who));
         }
      }
   }

   // Everybody is told, answers, and is told the outcome.
   void save(std::size_t who, Dice& dice)
   {
      perform(who, "requestFederationSave noon", "nothing");
      bool const fails = dice.oneIn(5);
      everybody([&](std::size_t each) {
         expectNews(each, {"initiateFederateSave noon"});
         perform(each, "federateSaveBegun", "nothing");
      });
      everybody([&](std::size_t each) {
         perform(each, fails && each == who ? "federateSaveNotComplete" : "federateSaveComplete", "nothing");
      });
      everybody([&](std::size_t each) {
         expectNews(each, {fails ? "federationNotSaved federate-failed" : "federationSaved"});
      });
      if (!fails) {
         _saved = std::make_unique<State>(_now);
      }
   }

   void restore(std::size_t who)
   {
      everybody([&](std::size_t each) { hear(each); }); // what is under way would be lost
      perform(who, "requestFederationRestore noon", "nothing");
      bool possible = _saved != nullptr;
      for (std::size_t each = 0; each < playerCount; ++each) {
         possible = possible && _saved->lives[each].joined == life(each).joined;
      }
      if (!possible) {
         return expectNews(who, {"requestFederationRestoreFailed noon"});
      }
      everybody([&](std::size_t each) {
         Texts news = {"federationRestoreBegun",
                       "initiateFederateRestore noon " + nameOf(each) + " " + nameOf(each)};
         if (each == who) {
            news.insert(news.begin(), "requestFederationRestoreSucceeded noon");
         }
         expectNews(each, news);
      });
      everybody([&](std::size_t each) { perform(each, "federateRestoreComplete", "nothing"); });
      everybody([&](std::size_t each) { expectNews(each, {"federationRestored"}); });
      _now = *_saved;
   }

   template <class Call>
   void everybody(Call&& call)
   {
      for (std::size_t each = 0; each < playerCount; ++each) {
         if (life(each).joined) {
            call(each);
         }
      }
   }

   void expectNews(std::size_t who, Texts const& expected)
   {
      hear(who);
      Texts const news = std::exchange(life(who).news, {});
      demand(news == expected, who, "hears " + joined(news, "; ") + " and not " + joined(expected, "; "));
   }

   // On a thread of its own a federate answers when it hears, and goes on when it can.
   void answer(std::size_t who)
   {
      for (auto const& news : std::exchange(life(who).news, {})) {
         if (news.rfind("initiateFederateSave", 0) == 0) {
            perform(who, "federateSaveBegun", "");
            perform(who, "federateSaveComplete", "");
         } else if (news.rfind("initiateFederateRestore", 0) == 0) {
            perform(who, "federateRestoreComplete", "");
         } else if (news == "federationRestored") {
            // To whenever that save was, maybe of a member that this one has taken the place of.
            life(who).time =
               std::strtod(serve(*_stage, federate(who), {"queryLogicalTime"}).result.c_str(), nullptr);
         }
      }
   }

   // Those who are left come to one point in time, if they only ask often enough.
   void meetInTime()
   {
      auto const isThere = [&](std::size_t who) { return life(who).time >= 100000; };
      bool missing = true;
      auto const deadline = std::chrono::steady_clock::now() + patience;
      while (missing && std::chrono::steady_clock::now() < deadline) {
         missing = false;
         everybody([&](std::size_t who) {
            hear(who);
            answer(who);
            if (!isThere(who)) {
               missing = true;
               perform(who, "timeAdvanceRequest 100000", "");
            }
         });
      }
      demand(!missing, 0, "and the others: time does not go on");
   }

   // What has come fits what was told before.
   void hear(std::size_t who)
   {
      for (auto const& callback : federate(who).callbacks()) {
         Texts const words = wordsOf(callback);
         told(who, words);
         if (!_together) {
            _log.push_back("   " + nameOf(who) + " < " + callback);
            _now.oracle.told(who, words);
            demand(_now.oracle.fault().empty(), who, _now.oracle.fault());
         }
      }
   }

   void told(std::size_t who, Texts const& words)
   {
      Life& its = life(who);
      std::string const& callback = words[0];
      std::string const object = words.size() > 1 ? words[1] : "";
      std::set<std::string> const attributes = behind(words);
      std::set<std::string>& owned = its.owned[object];
      if (callback == "timeAdvanceGrant" || callback == "timeRegulationEnabled") {
         its.time = std::strtod(words[1].c_str(), nullptr);
      } else if (callback == "discover") {
         // By who is still registering it, or in another process.
         bool const isNamed = object.find('<') == std::string::npos;
         if (!isNamed && _shares > 1) {
            Outcome const found =
               serve(*_stage, federate(who), {words[3], "=", "getObjectInstanceHandle", words[3]});
            found.exception == "nothing" ? void(its.known.emplace(words[3], words[2])) : void();
         }
         demandInTurns(!isNamed || its.known.emplace(object, words[2]).second, who,
                       "discovers again " + object);
      } else if (callback == "remove") {
         demandInTurns(its.known.erase(object) != 0, who, "does not know what is removed: " + object);
         its.owned.erase(object);
      } else if (callback == "reflect") {
         demandInTurns(its.known.count(object) != 0, who, "does not know what it sees: " + object);
         for (auto const& word : attributes) {
            if (word.find('=') != std::string::npos && word.rfind("tag=", 0) != 0) {
               demandInTurns(its.reflected.insert(word).second, who, "sees again " + word);
            }
         }
      } else if (callback == "attributeOwnershipAcquisitionNotification") {
         for (auto const& attribute : attributes) {
            demandInTurns(owned.insert(attribute).second, who, "acquires what it owns: " + attribute);
         }
      } else if (callback == "requestDivestitureConfirmation" || callback == "provideAttributeValueUpdate" ||
                 callback == "requestAttributeOwnershipRelease") {
         for (auto const& attribute : attributes) {
            demandInTurns(owned.count(attribute) != 0, who, callback + ": it does not own " + attribute);
         }
         if (callback == "requestDivestitureConfirmation") {
            its.toConfirm.insert(joined({words.begin() + 1, words.end()}));
         }
      } else if (callback == "announceSynchronizationPoint") {
         demandInTurns(its.toAchieve.insert(object).second, who, "is told again of " + object);
      } else if (callback == "federationSynchronized") {
         demandInTurns(its.achieved.erase(object) != 0, who, "has not achieved " + object);
      } else if (callback.find("Save") != std::string::npos ||
                 callback.find("Restore") != std::string::npos) {
         its.news.push_back(joined(words));
      }
   }

   bool const _integers = std::get<1>(GetParam());
   std::size_t const _share = static_cast<std::size_t>(fromEnvironment("SYSTEM_TESTS_SHARE", 0));
   std::size_t const _shares = static_cast<std::size_t>(fromEnvironment("SYSTEM_TESTS_SHARES", 1));
   bool _together = false;
   std::unique_ptr<Stage> _stage;
   State _now{TimeOracle(0, true), {}};
   std::unique_ptr<State> _saved;
   std::atomic<int> _number{0};
   std::string _result;
   Texts _log;
   std::mutex _mutex;
   std::string _fault;
};

constexpr std::size_t length = 200;

TEST_P(RandomRun, KeepsWhatIsPromised)
{
   auto const seed = static_cast<std::uint32_t>(fromEnvironment("SYSTEM_TESTS_SEED", 1516));
   auto const steps = static_cast<std::size_t>(fromEnvironment("SYSTEM_TESTS_CALLS", 20000));
   for (std::size_t run = 0; run < steps / length; ++run) {
      Steps const all = randomSteps(seed + static_cast<std::uint32_t>(run), length);
      if (!playInTurns(all)) {
         std::string const first = report();
         bool const isGone = playInTurns(shrunk(all, [&](Steps const& some) { return !playInTurns(some); }));
         FAIL() << (isGone ? first : report()) << "\nis all that is left of the seed " << seed + run;
      }
   }
}

TEST_P(RandomRun, GoesOnOnManyThreads)
{
   auto const seed = static_cast<std::uint32_t>(fromEnvironment("SYSTEM_TESTS_SEED", 1516));
   EXPECT_TRUE(playTogether(seed, 500)) << report();
}

INSTANTIATE_TEST_SUITE_P(, RandomRun,
                         testing::Combine(testing::Values(HLA_EVOKED, HLA_IMMEDIATE), testing::Bool()));

} // namespace
