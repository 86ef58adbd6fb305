// The services by the words of a story.
#ifndef RTI1516E_TESTS_SYSTEM_STORYSERVICES_H
#define RTI1516E_TESTS_SYSTEM_STORYSERVICES_H

#include "Stage.h"
#include "StoryWords.h"

#include <functional>
#include <string>
#include <vector>

namespace system_tests {

// What a service returned, as a text, and a way to give it a name.
struct Outcome
{
   std::string text;
   std::function<void(std::string const&)> call;
};
using Invocation = std::function<Outcome()>;

struct ServiceRow
{
   std::string name; // in stories
   std::string method;
   std::vector<std::string> exceptions;
   std::function<Invocation(StoryWords&)> read; // throws Unreadable for words of another service

   bool lists(std::string const& exception) const;
};

std::vector<ServiceRow> const& serviceRows();

// Whether a step may begin with the name.
bool isService(std::string const& name);

} // namespace system_tests

#endif
