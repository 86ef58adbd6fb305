// Stories as they are written: the files in stories/, whose language docs/architecture.md tells.
#ifndef RTI1516E_TESTS_SYSTEM_STORY_H
#define RTI1516E_TESTS_SYSTEM_STORY_H

#include <map>
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

// Throws std::runtime_error, with the place, for what is no story.
StoryFile storiesIn(std::string const& file);

// Separated by blanks; "between quotation marks" is one word.
std::vector<std::string> wordsOf(std::string const& text);
std::string joined(std::vector<std::string> const& words, std::string const& between = " ");

// With each of the texts in [this|or that] in turn.
std::vector<std::string> alternatives(std::string const& text);

// With each occurrence replaced.
std::string replaced(std::string text, std::string const& what, std::string const& by);

} // namespace system_tests

#endif
