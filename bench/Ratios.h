// Judges measured times by their ratios.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace bench {

// At most `bound` times as much time as another benchmark takes, or just shown if the bound is 0.
struct Claim
{
   std::string measured;
   std::string floor;
   double bound;
};

// Prints times as they come, and keeps the median of each benchmark's repetitions.
class Medians : public benchmark::ConsoleReporter
{
public:
   void ReportRuns(std::vector<Run> const& runs) override;

   // Prints each claim with its ratio of medians. Returns how many do not hold. What was not run is left out.
   int judge(std::vector<Claim> const& claims) const;

private:
   std::map<std::string, double> _nanoseconds;
};

// Runs all benchmarks, repeated and in random order so that a disturbance meets all alike, and judges the
// claims. Takes the library's command line options; returns the exit code, which is 0 if all claims hold.
int run(int argc, char** argv, std::vector<Claim> const& claims);

} // namespace bench
