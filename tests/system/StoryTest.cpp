// Performs the stories, each in both callback models and, turn and turn about, with either kind of time.
#include "Story.h"

#include "Services.h"
#include "Words.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace {

using namespace system_tests;

// Something came otherwise than the story has it.
struct Turn
{
   std::string expected;
   std::string came;
};

class Performance
{
public:
   Performance(StoryFile const& file, CallbackModel model, bool integerTime)
      : _file(file), _stage(model, integerTime)
   {}

   void perform(Story const& story)
   {
      for (auto const* const lines : {&_file.opening, &story.lines}) {
         for (auto const& line : *lines) {
            perform(line);
         }
      }
   }

   // Nothing has come that the story does not have, and nothing of what it has is left.
   void finish()
   {
      for (auto const& entry : _stage.federates()) {
         refusal([&] { (*entry.second)->enableCallbacks(); });
         expectCallbacks(*entry.second, {}, false);
         if (_withinCallbacks.count(entry.first) != 0) {
            throw Turn{"a callback in which " + _withinCallbacks[entry.first].second, "none"};
         }
      }
   }

   void end()
   {
      for (auto const& entry : _stage.federates()) {
         entry.second->onCallback = nullptr;
      }
      _stage.end();
   }

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
            tellOfCallbacks();
         }
      }
   }

   void performOne(std::string const& text)
   {
      std::vector<std::string> words = wordsOf(text);
      auto const passage = _file.passages.find(words[0]);
      if (passage != _file.passages.end()) {
         return performPassage(passage->second, {words.begin() + 1, words.end()});
      }
      if (words[0] == "federation" && words.size() <= 3) {
         return _stage.createFederation(words.at(1), words.size() == 3 ? words[2] : "");
      }
      // The federates end where what they do, or are told, begins.
      std::size_t i = 0;
      std::vector<Federate*> federates;
      std::size_t known = 0;
      bool isLast = false;
      for (; i < words.size() && !isLast && words[i] != "<" && words[i] != "<~" && words[i] != "on"; ++i) {
         isLast = words[i].back() == ':';
         std::string const name = words[i].substr(0, words[i].find_first_of(",:"));
         known += _stage.has(name) ? 1 : 0;
         federates.push_back(&_stage.federate(name));
      }
      if (federates.empty() || (!isLast && i + 1 >= words.size())) {
         throw Unreadable("this is no step");
      }
      std::string const mark = isLast ? ":" : words[i];
      if (!isLast && known < federates.size()) {
         throw Unreadable("somebody is told before he has done anything");
      }
      std::size_t const start =
         mark == ":" ? text.find(':') + 1 : text.find(" " + mark + " ") + mark.size() + 2;
      std::string const rest = text.substr(start);
      for (Federate* const federate : federates) {
         if (mark == ":") {
            steps(*federate, rest);
         } else if (mark == "on") {
            withinCallback(*federate, words[i + 1], rest);
         } else {
            expect(*federate, rest, mark == "<~");
         }
      }
   }

   void performPassage(Passage const& passage, std::vector<std::string> const& arguments)
   {
      if (arguments.size() != passage.parameters.size()) {
         throw Unreadable("the passage has " + std::to_string(passage.parameters.size()) + " parameters");
      }
      for (Line line : passage.lines) {
         for (std::size_t i = 0; i < arguments.size(); ++i) {
            line.text = replaced(line.text, passage.parameters[i], arguments[i]);
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
   void perform(Federate& federate, std::vector<std::string> words)
   {
      if (words == std::vector<std::string>{"destroyAmbassador"}) {
         return _stage.forget(federate.name());
      }
      std::string exception = "nothing";
      std::string message;
      auto const arrow = std::find(words.begin(), words.end(), "->");
      if (arrow != words.end()) {
         std::vector<std::string> const after(arrow + 1, words.end());
         exception = after.at(0);
         message = joined({after.begin() + 1, after.end()});
         words.erase(arrow, words.end());
      }
      if (words == std::vector<std::string>{"*"}) {
         return expectOfAll(federate, exception);
      }
      auto const equals = std::find(words.begin() + (isNamed(words) ? 2 : 0), words.end(), "=");
      bool const hasResult = equals != words.end();
      std::string const result = hasResult ? joined({equals + 1, words.end()}) : "";
      words.erase(equals, words.end());
      Outcome const outcome = serve(_stage, federate, words);
      expectRefusal(outcome, exception, message);
      if (hasResult && outcome.result != result) {
         throw Turn{result, outcome.result};
      }
   }

   // Every service that lists the exception throws it, whatever the arguments. Joining is refused to who has
   // joined before anything else.
   void expectOfAll(Federate& federate, std::string const& exception)
   {
      bool const isFirst = exception == "NotConnected" || exception == "CallNotAllowedFromWithinCallback";
      for (auto const& row : serviceRows()) {
         if (row.lists(exception) && (isFirst || !row.lists("FederateAlreadyExecutionMember"))) {
            expectRefusal(serveBlank(_stage, federate, row), exception, "");
         }
      }
   }

   static void expectRefusal(Outcome const& outcome, std::string const& exception, std::string const& message)
   {
      if (outcome.exception != exception || outcome.message.find(message) == std::string::npos) {
         throw Turn{exception + " " + message,
                    outcome.method + " raises " + outcome.exception + ": " + outcome.message};
      }
   }

   void expect(Federate& federate, std::string const& text, bool inAnyOrder)
   {
      std::vector<std::string> callbacks = split(text, ';');
      if (callbacks == std::vector<std::string>{"whatever"}) {
         federate.callbacks();
         return;
      }
      if (callbacks == std::vector<std::string>{"nothing"}) {
         callbacks.clear();
      }
      for (auto& callback : callbacks) {
         std::vector<std::string> words = wordsOf(callback);
         for (auto& word : words) {
            std::size_t const value = word.find('=') + 1;
            word = value == 0 ? word : word.substr(0, value) + show(bytes(_stage.value(word.substr(value))));
         }
         callback = joined(words);
      }
      expectCallbacks(federate, callbacks, inAnyOrder);
   }

   void expectCallbacks(Federate& federate, std::vector<std::string> expected, bool inAnyOrder)
   {
      Federate::Callbacks came = federate.callbacks(expected.size());
      if (inAnyOrder) {
         std::sort(came.begin(), came.end());
         std::sort(expected.begin(), expected.end());
      }
      if (came != expected) {
         throw Turn{joined(expected, "; "), joined(came, "; ")};
      }
   }

   // The steps are taken in the next callback of that name.
   void withinCallback(Federate& federate, std::string const& callback, std::string const& text)
   {
      std::size_t const colon = text.find(':');
      if (colon == std::string::npos) {
         throw Unreadable("on which callback to take which steps?");
      }
      std::string const name = federate.name();
      _withinCallbacks[name] = {callback.substr(0, callback.find(':')), text.substr(colon + 1)};
      federate.onCallback = [this, &federate, name](std::string const& came) {
         auto const found = _withinCallbacks.find(name);
         if (found != _withinCallbacks.end() && came.rfind(found->second.first, 0) == 0) {
            std::string const its = found->second.second;
            _withinCallbacks.erase(found);
            try {
               steps(federate, its);
            } catch (...) {
               _ofCallback = std::current_exception();
            }
         }
      };
   }

   void tellOfCallbacks()
   {
      if (_ofCallback) {
         std::rethrow_exception(std::exchange(_ofCallback, nullptr));
      }
   }

   StoryFile const& _file;
   Stage _stage;
   Line _present;
   std::map<std::string, std::pair<std::string, std::string>> _withinCallbacks; // by federates: which, what
   std::exception_ptr _ofCallback;
};

class StoryTest : public testing::Test
{
public:
   StoryTest(StoryFile const& file, Story const& story, CallbackModel model, bool integerTime)
      : _file(file), _story(story), _performance(file, model, integerTime)
   {}

   static int performed;

private:
   void TestBody() override
   {
      ++performed;
      telling([&] {
         _performance.perform(_story);
         _performance.finish();
      });
      telling([&] { _performance.end(); });
   }

   template <class Call>
   void telling(Call&& call)
   {
      try {
         call();
      } catch (Turn const& turn) {
         fail("expected: " + turn.expected + "\ncame:     " + turn.came);
      } catch (Exception const& exception) {
         fail(narrow(exception.what()));
      } catch (std::exception const& exception) {
         fail(exception.what());
      }
   }

   void fail(std::string const& what) const
   {
      Line const& line = _performance.present();
      ADD_FAILURE_AT(line.file.c_str(), line.number)
         << "story " << _story.title << "\n   " << line.text << "\n"
         << what;
   }

   StoryFile const& _file;
   Story const& _story;
   Performance _performance;
};
int StoryTest::performed = 0;

std::string asTestName(std::string const& title)
{
   std::string name;
   for (auto& word : wordsOf(title)) {
      word[0] = static_cast<char>(std::toupper(word[0]));
      std::copy_if(word.begin(), word.end(), std::back_inserter(name),
                   [](char c) { return std::isalnum(c); });
   }
   return name;
}

// Of all story files; they live as long as the tests.
int registerStories()
{
   static std::vector<StoryFile> files;
   std::set<std::string> paths;
   for (auto const& entry : std::filesystem::directory_iterator(SYSTEM_TESTS_STORIES)) {
      if (entry.path().extension() == ".story") {
         paths.insert(entry.path().string());
      }
   }
   for (auto const& path : paths) {
      files.push_back(storiesIn(path));
   }
   int count = 0;
   for (auto const& file : files) {
      for (auto const& story : file.stories) {
         for (CallbackModel const model : {HLA_EVOKED, HLA_IMMEDIATE}) {
            bool const integerTime = (model == HLA_EVOKED) == (count % 2 == 0);
            std::string const name =
               asTestName(story.title) + (model == HLA_EVOKED ? "/Evoked" : "/Immediate");
            testing::RegisterTest(("Story." + file.name).c_str(), name.c_str(), nullptr, nullptr, __FILE__,
                                  __LINE__, [&file, &story, model, integerTime]() -> StoryTest* {
                                     return new StoryTest(file, story, model, integerTime);
                                  });
         }
         ++count;
      }
   }
   return count;
}

int const registered = registerStories();

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

// Each exception of each service was provoked once. To be asked when all stories have been told.
TEST(Refusals, AreAllProvoked)
{
   if (StoryTest::performed < 2 * registered) {
      GTEST_SKIP() << "not all stories were told";
   }
   std::string missing;
   for (auto const& row : serviceRows()) {
      for (auto const& exception : row.exceptions) {
         std::string const refusal = row.method + " " + exception;
         if (!wasRefused(row, exception) &&
             unprovokable.count(exception) + unprovokable.count(refusal) == 0) {
            missing += "\n   " + refusal;
         }
      }
   }
   EXPECT_EQ(missing, "");
}

} // namespace
