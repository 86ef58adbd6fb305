// What the federates of a random run share: whatever they sent, and what was found to be wrong.
#ifndef RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H
#define RTI1516E_TESTS_SYSTEM_RANDOMLEDGER_H

#include <RTI/RTI1516.h>

#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace system_tests {

class Player;

class Ledger
{
public:
   // An update, which has parts, or an interaction, which is of no object and has one.
   struct Message
   {
      rti1516e::FederateHandle producer;
      rti1516e::ObjectInstanceHandle object;
      bool retracted = false;
   };

   // Players that act on threads of their own do not know for certain what the others were told already.
   explicit Ledger(bool areConcurrent) : concurrent(areConcurrent) {}

   bool const concurrent;
   std::vector<Player*> players;

   // Before it is sent, for it may arrive before the service returns. The number goes with it as its tag.
   std::size_t add(Message const& message)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      _messages.push_back(message);
      return _messages.size() - 1;
   }
   std::size_t count() const
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return _messages.size();
   }
   Message message(std::size_t id) const
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return _messages.at(id);
   }

   void mayRetract(rti1516e::MessageRetractionHandle const& handle, std::size_t id)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      if (!_retractable.emplace(handle, id).second) {
         _faults.push_back("a retraction handle is given twice");
      }
   }
   std::size_t retractable(rti1516e::MessageRetractionHandle const& handle) const
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return _retractable.at(handle);
   }
   void retract(std::size_t id)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      _messages[id].retracted = true;
   }

   void fault(std::string const& what)
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      if (_faults.size() < 20) {
         _faults.push_back(what);
      }
   }
   std::vector<std::string> faults() const
   {
      std::lock_guard<std::mutex> const lock(_mutex);
      return _faults;
   }

private:
   mutable std::mutex _mutex;
   std::vector<Message> _messages;
   std::map<rti1516e::MessageRetractionHandle, std::size_t> _retractable;
   std::vector<std::string> _faults;
};

} // namespace system_tests

#endif
