// What the federates of a random run share: what can be retracted, what was, and what was found to be wrong.
#ifndef RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H
#define RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H

#include "Text.h"

#include <RTI/RTI1516.h>

#include <atomic>
#include <cstddef>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace system_tests {

class Player;

struct Ledger
{
   using Lock = std::lock_guard<std::recursive_mutex>;

   // Players that act on threads of their own do not know for certain what the others were told already.
   bool concurrent = false;
   std::vector<Player*> players;
   std::atomic<std::size_t> messages{0}; // a message's number goes with it as its tag

   std::recursive_mutex mutex; // guards what follows
   std::map<MessageRetractionHandle, std::size_t> retractable;
   std::set<std::size_t> retracted;
   std::vector<std::string> faults;

   void fault(std::string const& what)
   {
      Lock const lock(mutex);
      faults.push_back(what);
   }
   bool isFaultless()
   {
      Lock const lock(mutex);
      return faults.empty();
   }
};

} // namespace system_tests

#endif
