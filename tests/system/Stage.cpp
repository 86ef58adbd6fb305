#include "Stage.h"

#include "ObjectModels.h"
#include "Services.h"
#include "src/values/BigEndian.h"

#include <RTI/time/HLAfloat64Interval.h>
#include <RTI/time/HLAfloat64Time.h>
#include <RTI/time/HLAinteger64Interval.h>
#include <RTI/time/HLAinteger64Time.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <stdexcept>

namespace system_tests {

namespace {

std::atomic<int> stages{0};

std::string integer(std::size_t value)
{
   std::string octets(4, '\0');
   storeBigEndian(&octets[0], static_cast<std::uint32_t>(value));
   return octets;
}

std::string aligned(std::string const& octets) { return octets + std::string(-octets.size() % 4, '\0'); }

// Infinity, what is no number and the least that there are too.
double number(std::string const& word)
{
   char* end = nullptr;
   double const value = std::strtod(word.c_str(), &end);
   return *end == '\0' ? value : throw Unreadable(word + " is no number");
}

} // namespace

Stage::Stage(CallbackModel model, bool integerTime)
   : _model(model), _integerTime(integerTime), _federation("story-" + std::to_string(++stages))
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

template <class Look, class LookIn>
void Stage::find(Federate& federate, std::string const& root, std::string const& name, Look look,
                 LookIn lookIn)
{
   static auto const classes = readClasses();
   std::lock_guard<std::mutex> const lock(_finding);
   auto& found = _found[root + name];
   for (auto each = classes.begin(); found.empty() && each != classes.end(); ++each) {
      std::string const& path = each->first;
      std::size_t const end = path.size() - std::min(path.size(), name.size() + 1);
      if (path.rfind(root, 0) == 0 && path.substr(end) == "." + name) {
         refusal([&] {
            auto const theClass = std::invoke(look, *federate, wide(path.substr(1)));
            found.push_back([=] { call(theClass, name); });
            for (auto const& member : each->second) {
               refusal([&] {
                  found.push_back([=, handle = std::invoke(lookIn, *federate, theClass, wide(member))] {
                     call(handle, member);
                  });
               });
            }
         });
      }
   }
   for (auto const& giveName : found) {
      giveName();
   }
}

void Stage::find(Federate& federate, std::string const& name, ObjectClassHandle)
{
   find(federate, ".HLAobjectRoot", name, &RTIambassador::getObjectClassHandle,
        &RTIambassador::getAttributeHandle);
}

void Stage::find(Federate& federate, std::string const& name, InteractionClassHandle)
{
   find(federate, ".HLAinteractionRoot", name, &RTIambassador::getInteractionClassHandle,
        &RTIambassador::getParameterHandle);
}

void Stage::find(Federate& federate, std::string const& name, DimensionHandle)
{
   refusal([&] { call(federate->getDimensionHandle(wide(name)), name); });
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
      entry.second->onCallback = nullptr;
      refusal([&] { (*entry.second)->resignFederationExecution(CANCEL_THEN_DELETE_THEN_DIVEST); });
   }
   Federate destroyer("destroyer", HLA_EVOKED, _names);
   destroyer.connect();
   for (auto const name : {"$federation", "$other"}) {
      // It takes a moment to notice that a federate is gone without resigning, and one of another process may
      // still be at work.
      std::string destroyed;
      bool const isGone = destroyer.await(
         [&] {
            destroyed = refusal([&] { destroyer->destroyFederationExecution(text(name)); });
            return destroyed == "nothing" || destroyed == "FederationExecutionDoesNotExist";
         },
         std::chrono::seconds(60));
      if (!isGone) {
         throw std::runtime_error("the federation stays: " + destroyed);
      }
   }
   for (auto const& entry : _federates) {
      refusal([&] { (*entry.second)->disconnect(); });
   }
}

std::wstring Stage::text(std::string const& word) const
{
   std::size_t const start = word.find('$');
   if (start == std::string::npos) {
      return wide(word);
   }
   std::map<std::string, std::string> const meanings = {{"$federation", _federation + "federation"},
                                                        {"$other", _federation + "other"},
                                                        {"$fom", SYSTEM_TESTS_FOM},
                                                        {"$copies", SYSTEM_TESTS_COPIES},
                                                        {"$mim", SYSTEM_TESTS_MIM}};
   std::size_t const end = std::min(word.find('/', start), word.size());
   return wide(word.substr(0, start) + meanings.at(word.substr(start, end - start)) + word.substr(end));
}

// The octets of the handle of that name, or of that number.
std::string Stage::handle(std::string const& name) const
{
   std::string octets =
      name.find_first_not_of("0123456789") == std::string::npos ? integer(std::stoul(name)) : "";
   auto const look = [&](auto const& handles) {
      auto const entry = handles.find(name);
      if (entry != handles.end()) {
         VariableLengthData const encoded = entry->second.encode();
         octets.assign(static_cast<char const*>(encoded.data()), encoded.size());
      }
   };
   std::lock_guard<std::mutex> const lock(_mutex);
   std::apply([&](auto const&... handles) { (look(handles), ...); }, _handles);
   return octets;
}

std::string Stage::value(std::string const& word) const
{
   char const form = word.size() > 1 ? word[0] : ' ';
   if (form == '(') {
      auto const elements = split(word.substr(1, word.size() - 2), ',');
      std::string octets = integer(elements.size());
      for (auto const& each : elements) {
         octets = aligned(octets) + value(each);
      }
      return octets;
   }
   std::size_t const plus = word.find('+');
   if (form == '#' && plus != std::string::npos) {
      return value(word.substr(0, plus)) + value(word.substr(plus + 1));
   }
   if (form == '#') {
      std::string const octets = handle(word.substr(1));
      return octets.empty() ? word : integer(octets.size()) + octets;
   }
   if (form == ':') {
      return integer(std::stoul(word.substr(1)));
   }
   if (form == '\'') {
      std::string octets = integer(word.size() - 2);
      for (char const character : word.substr(1, word.size() - 2)) {
         octets += {'\0', character == '_' ? ' ' : character};
      }
      return octets;
   }
   if (form == 'x' && word.size() % 2 == 1) {
      std::string octets = integer(word.size() / 2);
      for (std::size_t i = 1; i < word.size(); i += 2) {
         octets += static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16));
      }
      return octets;
   }
   return word;
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
