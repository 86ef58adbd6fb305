// In front of the recording core stand exception classes that are each a subclass of the next in
// exceptionClasses(), so that nearly every exception is an instance of several classes that a service lists.
#include "Fixture.h"
#include "Services.h"

#include <algorithm>

namespace contract {
namespace {

using ExceptionOrderTest = ContractTest;

std::ptrdiff_t placeInChain(std::string const& name)
{
   auto const& chain = exceptionClasses();
   return std::find(chain.begin(), chain.end(), name) - chain.begin();
}

TEST_F(ExceptionOrderTest, TheFirstListedClassOfWhichItIsAnInstanceIsThrown)
{
   for (auto const& service : services()) {
      auto const& listed = service.method.exceptions;
      for (auto const& thrown : exceptionClasses()) {
         auto const expected = std::find_if(listed.begin(), listed.end(), [&](auto& name) {
            return placeInChain(name) >= placeInChain(thrown);
         });
         if (expected == listed.end()) {
            continue;
         }
         core.answer(service.method.name, JavaException{hlaClass(thrown), u"why"});
         EXPECT_EQ(caughtFrom([&] { service.call(rti); }), (Caught{*expected, L"why"}))
            << service.method.name << " when the core throws " << thrown;
      }
   }
}

} // namespace
} // namespace contract
