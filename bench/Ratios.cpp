#include "bench/Ratios.h"

#include <cstdio>

namespace bench {

void Medians::ReportRuns(std::vector<Run> const& runs)
{
   for (Run const& run : runs) {
      if (run.aggregate_name == "median") {
         _nanoseconds[run.run_name.function_name] = run.GetAdjustedCPUTime();
      }
   }
   ConsoleReporter::ReportRuns(runs);
}

int Medians::judge(std::vector<Claim> const& claims) const
{
   int broken = 0;
   std::printf("\n%-44s %12s   %-44s %12s %7s %6s\n", "measured", "ns", "against", "ns", "ratio", "bound");
   for (Claim const& claim : claims) {
      auto const measured = _nanoseconds.find(claim.measured);
      auto const floor = _nanoseconds.find(claim.floor);
      if (measured == _nanoseconds.end() || floor == _nanoseconds.end()) {
         continue;
      }
      double const ratio = measured->second / floor->second;
      bool const holds = claim.bound == 0 || ratio <= claim.bound;
      broken += !holds;
      std::printf("%-44s %12.1f   %-44s %12.1f %7.2f", claim.measured.c_str(), measured->second,
                  claim.floor.c_str(), floor->second, ratio);
      if (claim.bound != 0) {
         std::printf(" %6.1f%s", claim.bound, holds ? "" : "  EXCEEDED");
      }
      std::printf("\n");
   }
   return broken;
}

int run(int argc, char** argv, std::vector<Claim> const& claims)
{
   std::string own[] = {"--benchmark_repetitions=15", "--benchmark_min_time=0.02",
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
   return medians.judge(claims) == 0 ? 0 : 1;
}

} // namespace bench
