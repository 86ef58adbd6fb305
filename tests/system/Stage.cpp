#include "Stage.h"

#include "Refusal.h"
#include "src/values/BigEndian.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <atomic>
#include <regex>
#include <stdexcept>

namespace system_tests {

namespace {

std::string uniqueName()
{
   static std::atomic<int> count{0};
   return "story-" + std::to_string(++count);
}

// Infinity and what is no number too.
double number(std::string const& word)
{
   std::size_t read = 0;
   double const value = std::stod(word, &read);
   if (read != word.size()) {
      throw std::invalid_argument(word);
   }
   return value;
}

} // namespace

Stage::Stage(CallbackModel model, bool integerTime)
   : _model(model), _integerTime(integerTime), _federation(uniqueName())
{
   for (auto const name : {"$federation", "$other"}) {
      _names.add(text(name), name);
   }
}

Federate& Stage::federate(std::string const& name)
{
   auto& federate = _federates[name];
   if (!federate) {
      federate = std::make_unique<Federate>(name, _model, _names);
   }
   return *federate;
}

void Stage::createFederation(std::string const& module, std::string const& time)
{
   _integerTime = time.empty() ? _integerTime : time == "integer";
   Federate creator("creator", HLA_EVOKED, _names);
   creator.connect();
   creator->createFederationExecution(text("$federation"), text("$fom/" + module),
                                      _integerTime ? L"HLAinteger64Time" : L"HLAfloat64Time");
}

void Stage::end()
{
   for (auto const& entry : _federates) {
      refusal([&] { (*entry.second)->resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
   }
   Federate destroyer("destroyer", HLA_EVOKED, _names);
   destroyer.connect();
   for (auto const name : {"$federation", "$other"}) {
      std::string const destroyed = refusal([&] { destroyer->destroyFederationExecution(text(name)); });
      if (destroyed != "nothing" && destroyed != "FederationExecutionDoesNotExist") {
         throw std::runtime_error("the federation stays: " + destroyed);
      }
   }
   for (auto const& entry : _federates) {
      refusal([&] { (*entry.second)->disconnect(); });
   }
}

std::wstring Stage::text(std::string const& word) const
{
   static std::pair<std::string, std::string> const places[] = {
      {"$fom", SYSTEM_TESTS_FOM}, {"$copies", SYSTEM_TESTS_COPIES}, {"$mim", SYSTEM_TESTS_MIM}};
   std::size_t const start = word.find('$');
   if (start == std::string::npos) {
      return wide(word);
   }
   std::size_t const end = word.find('/', start);
   std::string const name = word.substr(start, end - start);
   std::string value;
   for (auto const& place : places) {
      value = name == place.first ? place.second : value;
   }
   if (name == "$federation" || name == "$other") {
      value = _federation + name.substr(1);
   }
   if (value.empty()) {
      throw std::runtime_error(name + " stands for nothing");
   }
   return wide(word.substr(0, start) + value + (end == std::string::npos ? "" : word.substr(end)));
}

std::string Stage::handlesIn(std::string const& text) const
{
   static std::regex const named("#([A-Za-z]+)");
   std::string result = text;
   for (std::smatch found; std::regex_search(result, found, named);) {
      std::string number;
      auto const look = [&](auto const& handles) {
         auto const entry = handles.find(found[1]);
         if (entry != handles.end()) {
            number = std::to_string(loadBigEndian<std::uint32_t>(entry->second.encode().data()));
         }
      };
      std::lock_guard<std::mutex> const lock(_mutex);
      std::apply([&](auto const&... handles) { (look(handles), ...); }, _handles);
      if (number.empty()) {
         return result;
      }
      result.replace(found.position(), found.length(), "#" + number);
   }
   return result;
}

std::unique_ptr<LogicalTime> Stage::time(std::string const& word, Federate& federate) const
{
   if (word == "final") {
      return std::unique_ptr<LogicalTime>(federate->getTimeFactory()->makeFinal().release());
   }
   double const from = word[0] == '+' ? number(show(*federate->queryLogicalTime())) : 0;
   double const value = from + number(word);
   if (_integerTime) {
      return std::make_unique<HLAinteger64Time>(static_cast<Integer64>(value));
   }
   return std::make_unique<HLAfloat64Time>(value);
}

std::unique_ptr<LogicalTimeInterval> Stage::interval(std::string const& word) const
{
   if (_integerTime) {
      return std::make_unique<HLAinteger64Interval>(static_cast<Integer64>(number(word)));
   }
   return std::make_unique<HLAfloat64Interval>(number(word));
}

} // namespace system_tests
