#include "Services.h"

#include "Words.h"
#include "src/services/Services.h"

#include <algorithm>
#include <cstring>
#include <tuple>

namespace system_tests {

namespace {

template <class Handle>
void nameResult(Stage& stage, Federate& federate, Handle const& result, std::string const& given)
{
   if constexpr (std::is_same_v<Handle, ObjectInstanceHandle>) {
      std::wstring its; // unless another federate has deleted it since
      contract::caughtFrom([&] { its = federate->getObjectInstanceName(result); });
      if (its.rfind(L"HLA", 0) == 0) { // which nobody chose
         stage.names().add(its, given);
      }
   }
   stage.call(result, given);
}

// The member of the ambassador that it is called by.
std::string nameOf(std::string const& method, std::string const& call)
{
   return call.rfind("rti.", 0) == 0 ? call.substr(4, call.find('(') - 4)
                                     : method.substr(0, method.find('_'));
}

// What the service reads, in the order of the codes, and the call with it.
template <class Result, class... Codes, class Call>
ServiceRow row(tovu1516e::Service<Result(Codes...)> const& method, std::string const& name, Call service)
{
   auto const serve = [service, &method](Stage& stage, Federate& federate, auto const& texts, bool blank) {
      Words words(stage, federate, texts, sizeof...(Codes), blank);
      using Arguments = std::tuple<decltype(words.argument<Codes>())...>;
      Arguments const arguments{words.argument<Codes>()...};
      words.expectEnd();
      auto const apply = [&](auto const&... values) { return service(*federate, values...); };
      Outcome outcome;
      outcome.method = method.name;
      std::function<void()> const call = [&] {
         if constexpr (std::is_void_v<decltype(std::apply(apply, arguments))>) {
            std::apply(apply, arguments);
         } else {
            auto const result = std::apply(apply, arguments);
            outcome.result = stage.names().in(show(result));
            if constexpr (isHandle<std::decay_t<decltype(result)>>) {
               outcome.call = [result, &stage, &federate](auto const& given) {
                  nameResult(stage, federate, result, given);
               };
            }
         }
      };
      contract::Caught const caught = contract::caughtFrom(call);
      if (!caught.type.empty()) {
         outcome.exception = caught.type;
         outcome.message = narrow(caught.text);
      }
      return outcome;
   };
   ServiceRow row{name, method.name, {}, serve};
   for (std::size_t i = 0; i < method.exceptions.count; ++i) {
      row.exceptions.insert(std::strrchr(method.exceptions.first[i].javaClass, '/') + 1);
   }
   return row;
}

} // namespace

std::vector<ServiceRow> const& serviceRows()
{
#define SERVICE(method, signature, call)                                   \
   row(tovu1516e::services::method, nameInStories(nameOf(#method, #call)), \
       [](RTIambassador& rti, auto const&... each) { return call; }),
   static std::vector<ServiceRow> const rows = {
#include "tests/support/Services.def"
   };
   return rows;
}

bool isNamed(std::vector<std::string> const& words)
{
   auto const& rows = serviceRows();
   return words.size() > 2 && words[1] == "=" &&
          std::none_of(rows.begin(), rows.end(), [&](auto const& row) { return row.name == words[0]; });
}

Outcome serve(Stage& stage, Federate& federate, std::vector<std::string> words)
{
   std::string given;
   if (isNamed(words)) {
      given = words[0];
      words.erase(words.begin(), words.begin() + 2);
   }
   // Joins the federation under the federate's own name, connected first if it is not yet.
   if (words[0] == "join") {
      refusal([&] { federate.connect(); });
      words.insert(words.begin() + 1, {federate.name(), "test", "$federation"});
      words[0] = "joinFederationExecution";
      given = federate.name();
   }
   std::string why = words[0] + " is no service";
   for (auto const& row : serviceRows()) {
      try {
         if (row.name == words[0]) {
            Outcome const outcome = row.serve(stage, federate, {words.begin() + 1, words.end()}, false);
            if (!given.empty() && outcome.exception == "nothing") {
               outcome.call(given); // only handles have names
            }
            return outcome;
         }
      } catch (Unreadable const& error) {
         why = error.what();
      }
   }
   throw Unreadable(why);
}

} // namespace system_tests
