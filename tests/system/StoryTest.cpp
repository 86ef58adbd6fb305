// Performs the stories, each in both callback models and, turn and turn about, with either kind of time.
#include "Story.h"

#include "Services.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <mutex>
#include <regex>
#include <set>

namespace {

using namespace system_tests;
using Texts = std::vector<std::string>;

std::mutex refusalsMutex;       // callbacks may have steps of their own
std::set<std::string> refusals; // in any story, as "method exception"

// Something came otherwise than the story has it.
void expectSame(std::string const& expected, std::string const& came)
{
   if (expected != came) {
      throw std::runtime_error("expected: " + expected + "\ncame:     " + came);
   }
}

class Performance
{
public:
   Performance(StoryFile const& file, CallbackModel model, bool integerTime)
      : _file(file), _stage(model, integerTime)
   {}

   // At the end nothing has come that the story does not have, and nothing of what it has is left.
   void perform(Passage const& story)
   {
      for (auto const* const lines : {&_file.opening, &story.lines}) {
         for (auto const& line : *lines) {
            perform(line);
         }
      }
      for (auto const& entry : _stage.federates()) {
         refusal([&] { (*entry.second)->enableCallbacks(); });
         expect(*entry.second, {}, false);
      }
      expectSame("0 callbacks with steps to come",
                 std::to_string(_withSteps) + " callbacks with steps to come");
   }

   void end() { _stage.end(); }

   // Where it is, for who tells of a failure.
   Line const& present() const { return _present; }

private:
   void perform(Line const& line)
   {
      for (auto const& text : alternatives(line.text)) {
         _present = line;
         _present.text = text;
         for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 4) {
            end = text.find(" => ", start);
            performOne(text.substr(start, end - start));
            if (_ofCallback) {
               std::rethrow_exception(std::exchange(_ofCallback, nullptr));
            }
         }
      }
   }

   void performOne(std::string const& text)
   {
      Texts const words = wordsOf(text);
      auto const passage = _file.passages.find(words[0]);
      if (passage != _file.passages.end()) {
         return performPassage(passage->second, {words.begin() + 1, words.end()});
      }
      if (words[0] == "federation" && words.size() <= 3) {
         return _stage.createFederation(words.at(1), words.size() == 3 ? words[2] : "");
      }
      static std::regex const form("([a-z]+(?:, [a-z]+)*)(:| <~?| on ([A-Za-z]+):) ?(.*)");
      std::smatch parts;
      if (!std::regex_match(text, parts, form)) {
         throw Unreadable("this is no step");
      }
      for (auto const& name : namesOf(parts[1])) {
         if (parts[2] != ":" && _stage.federates().count(name) == 0) {
            throw Unreadable(name + " is told before he has done anything");
         }
         Federate& federate = _stage.federate(name);
         if (parts[2] == ":") {
            _actor = name;
            steps(federate, parts[4]);
         } else if (parts[3].matched) {
            withinCallback(federate, parts[3], parts[4]);
         } else {
            expect(federate, parts[4], parts[2] == " <~");
         }
      }
   }

   // "all" are all that are joined, and "others" all but the one that acted last.
   Texts namesOf(std::string const& text)
   {
      if (text != "all" && text != "others") {
         return split(text, ',');
      }
      Texts names;
      for (auto const& [name, federate] : _stage.federates()) {
         std::string const refused = refusal([&, &rti = **federate] { rti.getAutomaticResignDirective(); });
         if (refused != "NotConnected" && refused != "FederateNotExecutionMember" &&
             text + name != "others" + _actor) {
            names.push_back(name);
         }
      }
      return names;
   }

   void performPassage(Passage const& passage, Texts const& arguments)
   {
      if (arguments.size() != passage.words.size()) {
         throw Unreadable("the passage has " + std::to_string(passage.words.size()) + " parameters");
      }
      for (Line line : passage.lines) {
         for (std::size_t i = 0; i < arguments.size(); ++i) {
            line.text = replaced(line.text, passage.words[i], arguments[i]);
         }
         perform(line);
      }
   }

   void steps(Federate& federate, std::string const& text)
   {
      for (auto const& step : split(text, ';')) {
         perform(federate, wordsOf(step));
      }
   }

   // With "-> exception text", where its message names the text, or "= result".
   void perform(Federate& federate, Texts words)
   {
      if (words == Texts{"destroyAmbassador"}) {
         return _stage.forget(federate.name());
      }
      std::string exception = "nothing";
      std::string message;
      auto const arrow = std::find(words.begin(), words.end(), "->");
      if (arrow != words.end()) {
         Texts const after(arrow + 1, words.end());
         exception = after.at(0);
         message = joined({after.begin() + 1, after.end()});
         words.erase(arrow, words.end());
      }
      if (words[0] == "*") {
         return expectOfAll(federate, exception, words);
      }
      auto const equals = std::find(words.begin() + (isNamed(words) ? 2 : 0), words.end(), "=");
      bool const hasResult = equals != words.end();
      std::string const result = hasResult ? joined({equals + 1, words.end()}) : "";
      words.erase(equals, words.end());
      Outcome const outcome = serve(_stage, federate, words);
      expectRefusal(outcome, exception, message);
      expectSame(hasResult ? result : outcome.result, outcome.result);
   }

   // "* WORDS but EXCEPTIONS": every service that takes the words, or whatever it takes if there are none,
   // and lists the exception and none of the others, throws it.
   void expectOfAll(Federate& federate, std::string const& exception, Texts const& words)
   {
      auto const but = std::find(words.begin(), words.end(), "but");
      Texts const arguments(words.begin() + 1, but);
      auto const isOther = [&](auto const& each) { return std::find(but, words.end(), each) != words.end(); };
      int count = 0;
      for (auto const& row : serviceRows()) {
         bool const others = std::any_of(row.exceptions.begin(), row.exceptions.end(), isOther);
         if (row.exceptions.count(exception) == 0 || others) {
            continue;
         }
         try {
            expectRefusal(row.serve(_stage, federate, arguments, arguments.empty()), exception, "");
            ++count;
         } catch (Unreadable const&) { // words of another
         }
      }
      expectSame(count == 0 ? "some service" : "", "");
   }

   static void expectRefusal(Outcome const& outcome, std::string const& exception, std::string const& message)
   {
      {
         std::lock_guard<std::mutex> const lock(refusalsMutex);
         refusals.insert(outcome.method + " " + outcome.exception);
      }
      bool const isIt = outcome.exception == exception && outcome.message.find(message) != std::string::npos;
      std::string const came = outcome.method + " raises " + outcome.exception + ": " + outcome.message;
      expectSame(isIt ? came : exception + " " + message, came);
   }

   void expect(Federate& federate, std::string const& text, bool inAnyOrder)
   {
      if (text == "whatever") {
         federate.callbacks();
         return;
      }
      Texts expected = split(replaced(text, "$self", federate.name()), ';');
      expected.erase(std::remove(expected.begin(), expected.end(), "nothing"), expected.end());
      for (auto& callback : expected) {
         Texts words = wordsOf(callback);
         for (auto& word : words) {
            std::size_t const value = word.find('=') + 1;
            word = value == 0 ? word : word.substr(0, value) + show(bytes(_stage.value(word.substr(value))));
         }
         callback = joined(words);
      }
      Texts came = federate.callbacks(expected.size());
      if (inAnyOrder) {
         std::sort(came.begin(), came.end());
         std::sort(expected.begin(), expected.end());
      }
      expectSame(joined(expected, "; "), joined(came, "; "));
   }

   // The steps are taken in the next callback of that name.
   void withinCallback(Federate& federate, std::string const& callback, std::string const& text)
   {
      ++_withSteps;
      federate.onCallback = [=, &federate, isTaken = false](std::string const& came) mutable {
         if (!isTaken && came.rfind(callback, 0) == 0) {
            isTaken = true;
            --_withSteps;
            try {
               steps(federate, text);
            } catch (...) {
               _ofCallback = std::current_exception();
            }
         }
      };
   }

   StoryFile const& _file;
   Stage _stage;
   Line _present;
   std::string _actor;             // who acted last
   std::atomic<int> _withSteps{0}; // callbacks
   std::exception_ptr _ofCallback;
};

// A story with the file that it stands in, and whether times are integers when callbacks are evoked.
struct Told
{
   std::string name; // of the file
   StoryFile const* file;
   Passage const* story;
   bool integerTime;
};

// They live as long as the tests.
std::vector<Told> const& allStories()
{
   static std::map<std::string, StoryFile> files;
   static std::vector<Told> all;
   if (all.empty()) {
      for (auto const& entry : std::filesystem::directory_iterator(SYSTEM_TESTS_STORIES)) {
         if (entry.path().extension() == ".story") {
            read(entry.path().filename().string(), files[entry.path().stem().string()]);
         }
      }
      for (auto const& [name, file] : files) {
         for (auto const& story : file.stories) {
            all.push_back({name, &file, &story, all.size() % 2 == 0});
         }
      }
   }
   return all;
}

// Exceptions, of any service or of one, that no story can provoke, by the reason.
std::map<std::string, std::string> const unprovokable = {
   {"RTIinternalError", "is for what the standard does not foresee"},
   {"ConnectionFailed", "the core is in the process"},
   {"InvalidLocalSettingsDesignator", "the core takes any"},
   {"UnsupportedCallbackModel", "there are two, and both are supported"},
   {"FederateServiceInvocationsAreBeingReportedViaMOM", "the core reports none"},
   {"InvalidResignAction", "the library ends the process for what is no enumerator"},
   {"InvalidOrderType", "the library ends the process for what is no enumerator"},
   {"InvalidTransportationType", "the library ends the process for what is no enumerator"},
   {"InvalidServiceGroup", "the library ends the process for what is no enumerator"},
   {"joinFederationExecution_S_S_S_URLX CouldNotCreateLogicalTimeFactory", "the federation has one"},
   {"joinFederationExecution_S_S_URLX CouldNotCreateLogicalTimeFactory", "the federation has one"},
};

class Stories : public testing::TestWithParam<std::tuple<Told, CallbackModel>>
{
public:
   // When all stories have been told, each exception of each service was provoked once.
   static void TearDownTestSuite()
   {
      std::string missing;
      for (auto const& row : serviceRows()) {
         for (auto const& exception : row.exceptions) {
            std::string const refusal = row.method + " " + exception;
            if (refusals.count(refusal) == 0 &&
                unprovokable.count(exception) + unprovokable.count(refusal) == 0) {
               missing += "\n   " + refusal;
            }
         }
      }
      auto const& suite = *testing::UnitTest::GetInstance()->current_test_suite();
      EXPECT_TRUE(suite.test_to_run_count() < suite.total_test_count() || missing.empty())
         << "never refused:" << missing;
   }

   static std::string nameOf(testing::TestParamInfo<ParamType> const& info)
   {
      Told const& told = std::get<0>(info.param);
      std::string name = told.name + "_";
      for (auto word : told.story->words) {
         word[0] = static_cast<char>(std::toupper(word[0]));
         std::copy_if(word.begin(), word.end(), std::back_inserter(name),
                      [](char c) { return std::isalnum(c); });
      }
      return name + (std::get<1>(info.param) == HLA_EVOKED ? "_Evoked" : "_Immediate");
   }
};

TEST_P(Stories, AreTold)
{
   auto const& [told, model] = GetParam();
   Performance performance(*told.file, model, (model == HLA_EVOKED) == told.integerTime);
   for (bool const isOver : {false, true}) {
      contract::Caught const caught =
         contract::caughtFrom([&] { isOver ? performance.end() : performance.perform(*told.story); });
      Line const& line = performance.present();
      if (!caught.type.empty()) {
         ADD_FAILURE_AT(line.file.c_str(), line.number)
            << "story " << joined(told.story->words) << "\n   " << line.text << "\n"
            << narrow(caught.text);
      }
   }
}
INSTANTIATE_TEST_SUITE_P(, Stories,
                         testing::Combine(testing::ValuesIn(allStories()),
                                          testing::Values(HLA_EVOKED, HLA_IMMEDIATE)),
                         Stories::nameOf);

} // namespace
