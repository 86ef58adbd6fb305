// Does what its arguments say, one after the other, as an erring author of a federate might have it:
// mistakes FOM-MODULE STEP[:NAME]...
#include <RTI/NullFederateAmbassador.h>
#include <RTI/RTI1516.h>
#include <RTI/time/HLAinteger64Time.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace rti1516e;

struct Federate : NullFederateAmbassador
{
   void synchronizationPointRegistrationSucceeded(std::wstring const&) override
   {
      throw FederateInternalError(L"no idea what to do with it");
   }

   std::unique_ptr<RTIambassador> rti{RTIambassadorFactory().createRTIambassador().release()};
};

void run(std::wstring const& fomModule, std::vector<std::wstring> const& given)
{
   std::vector<std::unique_ptr<Federate>> federates;
   RTIambassador* rti = nullptr; // of the federate that came last
   HLAinteger64Time time(4);
   ObjectInstanceHandle person;
   auto const personClass = [&] { return rti->getObjectClassHandle(L"Person"); };
   auto const place = [&] { return AttributeHandleSet{rti->getAttributeHandle(personClass(), L"Place")}; };
   using Name = std::wstring const&;
   std::map<std::wstring, std::function<void(Name)>> const steps = {
      {L"start", [&](Name) { rti = federates.emplace_back(std::make_unique<Federate>())->rti.get(); }},
      {L"connect", [&](Name) { rti->connect(*federates.back(), HLA_EVOKED); }},
      {L"create", [&](Name name) { rti->createFederationExecution(name, fomModule); }},
      {L"join", [&](Name name) { rti->joinFederationExecution(L"display", L"type", name); }},
      {L"class", [&](Name name) { rti->getObjectClassHandle(name); }},
      {L"publish", [&](Name) { rti->publishObjectClassAttributes(personClass(), place()); }},
      {L"register", [&](Name) { person = rti->registerObjectInstance(personClass()); }},
      {L"delete", [&](Name) { federates[0]->rti->deleteObjectInstance(person, VariableLengthData()); }},
      {L"advance", [&](Name) { rti->timeAdvanceRequest(time); }},
      {L"query", [&](Name) { rti->queryLogicalTime(time); }},
      {L"point", [&](Name name) { rti->registerFederationSynchronizationPoint(name, VariableLengthData()); }},
      {L"wait", [&](Name) { std::this_thread::sleep_for(std::chrono::seconds(3)); }},
      {L"evoke", [&](Name) { rti->evokeMultipleCallbacks(0.1, 1.0); }},
      {L"resign", [&](Name) { rti->resignFederationExecution(NO_ACTION); }},
   };
   for (std::wstring const& step : given) {
      std::size_t const colon = step.find(L':');
      steps.at(step.substr(0, colon))(colon == std::wstring::npos ? L"" : step.substr(colon + 1));
   }
}

} // namespace

int main(int argc, char* argv[])
{
   std::vector<std::wstring> arguments;
   for (std::string const argument : std::vector<char*>(argv + 1, argv + argc)) {
      arguments.emplace_back(argument.begin(), argument.end());
   }
   try {
      run(arguments.at(0), {arguments.begin() + 1, arguments.end()});
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << std::endl;
      return 1;
   }
}
