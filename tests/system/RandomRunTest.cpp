// Federates that do whatever comes to mind, and what must hold whatever that is: an attribute has one owner
// at most; messages come once, to who subscribes, with what was sent, and those with a time in its order and
// neither early nor late; no service is refused for a reason that the standard does not give it; what is
// restored is what was saved; and time always goes on. SYSTEM_TESTS_SEED and SYSTEM_TESTS_CALLS make it
// another run, or a longer one.
#include "FederationTest.h"
#include "RandomPlayer.h"

#include <thread>

namespace {

using namespace system_tests;

constexpr int playerCount = 8;

class RandomRun : public FederationTest
{
protected:
   RandomRun() { create({fom("Road.xml")}, "HLAinteger64Time"); }

   // One after the other, in an order that the steps give. True if nothing is wrong.
   bool playInTurns(Steps const& steps)
   {
      begin();
      for (std::size_t i = 0; i < steps.size() && _ledger->isFaultless(); ++i) {
         Dice dice(steps[i]);
         dice.oneOf(_players)->act(Dice(dice.number()));
         if (dice.oneIn(3)) {
            dice.oneOf(_players)->evoke();
         }
         if (dice.oneIn(2000)) {
            meetInTime();
         }
      }
      return finish();
   }

   // Each on a thread of its own.
   bool playTogether(std::uint32_t seed, std::size_t steps)
   {
      begin();
      std::vector<std::thread> threads;
      for (auto const& player : _players) {
         threads.emplace_back([&] {
            for (auto const step : randomSteps(seed + static_cast<std::uint32_t>(player->index), steps)) {
               if (!player->life.isJoined) {
                  player->drain(); // a callback may still be on its way
               }
               if (_ledger->isFaultless()) {
                  player->act(Dice(step));
               }
            }
         });
      }
      for (auto& thread : threads) {
         thread.join();
      }
      return finish();
   }

   std::string report() const
   {
      std::string text;
      for (auto const* const part : {&_ledger->log, &_ledger->faults}) {
         for (std::string const& line : *part) {
            text += line + "\n";
         }
      }
      return text;
   }

private:
   void begin()
   {
      _ledger = std::make_unique<Ledger>(playerCount, GetParam() == HLA_IMMEDIATE);
      _ledger->saveLabel = L"of run " + std::to_wstring(++_runs);
      for (std::size_t i = 0; i < playerCount; ++i) {
         _players.push_back(std::make_unique<Player>(*_ledger, i, GetParam(), federation()));
      }
   }

   // Nothing that had to come is missing, and who received a message that was taken back knows it.
   bool finish()
   {
      meetInTime();
      for (auto const& player : _players) {
         Player::Lock const lock(player->mutex);
         Life const& life = player->life;
         if (life.isJoined) {
            player->demand(life.due.empty(), "has not received a message");
            player->demand(life.toAchieve.empty() && life.achieved.empty(), "is not synchronized");
            for (std::size_t const id : life.toTakeBack) {
               player->demand(_ledger->messages.retracted.count(id) == 0,
                              "is not asked to take back a message");
            }
         }
      }
      for (auto const& player : _players) {
         std::string const seen =
            refusal([&] { player->rti->resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
         player->demand((seen == "nothing") == player->life.isJoined, ("resigns: " + seen).c_str());
         player->rti->disconnect();
      }
      _players.clear();
      return _ledger->isFaultless();
   }

   void settle()
   {
      for (auto const& player : _players) {
         player->drain();
      }
   }

   // All come to one point in time, if they only ask often enough, past every save on the way. It is later
   // than any message that has been sent, also by who was granted less than asked for then.
   void meetInTime()
   {
      settle();
      std::int64_t meeting = 0;
      for (auto const& player : _players) {
         Player::Lock const lock(player->mutex);
         meeting = std::max(meeting, player->furthest() + 100);
      }
      bool missing = true;
      for (int round = 0; round < 50 && missing && _ledger->isFaultless(); ++round) {
         missing = false;
         for (auto const& player : _players) {
            Player::Lock const lock(player->mutex);
            Life const& life = player->life;
            if (life.isJoined) {
               missing |= life.now < meeting || !life.toAchieve.empty() || !life.achieved.empty();
               refusal([&] { player->answer() ? player->advance(0, std::max(meeting, life.now)) : void(); });
            }
         }
         settle();
      }
      if (missing) {
         _ledger->fault("time does not go on");
      }
      std::map<ObjectInstanceHandle, Attributes> owned;
      for (auto const& player : _players) {
         if (player->life.isJoined && _ledger->isFaultless()) {
            player->checkOwnership(owned);
         }
      }
   }

   std::unique_ptr<Ledger> _ledger;
   std::vector<std::unique_ptr<Player>> _players;
   int _runs = 0;
};
IN_BOTH_CALLBACK_MODELS(RandomRun);

TEST_P(RandomRun, KeepsWhatIsPromised)
{
   auto const seed = static_cast<std::uint32_t>(fromEnvironment("SYSTEM_TESTS_SEED", 1516));
   auto const steps = static_cast<std::size_t>(fromEnvironment("SYSTEM_TESTS_CALLS", 40000));
   if (GetParam() == HLA_IMMEDIATE) {
      EXPECT_TRUE(playTogether(seed, steps / playerCount)) << report() << "with the seed " << seed;
      return;
   }
   constexpr std::size_t length = 5000;
   for (std::size_t run = 0; run < steps / length; ++run) {
      Steps const all = randomSteps(seed + static_cast<std::uint32_t>(run), length);
      if (!playInTurns(all)) {
         playInTurns(shrunk(all, [&](Steps const& some) { return !playInTurns(some); }));
         FAIL() << report() << "is all that is left of the seed " << seed + run;
      }
   }
}

} // namespace
