/// Blows up each dimension of a small set of definitions and formulas, and each pair of dimensions,
/// and checks that time and memory grow with the text: `Proportions [SIZE [NAME...]]`. Prints a row
/// for each, the worst first. Time is processor time; scripts/growth.py counts instructions
/// instead.
#include "tests/robustness/Measure.h"
#include "tests/support/Check.h"
#include "tests/support/CollidingIds.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <limits>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

constexpr double growthBudget = 2.75;  // at twice the size; instructions may grow by 2.3
constexpr double tooShort = 200e-6;    // seconds; less is noise
constexpr int attempts = 6;            // the least time counts
constexpr int rounds = 3;              // what a busy machine made long does not repeat

/// One use of a proportion, at one size.
struct Cost {
  std::string use;
  Taken taken;
  double seconds = std::numeric_limits<double>::infinity();
};

double now() {
  timespec time;
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Takes the least time so far.
void run(const Proportion& proportion, int size, std::vector<Cost>& costs) {
  const Engine engine = sampleEngine();
  const auto works = proportion.prepare(size, *engine);
  costs.resize(works.size());
  for (std::size_t i = 0; i < works.size(); ++i) {
    const double start = now();
    const Taken taken = measure(works[i].second);
    costs[i] = {works[i].first, taken, std::min(costs[i].seconds, now() - start)};
  }
}

/// Twice the size is twice the cost if it costs what its text grows by.
double growth(const Cost& single, const Cost& twice) {
  return 2 * (twice.seconds + tooShort) / (single.seconds + tooShort) /
         (twice.taken.bytes / single.taken.bytes);
}

/// What grows most, and what takes the greatest share of the memory that it may take.
struct Measured {
  Proportion proportion;
  double growth = 0, share = 0;
  std::string growing = {}, taking = {};

  double badness() const { return std::max(growth / growthBudget, share); }

  void measureAt(int size) {
    std::vector<Cost> single, twice;
    for (int attempt = 0; attempt < attempts && (attempt == 0 || growth > growthBudget);
         ++attempt) {
      run(proportion, size, single);
      run(proportion, 2 * size, twice);
      growth = share = 0;
      for (std::size_t i = 0; i < twice.size(); ++i) {
        const double found = ::growth(single[i], twice[i]), taken = twice[i].taken.share;
        if (found > growth) growth = found, growing = twice[i].use;
        if (taken > share) share = taken, taking = twice[i].use;
      }
    }
  }
};

/// The time of this program is worth nothing where the ids that it takes for slow are not.
void checkCollidingIds() {
#if defined(__GLIBCXX__)
  const std::hash<std::string> hash;
  const std::vector<std::string> ids = collidingIds(sizeof(std::size_t) == 8 ? 100 : 0);
  for (const std::string& id : ids)
    check(hash(id) == hash(ids.front()), "the colliding ids do not collide");
#endif
}

}  // namespace

int main(int count, char** arguments) {
#if defined(__GLIBC__)
  // Memory that goes back to the system costs page faults, many times the work that is measured.
  ::mallopt(M_MMAP_MAX, 0);
  ::mallopt(M_TRIM_THRESHOLD, -1);
#endif
  checkCollidingIds();
  const int size = count > 1 ? std::atoi(arguments[1]) : 2000;
  const std::vector<std::string> names(arguments + std::min(count, 2), arguments + count);
  std::vector<Measured> rows;
  for (const Proportion& proportion : proportions())
    if (names.empty() || std::count(names.begin(), names.end(), proportion.name) != 0)
      rows.push_back({proportion});
  for (int round = 0; round < rounds; ++round)
    for (Measured& row : rows)
      if (round == 0 || row.growth > growthBudget) row.measureAt(size);
  std::sort(rows.begin(), rows.end(),
            [](const Measured& a, const Measured& b) { return a.badness() > b.badness(); });
  std::printf("%-40s %6s  %-12s %6s\n", "blown up", "growth", "of", "memory (1 is allowed)");
  for (const Measured& row : rows) {
    const std::string& name = row.proportion.name;
    std::printf("%-40s %6.2f  %-12s %6.2f  %s\n", name.c_str(), row.growth, row.growing.c_str(),
                row.share, row.taking.c_str());
    std::fflush(stdout);
    check(row.growth <= growthBudget, name, " takes too much time");
    check(row.share <= 1, name, " takes too much memory");
  }
  report(rows.size(), " proportions at sizes ", size, " and ", 2 * size);
  return verdict();
}
