// The steps of a random run. A step draws all that it needs from a number of its own, so that a run without
// some of its steps is a run too: what fails is made short by leaving steps out for as long as it still
// fails.
#ifndef RTI1516E_TESTS_SYSTEM_STEPS_H
#define RTI1516E_TESTS_SYSTEM_STEPS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <random>
#include <vector>

namespace system_tests {

class Dice
{
public:
   explicit Dice(std::uint32_t seed) : _random(seed) {}

   std::uint32_t number() { return static_cast<std::uint32_t>(_random()); }
   int below(int bound) { return static_cast<int>(number() % static_cast<std::uint32_t>(bound)); }
   bool oneIn(int chances) { return below(chances) == 0; }
   template <class Container>
   auto const& oneOf(Container const& container)
   {
      return *std::next(std::begin(container), below(static_cast<int>(std::size(container))));
   }
   // One of the rows, each as likely as its chances say.
   template <class Rows>
   auto const& byChance(Rows const& rows)
   {
      int all = 0;
      for (auto const& row : rows) {
         all += row.chances;
      }
      int left = below(all);
      auto row = std::begin(rows);
      while ((left -= row->chances) >= 0) {
         ++row;
      }
      return *row;
   }

private:
   std::mt19937 _random;
};

using Steps = std::vector<std::uint32_t>;

inline Steps randomSteps(std::uint32_t seed, std::size_t count)
{
   Dice dice(seed);
   Steps steps(count);
   std::generate(steps.begin(), steps.end(), [&] { return dice.number(); });
   return steps;
}

// The steps that are left when ever shorter rows of them, and at last each one, have been tried to be left
// out.
template <class Fails>
Steps shrunk(Steps steps, Fails&& fails)
{
   for (std::size_t size = steps.size(); size > 0; size /= 2) {
      for (std::size_t from = 0; from < steps.size();) {
         Steps without(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(from));
         for (std::size_t each = from + size; each < steps.size(); ++each) {
            without.push_back(steps[each]);
         }
         if (fails(without)) {
            steps = without;
         } else {
            from += size;
         }
      }
   }
   return steps;
}

inline long fromEnvironment(char const* name, long otherwise)
{
   char const* const value = std::getenv(name);
   return value == nullptr ? otherwise : std::atol(value);
}

} // namespace system_tests

#endif
