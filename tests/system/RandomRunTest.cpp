// Federates that do whatever comes to mind, and what must hold whatever that is: an attribute has one owner
// at most; messages come once, to who subscribes, with what was sent, and those with a time in its order and
// neither early nor late; no service is refused for a reason that the standard does not give it; and time
// always goes on. SYSTEM_TESTS_SEED and SYSTEM_TESTS_CALLS make it another run, or a longer one.
#include "FederationTest.h"
#include "RandomPlayer.h"

#include <cstdlib>
#include <thread>

namespace {

using namespace system_tests;

constexpr int playerCount = 8;

long fromEnvironment(char const* name, long otherwise)
{
   char const* const value = std::getenv(name);
   return value == nullptr ? otherwise : std::atol(value);
}

class RandomRun : public FederationTest
{
protected:
   RandomRun()
   {
      _ledger.concurrent = GetParam() == HLA_IMMEDIATE;
      create({fom("Road.xml")}, "HLAinteger64Time");
      for (int i = 0; i < playerCount; ++i) {
         _players.push_back(
            std::make_unique<Player>(_ledger, i, _seed + static_cast<unsigned int>(i), GetParam()));
         _ledger.players.push_back(_players.back().get());
      }
   }

   // One after the other, as the seed has it.
   void playInTurns()
   {
      std::mt19937 random(_seed);
      for (long pause = _calls / 20; calls() < _calls && _ledger.isFaultless();) {
         actAtRandom(*_players[random() % playerCount], federation());
         if (random() % 3 == 0) {
            _players[random() % playerCount]->evoke();
         }
         if (calls() > pause) {
            pause += _calls / 20;
            meetInTime();
            checkOwnership();
         }
      }
   }

   // Each on a thread of its own.
   void playTogether()
   {
      std::vector<std::thread> threads;
      for (auto const& player : _players) {
         threads.emplace_back([&] {
            while (player->calls() < _calls / playerCount && _ledger.isFaultless()) {
               if (!player->isJoined) {
                  player->drain(GetParam()); // a callback may still be on its way
               }
               actAtRandom(*player, federation());
            }
         });
      }
      for (auto& thread : threads) {
         thread.join();
      }
      meetInTime();
   }

   // Nothing that had to come is missing, and who received a message that was taken back knows it.
   void finish()
   {
      meetInTime();
      settle();
      checkOwnership();
      for (auto const& player : _players) {
         Player::Lock const lock(player->mutex);
         if (!player->isJoined) {
            continue;
         }
         if (!player->due.empty()) {
            player->fault("has not received message " + std::to_string(player->due.begin()->first));
         }
         for (std::size_t const id : player->toTakeBack) {
            if (_ledger.retracted.count(id) != 0) {
               player->fault("is not asked to take back message " + std::to_string(id));
            }
         }
      }
      EXPECT_EQ(_ledger.faults, std::vector<std::string>()) << "with the seed " << _seed;
      for (auto const& player : _players) {
         refusal([&] { player->rti().resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
         player->rti().disconnect();
      }
   }

private:
   long calls() const
   {
      long sum = 0;
      for (auto const& player : _players) {
         sum += player->calls();
      }
      return sum;
   }

   void settle()
   {
      for (auto const& player : _players) {
         player->drain(GetParam());
      }
   }

   // All come to one point in time, if they only ask often enough. It is later than any message that has been
   // sent, also by who was granted less than asked for then.
   void meetInTime()
   {
      settle();
      std::int64_t meeting = 0;
      for (auto const& player : _players) {
         Player::Lock const lock(player->mutex);
         meeting = std::max(meeting, player->furthest() + 100);
      }
      bool missing = true;
      for (int round = 0; round < 50 && missing; ++round) {
         missing = false;
         for (auto const& player : _players) {
            Player::Lock const lock(player->mutex);
            if (player->isJoined && player->now < meeting) {
               missing = true;
               std::string const seen = refusal([&] { advance(*player, 0, meeting); });
               if (seen != "nothing" && seen != "RequestForTimeConstrainedPending") {
                  player->fault("cannot ask for an advance: " + seen);
               }
            }
         }
         settle();
      }
      if (missing) {
         _ledger.fault("time does not go on");
      }
   }

   void checkOwnership()
   {
      std::map<ObjectInstanceHandle, Attributes> owned;
      for (auto const& player : _players) {
         if (player->isJoined) {
            player->checkOwnership(owned);
         }
      }
   }

   unsigned int const _seed = static_cast<unsigned int>(fromEnvironment("SYSTEM_TESTS_SEED", 1516));
   long const _calls = fromEnvironment("SYSTEM_TESTS_CALLS", 100000);
   Ledger _ledger;
   std::vector<std::unique_ptr<Player>> _players;
};
IN_BOTH_CALLBACK_MODELS(RandomRun);

TEST_P(RandomRun, KeepsWhatIsPromised)
{
   GetParam() == HLA_EVOKED ? playInTurns() : playTogether();
   finish();
}

} // namespace
