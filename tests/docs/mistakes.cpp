// Makes the mistake that its argument names, as a federate's author might: mistakes MISTAKE FOM-MODULE.
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

namespace {

using namespace rti1516e;

std::wstring fomModule;

class Thrower : public NullFederateAmbassador
{
   void synchronizationPointRegistrationSucceeded(std::wstring const&) override
   {
      throw FederateInternalError(L"no idea what to do with it");
   }
};

// A federate that has done all that comes before its mistake.
struct Federate
{
   explicit Federate(std::wstring const& federation = L"Room")
   {
      rti->connect(callbacks, HLA_EVOKED);
      rti->createFederationExecution(federation, fomModule);
      rti->joinFederationExecution(L"display", L"type", federation);
   }

   ObjectInstanceHandle registerPerson()
   {
      person = rti->getObjectClassHandle(L"Person");
      AttributeHandleSet attributes;
      attributes.insert(rti->getAttributeHandle(person, L"Place"));
      rti->publishObjectClassAttributes(person, attributes);
      return rti->registerObjectInstance(person);
   }

   Thrower callbacks;
   std::unique_ptr<RTIambassador> rti{RTIambassadorFactory().createRTIambassador().release()};
   ObjectClassHandle person;
};

std::map<std::string, std::function<void()>> const mistakes = {
   {"none", [] { Federate federate; }},
   {"not connected",
    [] {
       std::unique_ptr<RTIambassador> rti(RTIambassadorFactory().createRTIambassador().release());
       rti->createFederationExecution(L"Room", fomModule);
    }},
   {"wrong FOM",
    [] {
       fomModule = L"rom.xml";
       Federate federate;
    }},
   {"FOM is a folder",
    [] {
       fomModule = L"fom";
       Federate federate;
    }},
   {"FOM is no XML",
    [] {
       fomModule = L"notes.txt";
       Federate federate;
    }},
   {"FOM is another XML",
    [] {
       fomModule = L"page.xml";
       Federate federate;
    }},
   {"wrong name", [] { Federate().rti->getObjectClassHandle(L"Thermometr"); }},
   {"name not in full", [] { Federate().rti->getObjectClassHandle(L"person"); }},
   {"no such federation",
    [] {
       Federate federate;
       federate.rti->resignFederationExecution(NO_ACTION);
       federate.rti->joinFederationExecution(L"display", L"type", L"Rome");
    }},
   {"not joined",
    [] {
       Federate federate;
       federate.rti->resignFederationExecution(NO_ACTION);
       federate.rti->getObjectClassHandle(L"Person");
    }},
   {"not published",
    [] {
       Federate federate;
       federate.rti->registerObjectInstance(federate.rti->getObjectClassHandle(L"Person"));
    }},
   {"another federation's handle",
    [] {
       Federate one;
       Federate other(L"Hall");
       one.registerPerson();
       one.rti->deleteObjectInstance(other.registerPerson(), VariableLengthData());
    }},
   {"time of another class", [] { Federate().rti->timeAdvanceRequest(HLAinteger64Time(4)); }},
   {"asks for a time of another class",
    [] {
       HLAinteger64Time time;
       Federate().rti->queryLogicalTime(time);
    }},
   {"never evokes",
    [] {
       Federate federate;
       federate.rti->registerFederationSynchronizationPoint(L"ready", VariableLengthData());
       std::this_thread::sleep_for(std::chrono::seconds(3));
    }},
   {"throws in a callback",
    [] {
       Federate federate;
       federate.rti->registerFederationSynchronizationPoint(L"ready", VariableLengthData());
       federate.rti->evokeMultipleCallbacks(0.1, 1.0);
    }},
   {"resigns as owner",
    [] {
       Federate federate;
       federate.registerPerson();
       federate.rti->resignFederationExecution(NO_ACTION);
    }},
};

} // namespace

int main(int argc, char* argv[])
{
   if (argc != 3 || mistakes.count(argv[1]) == 0) {
      std::cerr << "usage: mistakes MISTAKE FOM-MODULE" << std::endl;
      return 2;
   }
   std::string const module(argv[2]);
   fomModule.assign(module.begin(), module.end());
   try {
      mistakes.at(argv[1])();
   } catch (Exception const& exception) {
      std::wcerr << exception.what() << std::endl;
      return 1;
   }
}
