#include "Story.h"

#include "Text.h"

#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace system_tests {

namespace {

[[noreturn]] void fail(Line const& line, std::string const& why)
{
   throw std::runtime_error(line.file + ":" + std::to_string(line.number) + ": " + why + ": " + line.text);
}

std::string trimmed(std::string const& text)
{
   std::size_t const first = text.find_first_not_of(' ');
   return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string withoutComment(std::string const& text)
{
   return text.substr(0, text.rfind('#', 0) == 0 ? 0 : text.find(" # "));
}

// Lines that are not empty, without comments; one that stands further in than steps do goes on with the one
// before.
std::vector<Line> linesOf(std::string const& file)
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

void read(std::string const& path, StoryFile& into)
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

} // namespace

StoryFile storiesIn(std::string const& file)
{
   StoryFile stories;
   std::size_t const start = file.rfind('/') + 1;
   stories.name = file.substr(start, file.rfind('.') - start);
   read(file, stories);
   return stories;
}

std::vector<std::string> wordsOf(std::string const& text)
{
   std::vector<std::string> words;
   std::istringstream in(text);
   for (std::string word; in >> std::quoted(word);) {
      words.push_back(word);
   }
   return words;
}

std::string joined(std::vector<std::string> const& words, std::string const& between)
{
   std::string text;
   for (auto const& word : words) {
      text += (text.empty() ? "" : between) + word;
   }
   return text;
}

std::vector<std::string> alternatives(std::string const& text)
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

std::string replaced(std::string text, std::string const& what, std::string const& by)
{
   for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
      text.replace(at, what.size(), by);
   }
   return text;
}

} // namespace system_tests
