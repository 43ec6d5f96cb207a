#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

/// Benchmarks that alternate with their baselines. The ratio of two times that are measured one
/// after the other in one process says more than either time: a slow or busy machine slows down
/// both.
namespace peers {

/// The result of a call, to be destroyed after the clock has stopped.
using Leftover = std::shared_ptr<void>;

/// One call performs `pieces` operations.
struct Side {
  std::function<Leftover()> call;
  double pieces = 1;
};

struct Reached {
  double ratio;  // ours to theirs
  double ours;   // per operation
  double theirs;
  const char* unit = "ns";
  double leastRatio = ratio;  // of all rounds
  double mostRatio = ratio;
};

/// Both sides of a row. Their results have already been compared.
struct Sides {
  Side ours;
  Side theirs;
  std::optional<Reached> counted = {};  // set if the row counts something instead of timing
};

/// How to read the bounds of a row: at least so many times faster than the baseline, or at most so
/// many times as slow.
enum class Bound { Faster, AtMost };

struct Row {
  std::string work;
  std::string against;  // the baseline
  Bound bound;
  double target;  // required
  double goal;    // better than required
  std::function<Sides()> prepare;
};

/// Thrown by `prepare` if the library of the baseline is not installed.
struct Skipped : std::runtime_error {
  using runtime_error::runtime_error;
};

/// Alternates both sides for some rounds and returns the medians.
Reached takeTurns(const Sides& sides, int rounds);

/// Throws if a result is wrong, so that it is not timed.
void check(bool isRight, const std::string& what);
void checkNear(double ours, double theirs, double tolerance, const std::string& what);

/// Keeps a result from being optimized away.
inline void keep(double value) { asm volatile("" : : "x"(value) : "memory"); }
inline void keep(const void* value) { asm volatile("" : : "r"(value) : "memory"); }

/// All rows of this program, in groups.
std::vector<Row> allRows();
std::vector<Row> conversionRows();
std::vector<Row> preparedRows();
std::vector<Row> formulaRows();
std::vector<Row> textRows();
std::vector<Row> loadingRows();
std::vector<Row> namingRows();

}  // namespace peers
