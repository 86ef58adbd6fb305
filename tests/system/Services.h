// The services by their words.
#ifndef RTI1516E_TESTS_SYSTEM_SERVICES_H
#define RTI1516E_TESTS_SYSTEM_SERVICES_H

#include "Stage.h"

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace system_tests {

// Words that the service does not take.
class Unreadable : public std::runtime_error
{
   using std::runtime_error::runtime_error;
};

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
   std::set<std::string> exceptions;
   // Without arguments, if it is to be blank, with the least there are.
   std::function<Outcome(Stage&, Federate&, std::vector<std::string> const& arguments, bool blank)> serve;
};

std::vector<ServiceRow> const& serviceRows();

// Whether the words begin with "name =", rather than with a service.
bool isNamed(std::vector<std::string> const& words);

// Performs the service that takes the words, which may have "name =" in front: the result is called that.
Outcome serve(Stage& stage, Federate& federate, std::vector<std::string> words);

} // namespace system_tests

#endif
