// Judges measured times by their ratios.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace bench {

// At most `bound` times as much time as another benchmark takes, or just shown if the bound is 0. With a base
// it is the growth that is judged: how much more the ratio is than that of the two benchmarks of the base.
struct Claim
{
   std::string measured;
   std::string floor;
   double bound;
   std::string measuredBase = {};
   std::string floorBase = {};
};

// Prints times as they come, and keeps the median of each benchmark's repetitions: the processor time of a
// call, which other programs hardly disturb. The name of a benchmark with threads ends in "/threads:N".
class Medians : public benchmark::ConsoleReporter
{
public:
   void ReportRuns(std::vector<Run> const& runs) override;

   // Prints a table of the claims with their ratios of medians, in Markdown. Returns how many do not hold.
   // What was not run is left out.
   int judge(std::vector<Claim> const& claims) const;

private:
   // Zero if one of them was not run.
   double ratio(std::string const& measured, std::string const& floor) const;
   double time(std::string const& name) const;

   std::map<std::string, double> _nanoseconds;
};

// Runs all benchmarks, repeated and in random order so that a disturbance meets all alike, and judges the
// claims. Takes the library's command line options; returns the exit code, which is 0 if all claims hold.
int run(int argc, char** argv, std::vector<Claim> const& claims);

} // namespace bench
