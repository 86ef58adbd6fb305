// Federates in processes of their own at a hub, beside the bare transport. All processes of a measurement
// stay for all runs, which are interleaved; of the first nothing counts, because the Java VMs compile in it.
// Where a time on the way is measured, the hub has one core and the federates have the other.
//
// hub_bench [--runs=5] [--seconds=3] [--federates=50]: the medians of so many runs, how long a stream of
// updates lasts, and how many go on in step. Other arguments are for other benchmarks.
#include "bench/hub/Parts.h"
#include "bench/hub/Process.h"

#include <RTI/Exception.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <thread>

namespace bench {
namespace {

constexpr int federateCore = 0;
constexpr int otherCore = 1;

struct Row
{
   char const* name;
   Part part;
};

constexpr Row parts[] = {{"answerPings", &answerPings},
                         {"ping", &ping},
                         {"relay", &relay},
                         {"sendToRelay", &sendToRelay},
                         {"receiveFromRelay", &receiveFromRelay},
                         {"callService", &callService},
                         {"callLookup", &callLookup},
                         {"sendUpdates", &sendUpdates},
                         {"receiveUpdates", &receiveUpdates},
                         {"advance", &advance},
                         {"advanceUpdating", &advanceUpdating},
                         {"joinMany", &joinMany},
                         {"connectOnce", &connectOnce}};

std::unique_ptr<Process> start(char const* part, Arguments arguments, int core = Process::anyCore)
{
   arguments.insert(arguments.begin(), {"/proc/self/exe", part});
   return std::make_unique<Process>(arguments, core);
}

// Started, and ready for what it is told.
std::unique_ptr<Process> startReady(char const* part, Arguments const& arguments, int core = Process::anyCore)
{
   auto process = start(part, arguments, core);
   process->line();
   return process;
}

// With a certificate in that folder, or without TLS.
class Hub
{
public:
   explicit Hub(int core = Process::anyCore, std::string const& certificates = "")
      : _process(command(certificates), core)
   {
      _process.terminateAtEnd();
      _designator = "hub=" + _process.line().substr(std::strlen("listening on "));
      if (!certificates.empty()) {
         _designator += ";ca=" + certificates + "/hub.pem";
      }
   }

   std::string const& designator() const { return _designator; }

   // What of its heap is in use, in kB.
   double memory() const
   {
      std::string const tell = "jcmd " + std::to_string(_process.id()) + " GC.run >/dev/null && jcmd " +
                               std::to_string(_process.id()) +
                               " GC.heap_info | sed -n 's/.*heap.* used \\([0-9]*\\)K.*/\\1/p'";
      std::unique_ptr<FILE, int (*)(FILE*)> const output(popen(tell.c_str(), "r"), &pclose);
      double used = 0;
      return output != nullptr && std::fscanf(output.get(), "%lf", &used) == 1 ? used : 0;
   }

private:
   static std::vector<std::string> command(std::string const& certificates)
   {
      std::vector<std::string> made{HUB, "--listen", "127.0.0.1:0"};
      if (!certificates.empty()) {
         made.insert(made.end(),
                     {"--certificate", certificates + "/hub.pem", "--key", certificates + "/hub.key"});
      }
      return made;
   }

   Process _process;
   std::string _designator;
};

class Certificates
{
public:
   Certificates()
   {
      std::string const make =
         "cd " + _folder.string() +
         " && openssl req -x509 -newkey ec -pkeyopt "
         "ec_paramgen_curve:P-256 -nodes -days 2 -keyout hub.key -out hub.pem -subj /CN=localhost "
         "-addext subjectAltName=IP:127.0.0.1 2>/dev/null";
      if (std::system(make.c_str()) != 0) {
         throw std::runtime_error("openssl makes no certificate");
      }
   }
   ~Certificates() { std::filesystem::remove_all(_folder); }
   Certificates(Certificates const&) = delete;
   Certificates& operator=(Certificates const&) = delete;

   std::string folder() const { return _folder.string(); }

private:
   static std::filesystem::path made()
   {
      char folder[] = "/tmp/hub_bench.XXXXXX";
      return mkdtemp(folder);
   }

   std::filesystem::path const _folder = made();
};

// What runs give, by name; in the units of the table.
class Results
{
public:
   void add(std::string const& name, double value) { _values[name].push_back(value); }
   void clear() { _values.clear(); }
   bool has(std::string const& name) const { return _values.count(name) != 0; }
   double median(std::string const& name) const
   {
      std::vector<double> values = _values.at(name);
      auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
      std::nth_element(values.begin(), middle, values.end());
      return *middle;
   }

private:
   std::map<std::string, std::vector<double>> _values;
};

using Run = std::function<void(Results&)>;

double number(std::string const& line) { return std::stod(line); }

// One process that repeats something.
Run repeated(std::string const& name, int count, std::shared_ptr<Process> process)
{
   return [=](Results& results) {
      process->say(std::to_string(count));
      results.add(name, number(process->line()) / 1e3);
   };
}

// A sender and a receiver: the time on the way at 2,000 a second.
Run underway(std::string const& name, std::shared_ptr<Process> sender, std::shared_ptr<Process> receiver)
{
   return [=](Results& results) {
      receiver->say("go");
      sender->say("2000 1");
      sender->line();
      results.add(name, number(receiver->line()) / 1e3);
   };
}

// The same as fast as they can: the time for each.
Run streamed(std::string const& name, double seconds, std::shared_ptr<Process> sender,
             std::shared_ptr<Process> receiver)
{
   return [=](Results& results) {
      receiver->say("go");
      sender->say("0 " + std::to_string(seconds));
      double const count = number(sender->line());
      std::istringstream in(receiver->line());
      double median = 0;
      double all = 0;
      in >> median >> all;
      results.add(name, all / 1e3 / count);
   };
}

// Federates that advance together: the time of a step.
Run inStep(std::string const& name, int steps, std::vector<std::shared_ptr<Process>> const& federates)
{
   return [=](Results& results) {
      for (auto const& each : federates) {
         each->say(std::to_string(steps));
      }
      double slowest = 0;
      for (auto const& each : federates) {
         slowest = std::max(slowest, number(each->line()));
      }
      results.add(name, slowest / 1e3);
   };
}

Run connecting(std::string const& name, std::string const& designator)
{
   return [=](Results& results) {
      results.add(name, number(start("connectOnce", {designator}, federateCore)->line()) / 1e3);
   };
}

struct Claim
{
   char const* measured;
   char const* floor;
   double bound; // of the ratio, or of the difference; 0 for none
   bool isDifference;
};

constexpr Claim claims[] = {
   {"service", "TCP round trip", 1.3, false},
   {"service, TLS", "TCP round trip", 1.5, false},
   {"lookup", "lookup in process", 1.5, false},
   {"update on its way", "TCP round trip", 1.5, false},
   {"update on its way", "TCP relay, on its way", 0, false},
   {"update on its way, TLS", "TCP round trip", 0, false},
   {"update, streamed", "TCP relay, streamed", 0, false},
   {"step of 2 federates", "TCP round trip", 2.2, false},
   {"step of many federates", "TCP round trip", 0, false},
   {"connect", "connect in process", 30e3, true},
   {"connect, TLS", "connect in process", 200e3, true},
};

int judge(Results const& results)
{
   int broken = 0;
   std::printf("\n| %-26s | %10s | %-26s | %10s | %6s | %5s |\n", "measured", "us", "against", "us", "ratio",
               "bound");
   std::printf("|:--|--:|:--|--:|--:|--:|\n");
   for (Claim const& claim : claims) {
      if (!results.has(claim.measured) || !results.has(claim.floor)) {
         continue;
      }
      double const measured = results.median(claim.measured);
      double const floor = results.median(claim.floor);
      double const ratio = measured / floor;
      double const bound = claim.isDifference ? (floor + claim.bound) / floor : claim.bound;
      bool const holds = bound == 0 || ratio <= bound;
      broken += !holds;
      std::printf("| %-26s | %10.2f | %-26s | %10.2f | %6.2f |", claim.measured, measured, claim.floor, floor,
                  ratio);
      if (bound == 0) {
         std::printf("       |\n");
      } else {
         std::printf(" %5.2f%s |\n", bound, holds ? "" : " EXCEEDED");
      }
   }
   return broken;
}

// A number for itself, and at least or at most how much it has to be.
int tell(char const* what, double value, double bound)
{
   bool const holds = bound == 0 || value >= bound;
   std::printf("| %-44s | %10.0f |", what, value);
   std::printf(bound == 0 ? "" : " %10.0f%s", bound, holds ? "" : " MISSED");
   std::printf(" |\n");
   return holds ? 0 : 1;
}

double option(int argc, char** argv, std::string const& name, double byDefault)
{
   std::string const begin = "--" + name + "=";
   for (int i = 1; i < argc; ++i) {
      if (std::string(argv[i]).rfind(begin, 0) == 0) {
         return std::stod(argv[i] + begin.size());
      }
   }
   return byDefault;
}

double memoryOfAFederate()
{
   constexpr int count = 100;
   Hub const hub;
   auto const first = startReady("joinMany", {hub.designator(), "few", "1"});
   double const before = hub.memory();
   auto const others = startReady("joinMany", {hub.designator(), "few", std::to_string(count)});
   return (hub.memory() - before) / count;
}

int measure(int argc, char** argv)
{
   int const runs = static_cast<int>(option(argc, argv, "runs", 5));
   double const seconds = option(argc, argv, "seconds", 3);
   int const federates = static_cast<int>(option(argc, argv, "federates", 50));
   Certificates const certificates;
   auto const pinging = start("answerPings", {}, otherCore);

   Hub const near(otherCore);
   Hub const nearSecured(otherCore, certificates.folder());
   Hub const far;
   std::vector<std::shared_ptr<Process>> relays;
   std::vector<Run> cases; // ends before what its federates are connected to

   cases.push_back(repeated("TCP round trip", 5000, start("ping", {pinging->line()}, federateCore)));
   auto const with = [](std::string const& designator, char const* part, char const* federation, int core) {
      return std::shared_ptr<Process>(startReady(part, {designator, federation}, core));
   };
   auto const at = [&](Hub const& hub, char const* part, char const* federation, int core) {
      return with(hub.designator(), part, federation, core);
   };
   cases.push_back(repeated("service", 5000, at(near, "callService", "service", federateCore)));
   cases.push_back(repeated("service, TLS", 5000, at(nearSecured, "callService", "service", federateCore)));
   cases.push_back(repeated("lookup", 20000, at(near, "callLookup", "lookup", federateCore)));
   cases.push_back(
      repeated("lookup in process", 20000, with("hub=none", "callLookup", "lookup", federateCore)));

   auto const relayed = [&](int core, int relayCore) {
      relays.push_back(start("relay", {}, relayCore));
      std::string const port = relays.back()->line();
      std::shared_ptr<Process> receiver = startReady("receiveFromRelay", {port}, core);
      return std::pair(std::shared_ptr<Process>(start("sendToRelay", {port}, core)), receiver);
   };
   auto const slow = relayed(federateCore, otherCore);
   auto const fast = relayed(Process::anyCore, Process::anyCore);
   cases.push_back(underway("TCP relay, on its way", slow.first, slow.second));
   cases.push_back(streamed("TCP relay, streamed", seconds, fast.first, fast.second));
   auto const updating = [&](Hub const& hub, char const* federation, int core) {
      return std::pair(at(hub, "sendUpdates", federation, core), at(hub, "receiveUpdates", federation, core));
   };
   auto const plain = updating(near, "on its way", federateCore);
   auto const secured = updating(nearSecured, "on its way", federateCore);
   auto const stream = updating(far, "streamed", Process::anyCore);
   cases.push_back(underway("update on its way", plain.first, plain.second));
   cases.push_back(underway("update on its way, TLS", secured.first, secured.second));
   cases.push_back(streamed("update, streamed", seconds, stream.first, stream.second));

   cases.push_back(
      inStep("step of 2 federates", 2000,
             {at(near, "advance", "two", federateCore), at(near, "advance", "two", federateCore)}));
   std::vector<std::shared_ptr<Process>> many;
   while (many.size() < static_cast<std::size_t>(federates)) {
      many.push_back(at(far, "advanceUpdating", "many", Process::anyCore));
   }
   cases.push_back(inStep("step of many federates", 1000, many));

   cases.push_back(connecting("connect in process", "hub=none"));
   cases.push_back(connecting("connect", near.designator()));
   cases.push_back(connecting("connect, TLS", nearSecured.designator()));

   Results results;
   for (int i = 0; i <= runs; ++i) {
      for (Run const& each : cases) {
         each(results);
      }
      if (i == 0) {
         results.clear();
      }
   }
   int broken = judge(results);
   std::printf("\n| %-44s | %10s | %10s |\n|:--|--:|--:|\n", "measured", "", "at least");
   broken += tell("updates a second, streamed", 1e6 / results.median("update, streamed"), 300000);
   broken += tell(("steps a second of " + std::to_string(federates) + " federates").c_str(),
                  1e6 / results.median("step of many federates"), 0);
   tell("memory of a federate at the hub, kB of heap", memoryOfAFederate(), 0);
   return broken == 0 ? 0 : 1;
}

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
   setenv("CLASSPATH", CORE_JAR, 1);
   setenv("TOVU1516_OPTION1", "-Dtovu.local.evokeReminder=0", 1);
   try {
      for (bench::Row const& row : bench::parts) {
         if (argc > 1 && std::string(argv[1]) == row.name) {
            row.part({argv + 2, argv + argc});
            return 0;
         }
      }
      return bench::measure(argc, argv);
   } catch (std::exception const& failure) {
      std::cerr << argv[0] << ": " << failure.what() << std::endl;
   } catch (rti1516e::Exception const& failure) {
      std::wcerr << failure.what() << std::endl;
   }
   return 2;
}
