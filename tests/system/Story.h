// Stories as they are written: the files in stories/, whose language docs/architecture.md tells.
#ifndef RTI1516E_TESTS_SYSTEM_STORY_H
#define RTI1516E_TESTS_SYSTEM_STORY_H

#include "Text.h"

#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace system_tests {

// A line of a file with the files' other lines joined to it that it goes on in.
struct Line
{
   std::string file;
   int number = 0;
   std::string text;
};

// What "story TITLE" begins, or "to NAME $one $two": lines that a story has by naming them.
struct Passage
{
   std::vector<std::string> words; // the title or the parameters
   std::vector<Line> lines;
};

struct StoryFile
{
   std::vector<Line> opening; // of every story in it
   std::map<std::string, Passage> passages;
   std::vector<Passage> stories;
};

// Steps stand indented, and what goes on with the one before further in than they do.
inline void read(std::string const& name, StoryFile& into)
{
   std::string const path = SYSTEM_TESTS_STORIES "/" + name;
   std::ifstream in(path);
   std::vector<Line>* present = &into.opening;
   int number = 0;
   for (std::string text; std::getline(in, text);) {
      ++number;
      text = text.substr(0, text.rfind('#', 0) == 0 ? 0 : text.find(" # ")); // without a comment
      std::vector<std::string> const words = wordsOf(text);
      if (words.empty()) {
         continue;
      }
      if (text.rfind("      ", 0) == 0) {
         present->back().text += " " + trimmed(text);
      } else if (text[0] == ' ') {
         present->push_back({path, number, trimmed(text)});
      } else if (words[0] == "include") {
         read(words.at(1), into);
      } else if (words[0] == "to") {
         Passage& passage = into.passages[words.at(1)] = {{words.begin() + 2, words.end()}, {}};
         present = &passage.lines;
      } else if (words[0] == "story") {
         into.stories.push_back({{words.begin() + 1, words.end()}, {}});
         present = &into.stories.back().lines;
      } else {
         throw std::runtime_error(path + ":" + std::to_string(number) +
                                  ": neither a story nor a step of one");
      }
   }
}

// With each of the texts in [this|or that] in turn.
inline std::vector<std::string> alternatives(std::string const& text)
{
   std::size_t const open = text.find('[');
   std::size_t const close = text.find(']', open);
   if (open == std::string::npos || close == std::string::npos) {
      return {text};
   }
   std::vector<std::string> all;
   for (auto const& one : split(text.substr(open + 1, close - open - 1), '|')) {
      for (auto const& whole : alternatives(text.substr(0, open) + one + text.substr(close + 1))) {
         all.push_back(whole);
      }
   }
   return all;
}

// With each occurrence replaced.
inline std::string replaced(std::string text, std::string const& what, std::string const& by)
{
   for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
      text.replace(at, what.size(), by);
   }
   return text;
}

} // namespace system_tests

#endif
