#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

/// Works that are timed in turns with what they are held against. The ratio of two times taken one
/// after the other in one process says more than either: a slow machine, or a busy one, slows both.
namespace peers {

/// What a call leaves behind, to be destroyed when the clock has stopped.
using Leftover = std::shared_ptr<void>;

/// A call does `pieces` pieces of work.
struct Side {
  std::function<Leftover()> call;
  double pieces = 1;
};

struct Reached {
  double ratio;  // ours to theirs
  double ours;   // a piece
  double theirs;
  const char* unit = "ns";
};

/// Both sides of a row, their answers already checked against each other.
struct Sides {
  Side ours;
  Side theirs;
  std::optional<Reached> counted = {};  // there is nothing to time
};

/// How a row is judged: so many times faster than the other side, or at most so many of its times.
enum class Bound { Faster, AtMost };

struct Row {
  std::string work;
  std::string against;
  Bound bound;
  double must;
  double aim;
  std::function<Sides()> prepare;
};

/// Thrown by `prepare` when the other side is not installed.
struct Skipped : std::runtime_error {
  using runtime_error::runtime_error;
};

/// The medians of as many rounds, taken in turns.
Reached takeTurns(const Sides& sides, int rounds);

/// Refuses to time a wrong answer.
void check(bool isRight, const std::string& what);
void checkNear(double ours, double theirs, double tolerance, const std::string& what);

/// Keeps a result from being optimised away.
inline void keep(double value) { asm volatile("" : : "x"(value) : "memory"); }
inline void keep(const void* value) { asm volatile("" : : "r"(value) : "memory"); }

/// All rows of this program, in groups.
std::vector<Row> allRows();
std::vector<Row> conversionRows();
std::vector<Row> preparedRows();
std::vector<Row> formulaRows();
std::vector<Row> textRows();
std::vector<Row> loadingRows();

}  // namespace peers
