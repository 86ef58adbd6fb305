// Federates in processes of their own at a hub, beside the bare transport. All processes of a measurement
// stay for all runs, which are interleaved; the first ones do not count, because the Java VMs compile in
// them. Where a time on the way is measured, the hub has one core and the federates have the other.
//
// hub_bench [--runs=5] [--seconds=3] [--federates=50]: the medians of so many runs, how long a stream of
// updates lasts, and how many go on in step. Other arguments are for other benchmarks.
#include "bench/hub/Parts.h"
#include "bench/hub/Process.h"
#include "bench/hub/ZooKeeper.h"

#include <RTI/Exception.h>

#include <algorithm>
#include <chrono>
#include <cmath>
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

using Shared = std::shared_ptr<Process>;

constexpr int federateCore = 0;
constexpr int otherCore = 1;
constexpr int untilCompiled = 10; // runs, where a hub's compilers share one core with it

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
                         {"createAndJoin", &createAndJoin},
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

class Hub
{
public:
   explicit Hub(int core = Process::anyCore, Arguments const& options = {},
                std::string const& endOfDesignator = "")
      : _process(std::make_shared<Process>(command(options), core))
   {
      _process->terminateAtEnd();
      std::string line = _process->line();
      if (auto const address = line.find("http://"); address != std::string::npos) {
         _page = line.substr(address);
         line = _process->line();
      }
      _designator = "hub=" + line.substr(std::strlen("listening on ")) + endOfDesignator;
   }
   // One of several, each of which has a core if it needs one.
   explicit Hub(ZooKeeper const& with)
      : Hub(Process::anyCore, {"--cluster", with.servers(), "--takeover-after", "60"})
   {}

   std::string const& designator() const { return _designator; }
   std::string const& page() const { return _page; }
   Shared process() const { return _process; }

   // What of its heap is in use, in kB.
   double memory() const
   {
      std::string const tell = "jcmd " + std::to_string(_process->id()) + " GC.run >/dev/null && jcmd " +
                               std::to_string(_process->id()) +
                               " GC.heap_info | sed -n 's/.*heap.* used \\([0-9]*\\)K.*/\\1/p'";
      std::unique_ptr<FILE, int (*)(FILE*)> const output(popen(tell.c_str(), "r"), &pclose);
      double used = 0;
      return output != nullptr && std::fscanf(output.get(), "%lf", &used) == 1 ? used : 0;
   }

private:
   static Arguments command(Arguments const& options)
   {
      Arguments made{HUB, "--listen", "127.0.0.1:0"};
      made.insert(made.end(), options.begin(), options.end());
      return made;
   }

   std::shared_ptr<Process> _process;
   std::string _designator;
   std::string _page;
};

// Two hubs that are one service. Each keeps what is created by who connects to it first.
struct Cluster
{
   ZooKeeper zookeeper;
   Hub one{zookeeper};
   Hub two{zookeeper};
   std::string const designator = one.designator() + "," + two.designator().substr(std::strlen("hub="));
};

// What hubs need, and leave behind: a certificate with its key, and a recording.
class Folder
{
public:
   Folder()
   {
      std::string const make = "cd " + _path.string() +
                               " && openssl req -x509 -newkey ec -pkeyopt "
                               "ec_paramgen_curve:P-256 -nodes -days 2 -keyout hub.key -out hub.pem -subj "
                               "/CN=localhost "
                               "-addext subjectAltName=IP:127.0.0.1 2>/dev/null";
      if (std::system(make.c_str()) != 0) {
         throw std::runtime_error("openssl makes no certificate");
      }
   }
   ~Folder() { std::filesystem::remove_all(_path); }
   Folder(Folder const&) = delete;
   Folder& operator=(Folder const&) = delete;

   std::string file(char const* name) const { return _path / name; }

private:
   static std::filesystem::path made()
   {
      char folder[] = "/tmp/hub_bench.XXXXXX";
      return mkdtemp(folder);
   }

   std::filesystem::path const _path = made();
};

// What runs give, by name; in the units of the table.
class Results
{
public:
   void add(std::string const& name, double value) { _values[name].push_back(value); }
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

// Who sends, what is between, and who receives.
struct Line
{
   Shared sender;
   Shared between;
   Shared receiver;
};

double number(std::string const& line) { return std::stod(line); }

// One process that repeats something.
Run repeated(std::string const& name, int count, Shared process)
{
   return [=](Results& results) {
      process->say(std::to_string(count));
      results.add(name, number(process->line()) / 1e3);
   };
}

// A sender and a receiver: the time on the way at 2,000 a second.
Run underway(std::string const& name, Line const& line)
{
   return [=](Results& results) {
      line.receiver->say("go");
      line.sender->say("2000 1");
      line.sender->line();
      results.add(name, number(line.receiver->line()) / 1e3);
   };
}

// What processes take of the processors while something goes on, in us.
class Usage
{
public:
   explicit Usage(std::vector<Shared> processes) : _processes(std::move(processes)) {}
   Usage(std::vector<Line> const& lines, Shared Line::*part) : Usage(once(lines, part)) {}

   double sinceMade() const { return used() - _before; }

private:
   static std::vector<Shared> once(std::vector<Line> const& lines, Shared Line::*part)
   {
      std::vector<Shared> made;
      for (Line const& line : lines) {
         if (std::find(made.begin(), made.end(), line.*part) == made.end()) {
            made.push_back(line.*part);
         }
      }
      return made;
   }

   double used() const
   {
      double sum = 0;
      for (auto const& each : _processes) {
         sum += each->used();
      }
      return sum;
   }

   std::vector<Shared> _processes;
   double _before = used();
};

// The same as fast as they can, all lines together: the time for each, and what of the processors it takes.
Run streamed(std::string const& name, double seconds, std::vector<Line> const& lines)
{
   return [=](Results& results) {
      Usage const bySender(lines, &Line::sender);
      Usage const byBetween(lines, &Line::between);
      Usage const byReceiver(lines, &Line::receiver);
      for (Line const& line : lines) {
         line.receiver->say("go");
      }
      for (Line const& line : lines) {
         line.sender->say("0 " + std::to_string(seconds));
      }
      double count = 0;
      double longest = 0;
      for (Line const& line : lines) {
         count += number(line.sender->line());
         std::istringstream in(line.receiver->line());
         double median = 0;
         double all = 0;
         in >> median >> all;
         longest = std::max(longest, all);
      }
      results.add(name, longest / 1e3 / count);
      results.add(name + ": sender", bySender.sinceMade() / count);
      results.add(name + ": between", byBetween.sinceMade() / count);
      results.add(name + ": receiver", byReceiver.sinceMade() / count);
   };
}

// Federates that advance together: the time of a step.
Run inStep(std::string const& name, int steps, Shared hub, std::vector<Shared> const& federates)
{
   return [=](Results& results) {
      Usage const byHub({hub});
      Usage const byFederates(federates);
      for (auto const& each : federates) {
         each->say(std::to_string(steps));
      }
      double slowest = 0;
      for (auto const& each : federates) {
         slowest = std::max(slowest, number(each->line()));
      }
      results.add(name, slowest / 1e3);
      results.add(name + ": hub", byHub.sinceMade() / steps);
      results.add(name + ": federates", byFederates.sinceMade() / steps);
   };
}

Run connecting(std::string const& name, std::string const& designator)
{
   return
      [=](Results& results) { results.add(name, number(start("connectOnce", {designator})->line()) / 1e3); };
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
   {"update, streamed, watched", "update, streamed, not watched", 1 / 0.99, false},
   {"update, streamed, recorded", "update, streamed", 1 / 0.9, false},
   {"step of 2 federates", "TCP round trip", 2.2, false},
   {"step of many federates", "TCP round trip", 0, false},
   {"2 federations, 2 hubs", "2 federations, 1 hub", 0, false},
   {"create, join, cluster", "create, join", 0, false},
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

// A figure for itself, and at least how much it has to be; 0 for no bound.
struct Figure
{
   char const* measured;
   char const* told;
   double (*of)(double microseconds);
   double bound;
};

double aSecond(double microseconds) { return 1e6 / microseconds; }
double same(double microseconds) { return microseconds; }
double inNanoseconds(double microseconds) { return 1e3 * microseconds; }

constexpr Figure figures[] = {
   {"update, streamed", "updates a second", &aSecond, 300000},
   {"update, streamed: sender", "processor time of an update, ns: sender", &inNanoseconds, 0},
   {"update, streamed: between", "processor time of an update, ns: hub", &inNanoseconds, 0},
   {"update, streamed: receiver", "processor time of an update, ns: receiver", &inNanoseconds, 0},
   {"step of many federates", "steps a second of many federates", &aSecond, 0},
   {"step of many federates: hub", "processor time of a step, us: hub", &same, 0},
   {"step of many federates: federates", "processor time of a step, us: federates", &same, 0},
   {"memory", "memory of a federate at the hub, kB of heap", &same, 0},
};

int judgeFigures(Results const& results)
{
   int broken = 0;
   std::printf("\n| %-44s | %10s | %8s |\n|:--|--:|--:|\n", "measured", "", "at least");
   for (Figure const& figure : figures) {
      if (results.has(figure.measured)) {
         double const value = figure.of(results.median(figure.measured));
         bool const holds = value >= figure.bound;
         broken += !holds;
         std::string const bound = figure.bound == 0 ? "" : std::to_string(std::lround(figure.bound));
         std::printf("| %-44s | %10.0f | %8s%s |\n", figure.told, value, bound.c_str(),
                     holds ? "" : " MISSED");
      }
   }
   return broken;
}

std::string option(int argc, char** argv, std::string const& name, std::string const& byDefault)
{
   std::string const begin = "--" + name + "=";
   for (int i = 1; i < argc; ++i) {
      if (std::string(argv[i]).rfind(begin, 0) == 0) {
         return argv[i] + begin.size();
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
   int const runs = static_cast<int>(number(option(argc, argv, "runs", "5")));
   double const seconds = number(option(argc, argv, "seconds", "3"));
   std::size_t const federates = std::stoul(option(argc, argv, "federates", "50"));
   std::string const only = option(argc, argv, "only", "");
   Folder const folder;
   std::string const certificate = folder.file("hub.pem");
   Hub const near(otherCore);
   Hub const nearSecured(otherCore, {"--certificate", certificate, "--key", folder.file("hub.key")},
                         ";ca=" + certificate);
   Hub const far;
   Hub const watched(Process::anyCore, {"--web", "127.0.0.1:0"});
   Hub const recording(Process::anyCore, {"--record", folder.file("recording")});
   std::unique_ptr<Cluster> cluster;
   std::vector<Shared> others; // that end when those they are connected to have
   struct Case
   {
      Run run;
      int untilItCounts; // runs
   };
   std::vector<Case> cases;
   Results medians;
   // Runs what has been added, interleaved, and ends its processes: what sleeps beside something else still
   // takes the caches.
   auto const runAll = [&] {
      Results uncounted;
      for (Case const& each : cases) {
         for (int i = 0; i < each.untilItCounts; ++i) {
            each.run(uncounted);
         }
      }
      for (int i = 0; i < runs; ++i) {
         for (Case const& each : cases) {
            each.run(medians);
         }
      }
      cases.clear();
      others.clear();
   };
   // What makes the processes of a case is done if the case is.
   auto const add = [&](std::string const& name, auto const& make, int untilItCounts = 1) {
      if (name.find(only) != std::string::npos) {
         cases.push_back({make(name), untilItCounts});
      }
   };
   auto const at = [](std::string const& designator, char const* part, char const* federation, int core) {
      return Shared(startReady(part, {designator, federation}, core));
   };
   auto const repeating = [&](std::string const& designator, char const* part, int count) {
      return [=](std::string const& name) {
         return repeated(name, count, at(designator, part, name.c_str(), federateCore));
      };
   };
   others.push_back(start("answerPings", {}, otherCore));
   cases.push_back(
      {repeated("TCP round trip", 5000, start("ping", {others.back()->line()}, federateCore)), 1});
   add("service", repeating(near.designator(), "callService", 5000), untilCompiled);
   add("service, TLS", repeating(nearSecured.designator(), "callService", 5000), untilCompiled);
   add("lookup", repeating(near.designator(), "callLookup", 20000));
   add("lookup in process", repeating("hub=none", "callLookup", 20000));

   // A sender, a receiver and what is between them.
   auto const relayed = [&](int core, int relayCore) {
      others.push_back(start("relay", {}, relayCore));
      std::string const port = others.back()->line();
      Shared const receiver = startReady("receiveFromRelay", {port}, core);
      return Line{start("sendToRelay", {port}, core), others.back(), receiver};
   };
   auto const updating = [&](Hub const& hub, std::string const& federation, int core) {
      return Line{at(hub.designator(), "sendUpdates", federation.c_str(), core), hub.process(),
                  at(hub.designator(), "receiveUpdates", federation.c_str(), core)};
   };
   add("TCP relay, on its way",
       [&](auto const& name) { return underway(name, relayed(federateCore, otherCore)); });
   add(
      "update on its way",
      [&](auto const& name) { return underway(name, updating(near, name, federateCore)); }, untilCompiled);
   add(
      "update on its way, TLS",
      [&](auto const& name) { return underway(name, updating(nearSecured, name, federateCore)); },
      untilCompiled);
   auto const advancing = [&](Hub const& hub, char const* part, std::size_t count, int steps, int core) {
      return [=, &hub](std::string const& name) {
         std::vector<Shared> made;
         while (made.size() < count) {
            made.push_back(at(hub.designator(), part, name.c_str(), core));
         }
         return inStep(name, steps, hub.process(), made);
      };
   };
   add("step of 2 federates", advancing(near, "advance", 2, 5000, federateCore), untilCompiled);
   runAll();

   add("TCP relay, streamed", [&](auto const& name) {
      return streamed(name, seconds, {relayed(Process::anyCore, Process::anyCore)});
   });
   add("update, streamed",
       [&](auto const& name) { return streamed(name, seconds, {updating(far, name, Process::anyCore)}); });
   // With the same processes, or what differs would be how the hubs' compilers have fared.
   std::vector<Line> onPage;
   auto const streamedOnPage = [&](auto const& name) {
      if (onPage.empty()) {
         onPage.push_back(updating(watched, name, Process::anyCore));
      }
      return streamed(name, seconds, onPage);
   };
   add("update, streamed, not watched", streamedOnPage);
   add("update, streamed, watched", [&](auto const& name) {
      return [=, &watched, run = streamedOnPage(name)](Results& results) {
         Process watching({"/usr/bin/curl", "-sN", "-o", "/dev/null", watched.page() + "events"});
         watching.terminateAtEnd();
         run(results);
      };
   });
   add("update, streamed, recorded", [&](auto const& name) {
      return streamed(name, seconds, {updating(recording, name, Process::anyCore)});
   });

   runAll();
   onPage.clear();

   add("step of many federates", advancing(far, "advanceUpdating", federates, 1000, Process::anyCore));
   runAll();

   auto const connectingTo = [](std::string const& designator) {
      return [=](std::string const& name) { return connecting(name, designator); };
   };
   add("connect in process", connectingTo("hub=none"));
   add("connect", connectingTo(near.designator()));
   add("connect, TLS", connectingTo(nearSecured.designator()));
   runAll();

   // Several hubs that are one service, against one.
   auto const together = [&](std::string const& name, Hub const& first, Hub const& second) {
      return streamed(
         name, seconds,
         {updating(first, name + " 1", Process::anyCore), updating(second, name + " 2", Process::anyCore)});
   };
   auto const hubs = [&]() -> Cluster const& {
      cluster = cluster == nullptr ? std::make_unique<Cluster>() : std::move(cluster);
      return *cluster;
   };
   if (ZooKeeper::isInstalled()) {
      add("2 federations, 2 hubs", [&](auto const& name) { return together(name, hubs().one, hubs().two); });
      add("2 federations, 1 hub", [&](auto const& name) { return together(name, far, far); });
      add("create, join, cluster",
          [&](auto const& name) { return repeating(hubs().designator, "createAndJoin", 100)(name); });
      add("create, join", repeating(far.designator(), "createAndJoin", 100));
   } else {
      std::printf(
         "Without ZooKeeper (the packages zookeeper and libslf4j-java) nothing is measured of a cluster.\n");
   }

   runAll();
   if (only.empty()) {
      medians.add("memory", memoryOfAFederate());
   }
   return judge(medians) + judgeFigures(medians) == 0 ? 0 : 1;
}

} // namespace
} // namespace bench

int main(int argc, char** argv)
{
   setenv("CLASSPATH", CORE_JAR, 1);
   setenv("TOVU1516_OPTION1", "-Dtovu.local.evokeReminder=0", 1);
   setenv("RTI1516E_HUB_JAVA_OPTIONS", "-Xmx512m",
          0); // or the garbage of six hubs is more than a machine may have
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
