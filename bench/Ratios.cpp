#include "bench/Ratios.h"

#include <cstdio>

namespace bench {
namespace {

std::string hundredths(double value)
{
   char text[32];
   std::snprintf(text, sizeof text, "%.2f", value);
   return text;
}

} // namespace

void Medians::ReportRuns(std::vector<Run> const& runs)
{
   for (Run const& run : runs) {
      if (run.aggregate_name == "median") {
         auto const& threads = run.run_name.threads;
         _nanoseconds[run.run_name.function_name + (threads.empty() ? "" : "/" + threads)] =
            run.GetAdjustedCPUTime();
      }
   }
   ConsoleReporter::ReportRuns(runs);
}

double Medians::time(std::string const& name) const
{
   auto const found = _nanoseconds.find(name);
   return found == _nanoseconds.end() ? 0 : found->second;
}

double Medians::ratio(std::string const& measured, std::string const& floor) const
{
   return time(floor) == 0 ? 0 : time(measured) / time(floor);
}

int Medians::judge(std::vector<Claim> const& claims) const
{
   int broken = 0;
   std::printf("\n| %-44s | %12s | %-44s | %12s | %6s | %5s |\n", "measured", "ns", "against", "ns", "ratio",
               "bound");
   std::printf("|:--|--:|:--|--:|--:|--:|\n");
   for (Claim const& claim : claims) {
      bool const growth = !claim.measuredBase.empty();
      double const base = growth ? ratio(claim.measuredBase, claim.floorBase) : 1;
      double const judged = base == 0 ? 0 : ratio(claim.measured, claim.floor) / base;
      if (judged == 0) {
         continue;
      }
      bool const holds = claim.bound == 0 || judged <= claim.bound;
      broken += !holds;
      std::printf("| %-44s | %12.1f | %-44s | %12.1f | %6.2f |",
                  (claim.measured + (growth ? ", growth" : "")).c_str(), time(claim.measured),
                  claim.floor.c_str(), time(claim.floor), judged);
      std::printf(" %5s%s |\n", claim.bound == 0 ? "" : hundredths(claim.bound).c_str(),
                  holds ? "" : " EXCEEDED");
   }
   return broken;
}

int run(int argc, char** argv, std::vector<Claim> const& claims)
{
   std::string own[] = {"--benchmark_repetitions=75", "--benchmark_min_time=0.005",
                        "--benchmark_enable_random_interleaving=true",
                        "--benchmark_report_aggregates_only=true"};
   std::vector<char*> arguments{argv[0]};
   for (std::string& argument : own) {
      arguments.push_back(argument.data());
   }
   arguments.insert(arguments.end(), argv + 1, argv + argc); // what is given last, counts
   int count = static_cast<int>(arguments.size());
   benchmark::Initialize(&count, arguments.data());
   if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
      return 2;
   }
   Medians medians;
   benchmark::RunSpecifiedBenchmarks(&medians);
   benchmark::ClearRegisteredBenchmarks(); // and what they share, while all that it needs is there
   return medians.judge(claims) == 0 ? 0 : 1;
}

} // namespace bench
