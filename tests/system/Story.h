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

// What "to NAME $one $two" begins: lines that a story has by naming them.
struct Passage
{
   std::vector<std::string> parameters;
   std::vector<Line> lines;
};

struct Story
{
   std::string title;
   std::vector<Line> lines;
};

struct StoryFile
{
   std::string name;
   std::vector<Line> opening; // of every story in it
   std::map<std::string, Passage> passages;
   std::vector<Story> stories;
};

[[noreturn]] inline void fail(Line const& line, std::string const& why)
{
   throw std::runtime_error(line.file + ":" + std::to_string(line.number) + ": " + why + ": " + line.text);
}

inline std::string withoutComment(std::string const& text)
{
   return text.substr(0, text.rfind('#', 0) == 0 ? 0 : text.find(" # "));
}

// Lines that are not empty, without comments; one that stands further in than steps do goes on with the one
// before.
inline std::vector<Line> linesOf(std::string const& file)
{
   std::ifstream in(file);
   if (!in) {
      throw std::runtime_error(file + " cannot be read");
   }
   std::vector<Line> lines;
   int number = 0;
   for (std::string text; std::getline(in, text);) {
      ++number;
      text = withoutComment(text);
      std::string const content = trimmed(text);
      if (content.empty()) {
         continue;
      }
      if (text.rfind("      ", 0) == 0 && !lines.empty()) {
         lines.back().text += " " + content;
      } else {
         lines.push_back({file, number, (text[0] == ' ' ? "   " : "") + content});
      }
   }
   return lines;
}

inline void read(std::string const& path, StoryFile& into)
{
   std::vector<Line>* present = nullptr;
   for (Line line : linesOf(path)) {
      std::vector<std::string> const words = wordsOf(line.text);
      if (line.text[0] == ' ') {
         if (present == nullptr) {
            fail(line, "a step of no story");
         }
         line.text = trimmed(line.text);
         present->push_back(line);
      } else if (line.text == "every story") {
         present = &into.opening;
      } else if (words[0] == "include" && words.size() == 2) {
         read(path.substr(0, path.rfind('/') + 1) + words[1], into);
      } else if (words[0] == "to" && words.size() > 1) {
         Passage& passage = into.passages[words[1]];
         passage.parameters.assign(words.begin() + 2, words.end());
         present = &passage.lines;
      } else if (words[0] == "story" && words.size() > 1) {
         into.stories.push_back({trimmed(line.text.substr(5)), {}});
         present = &into.stories.back().lines;
      } else {
         fail(line, "neither a story nor a step of one");
      }
   }
}

// Throws std::runtime_error, with the place, for what is no story.
inline StoryFile storiesIn(std::string const& file)
{
   StoryFile stories;
   std::size_t const start = file.rfind('/') + 1;
   stories.name = file.substr(start, file.rfind('.') - start);
   read(file, stories);
   return stories;
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
