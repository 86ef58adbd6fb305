// Does one thing in a process with a Java VM of its own, which may well be the end of it, and writes down
// what a federate sees, into the file "seen", for the VM prints to all streams. VMCaseTest runs it. The time
// library is the default one.
#include "Caught.h"
#include "Fixture.h"
#include "Samples.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>

namespace contract {
namespace {

using Driver = std::function<void()>;

std::ofstream seen;

RecordingCore& core() { return RecordingCore::instance(); }

void write(Caught const& caught)
{
   seen << (caught.type.empty() ? "nothing" : caught.type) << ": "
        << std::string(caught.text.begin(), caught.text.end()) << '\n';
}

void write(std::optional<JavaException> const& pending)
{
   if (pending) {
      seen << *pending << '\n';
   } else {
      seen << "nothing\n";
   }
}

void create()
{
   write(caughtFrom([] { newAmbassador(); }));
}

void printProperty(char const* name)
{
   auto const value = core().property(name);
   seen << name << '=' << (value ? std::string(value->begin(), value->end()) : "(not set)") << '\n';
}

// A callback to a connected federate.
template <class InCallback>
Driver callback(InCallback inCallback)
{
   return [inCallback] {
      Member member;
      member.federate.inCallback = inCallback;
      write(core().deliver({"federationSaved_Native", member.message(Bytes())}));
   };
}

Driver delivery(char const* native, char const* arguments)
{
   return [=] {
      Member member;
      member.join(u"HLAinteger64Time");
      write(core().deliver({native, member.message(Bytes(arguments))}));
   };
}

// The bytes are the whole message, TOKEN standing for the token.
Driver bareDelivery(char const* before, char const* after)
{
   return [=] {
      Member const member;
      write(
         core().deliver({"federationSaved_Native", Bytes(before).int32(member.token).append(Bytes(after))}));
   };
}

template <class Call>
Driver service(Call call)
{
   return [call] {
      Member const member;
      call(*member.ambassador);
   };
}

char const* const reflection = "reflectAttributeValues_OIH_AHVM_BX_OT_TTH_FASRI_Native";

std::map<std::string, Driver> const drivers = {
   {"create", create},
   {"call",
    [] {
       Member const member;
       core().answer("getFederateName_FH", u"the name");
       auto const name = member.ambassador->getFederateName(samples::federate);
       seen << std::string(name.begin(), name.end()) << '\n';
    }},
   {"exception that follows one without class",
    [] {
       Member const member;
       core().answer("listFederationExecutions", JavaException{hlaClass("RTIinternalError"), u"why"});
       write(caughtFrom([&] { member.ambassador->listFederationExecutions(); }));
    }},
   {"properties",
    [] {
       newAmbassador();
       for (auto const* name : {"from.environment", "from.file", "Tovu.libraryName", "singlethread"}) {
          printProperty(name);
       }
    }},
   {"the application's VM",
    [] {
       std::string classPath = std::string("-Djava.class.path=") + std::getenv("APPLICATION_CLASSPATH");
       JavaVMOption option{classPath.data(), nullptr};
       JavaVMInitArgs arguments{JNI_VERSION_1_8, 1, &option, JNI_FALSE};
       JavaVM* vm = nullptr;
       void* env = nullptr;
       seen << "created: " << JNI_CreateJavaVM(&vm, &env, &arguments) << '\n';
       newAmbassador();
       printProperty("from.environment");
       printProperty("from.file");
    }},
   {"default time library",
    [] {
       Member const member;
       for (auto const* name : {u"HLAinteger64Time", u"HLAfloat64Time", u"unheard of"}) {
          core().answer("getTimeFactory", name);
          auto const shownName = shown(member.ambassador->getTimeFactory());
          seen << std::string(shownName.begin(), shownName.end()) << '\n';
       }
    }},
   {"callback throws an int", callback([] { throw 42; })},
   {"callback throws an exception of the interface", callback([] { throw NameNotFound(L"x"); })},
   {"callback throws a text", callback([] { throw std::string("x"); })},
   {"bad first magic", bareDelivery("63626161", "59585756")},
   {"bad last magic", bareDelivery("63626160", "59585757")},
   {"time before any join",
    [] {
       Member const member;
       core().deliver({"timeAdvanceGrant_LT_Native", member.message(Bytes("0000000000000001"))});
    }},
   {"write OT", service([](auto& rti) { rti.changeInteractionOrderType({}, static_cast<OrderType>(3)); })},
   {"write OT 0", service([](auto& rti) { rti.getOrderName(static_cast<OrderType>(0)); })},
   {"write RA", service([](auto& rti) { rti.resignFederationExecution(static_cast<ResignAction>(6)); })},
   {"write TTH",
    service([](auto& rti) { rti.getTransportationTypeName(static_cast<TransportationType>(3)); })},
   {"write SG", service([](auto& rti) { rti.normalizeServiceGroup(static_cast<ServiceGroup>(7)); })},
   {"result OT", service([](auto& rti) {
       core().answer("getOrderType_S", jint{2});
       rti.getOrderType(L"");
    })},
   {"result TTH", service([](auto& rti) {
       core().answer("getTransportationTypeHandle_S", jint{0});
       rti.getTransportationTypeHandle(L"");
    })},
   {"read OT", delivery(reflection, "00000001 00000000 00000000 00000002 00000001 00000000 00000000")},
   {"read TTH", delivery(reflection, "00000001 00000000 00000000 00000000 00000003 00000000 00000000")},
   {"read TTH 0", delivery(reflection, "00000001 00000000 00000000 00000000 00000000 00000000 00000000")},
   {"read SPFR", delivery("synchronizationPointRegistrationFailed_S_SPFR_Native", "00000000 00000002")},
   {"read SFR", delivery("federationNotSaved_SFR_Native", "00000006")},
   {"read SFR below", delivery("federationNotSaved_SFR_Native", "FFFFFFFF")},
   {"read RFR", delivery("federationNotRestored_RFR_Native", "00000005")},
   {"read save status", delivery("federationSaveStatusResponse_FHSSPX_Native", "00000001 00000001 00000004")},
   {"read restore status",
    delivery("federationRestoreStatusResponse_FRSX_Native", "00000001 00000001 00000002 00000006")},
};

} // namespace
} // namespace contract

int main(int argc, char** argv)
{
   auto const driver = contract::drivers.find(argc == 2 ? argv[1] : "");
   if (driver == contract::drivers.end()) {
      std::cerr << "usage: contract_vm_driver CASE\n";
      return 2;
   }
   contract::seen.open("seen");
   driver->second();
   return 0;
}
