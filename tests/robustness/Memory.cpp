/// The most memory that reading a text takes, in bytes for each byte of it.
#include <cstdio>
#include <cstdlib>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Shapes.h"
#include "tests/support/Heap.h"

namespace {

struct Budget {
  double perByte;
  double fixed;
};
constexpr Budget textBudget = {100, 1024 * 1024};
constexpr Budget formulaBudget = {128, 64 * 1024};

/// The most that a long text took.
struct Greatest {
  double perByte = 0;
  std::string shape;

  void take(double found, const std::string& name) {
    if (found > perByte) *this = {found, name};
  }
};

int fullSize(Shape::Kind kind) { return kind == Shape::Definitions ? 3000 : 100000; }

/// Returns the bytes taken for a byte of text.
double measure(const Shape& shape, int size) {
  const Engine engine = sampleEngine();
  const Work work = shape.prepare(size, *engine);
  if (work.bytes == 0) return 0;
  const long before = heap::liveBytes();
  heap::resetPeak();
  work.run();
  const auto peak = static_cast<double>(heap::peakBytes() - before);
  const auto bytes = static_cast<double>(work.bytes + *work.substituted);
  const Budget& budget = shape.kind == Shape::Formula ? formulaBudget : textBudget;
  char line[200];
  std::snprintf(line, sizeof line, "%-42s %9.0f bytes, peak %11.0f, %6.1f a byte",
                shape.name.c_str(), bytes, peak, peak / bytes);
  report(line);
  check(peak <= budget.perByte * bytes + budget.fixed, shape.name + " takes too much memory");
  return peak / bytes;
}

std::string written(const char* texts, const Greatest& greatest) {
  char line[200];
  std::snprintf(line, sizeof line, "%s: at most %.1f bytes a byte, %s", texts, greatest.perByte,
                greatest.shape.c_str());
  return line;
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  Greatest schemas, formulas;
  for (const Shape& shape : allShapes()) {
    measure(shape, 1);
    const double perByte = measure(shape, fullSize(shape.kind) / share);
    (shape.kind == Shape::Formula ? formulas : schemas).take(perByte, shape.name);
  }
  report(written("Schema texts", schemas));
  report(written("Formulas", formulas));
  return verdict();
}
