/// Blows up each dimension of a small set of definitions and formulas, and each pair of dimensions,
/// and checks that time and memory grow with the text: `Proportions [SIZE [NAME...]]`. Prints a row
/// for each, the worst first. Time is processor time; scripts/growth.py counts instructions
/// instead.
#include "tests/robustness/Measure.h"
#include "tests/robustness/Shapes.h"
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
  double seconds = std::numeric_limits<double>::infinity();
  Taken taken;
};

double now() {
  timespec time;
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Takes the least time so far.
void run(const Proportion& proportion, int size, std::vector<Cost>& costs) {
  const Engine engine = sampleEngine();
  const std::vector<NamedWork> works = proportion.prepare(size, *engine);
  costs.resize(works.size());
  for (std::size_t i = 0; i < works.size(); ++i) {
    const double start = now();
    costs[i].taken = measure(works[i].work);
    costs[i].seconds = std::min(costs[i].seconds, now() - start);
  }
}

/// Twice the size is twice the cost if it costs what its text grows by.
double growth(const Cost& single, const Cost& twice) {
  return 2 * (twice.seconds + tooShort) / (single.seconds + tooShort) /
         (twice.taken.bytes / single.taken.bytes);
}

struct Row {
  std::string name;
  double growth = 0, perByte = 0;
  std::string growing = {}, taking = {};  // the uses
};

Row rowOf(const Proportion& proportion, int size) {
  std::vector<Cost> single, twice;
  Row row{proportion.name};
  for (int attempt = 0; attempt < attempts; ++attempt) {
    run(proportion, size, single);
    run(proportion, 2 * size, twice);
    row.growth = 0;
    const Engine engine = makeEngine();
    const std::vector<NamedWork> works = proportion.prepare(1, *engine);
    for (std::size_t i = 0; i < works.size(); ++i) {
      const double found = growth(single[i], twice[i]);
      if (found > row.growth) row.growth = found, row.growing = works[i].name;
      const Budget budget = budgetOf(works[i].kind);
      const Taken& taken = twice[i].taken;
      const double share = std::max(0.0, taken.peak - budget.fixed) / taken.bytes / budget.perByte;
      if (share > row.perByte) row.perByte = share, row.taking = works[i].name;
    }
    if (row.growth <= growthBudget) break;
  }
  return row;
}

}  // namespace

int main(int count, char** arguments) {
#if defined(__GLIBC__)
  // Memory that goes back to the system costs page faults, many times the work that is measured.
  ::mallopt(M_MMAP_MAX, 0);
  ::mallopt(M_TRIM_THRESHOLD, -1);
#endif
  const int size = count > 1 ? std::atoi(arguments[1]) : 2000;
#if defined(__GLIBCXX__)
  if (sizeof(std::size_t) == 8)
    for (const std::string& id : collidingIds(100))
      check(std::hash<std::string>()(id) == std::hash<std::string>()(collidingIds(1)[0]),
            "the colliding ids do not collide");
#endif
  const std::vector<std::string> names(arguments + std::min(count, 2), arguments + count);
  std::vector<Proportion> asked;
  for (const Proportion& proportion : proportions())
    if (names.empty() || std::count(names.begin(), names.end(), proportion.name) != 0)
      asked.push_back(proportion);
  std::vector<Row> rows;
  for (const Proportion& proportion : asked) rows.push_back(rowOf(proportion, size));
  for (int round = 1; round < rounds; ++round)
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].growth > growthBudget) rows[i] = rowOf(asked[i], size);
  std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
    return std::max(a.growth / growthBudget, a.perByte) >
           std::max(b.growth / growthBudget, b.perByte);
  });
  std::printf("%-40s %6s  %-12s %6s\n", "blown up", "growth", "of", "memory (1 is allowed)");
  for (const Row& row : rows) {
    std::printf("%-40s %6.2f  %-12s %6.2f  %s\n", row.name.c_str(), row.growth, row.growing.c_str(),
                row.perByte, row.taking.c_str());
    std::fflush(stdout);
    check(row.growth <= growthBudget, row.name, " takes too much time");
    check(row.perByte <= 1, row.name, " takes too much memory");
  }
  report(rows.size(), " proportions at sizes ", size, " and ", 2 * size);
  return verdict();
}
