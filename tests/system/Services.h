// The services by their words.
#ifndef RTI1516E_TESTS_SYSTEM_SERVICES_H
#define RTI1516E_TESTS_SYSTEM_SERVICES_H

#include "Stage.h"

#include <functional>
#include <string>
#include <vector>

namespace system_tests {

class Words;

// What a call returned, as a text, and a way to give it a name; or the class of the exception it threw.
struct Outcome
{
   std::string method;
   std::string exception = "nothing";
   std::string message;
   std::string result;
   std::function<void(std::string const&)> call;
};

struct ServiceRow
{
   std::string name; // in steps
   std::string method;
   std::vector<std::string> exceptions;
   // Throws Unreadable for words of another service.
   std::function<std::function<Outcome()>(Stage&, Federate&, Words&)> read;

   bool lists(std::string const& exception) const;
};

std::vector<ServiceRow> const& serviceRows();

// Whether a service has refused that in any story.
bool wasRefused(ServiceRow const& row, std::string const& exception);

// Whether the words begin with "name =", rather than with a service.
bool isNamed(std::vector<std::string> const& words);

// Performs the service that takes the words, which may have "name =" in front: the result is called that.
Outcome serve(Stage& stage, Federate& federate, std::vector<std::string> words);
// Just that service; without arguments with the least there are.
Outcome serveAs(ServiceRow const& row, Stage& stage, Federate& federate,
                std::vector<std::string> const& arguments);

} // namespace system_tests

#endif
