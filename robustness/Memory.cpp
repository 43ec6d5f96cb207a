/// The most memory that reading a text takes, in bytes for each byte of it.
#include <cstdio>
#include <cstdlib>

#include "robustness/Findings.h"
#include "robustness/Heap.h"
#include "robustness/Shapes.h"

namespace {

struct Budget {
  double perByte;
  double fixed;
};
constexpr Budget textBudget = {100, 1024 * 1024};
constexpr Budget formulaBudget = {256, 64 * 1024};

void measure(const Shape& shape, int size) {
  const Engine engine = sampleEngine();
  const Work work = shape.prepare(size, *engine);
  if (work.bytes == 0) return;
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
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  for (const Shape& shape : allShapes()) {
    measure(shape, 1);
    measure(shape, (shape.kind == Shape::Definitions ? 3000 : 100000) / share);
  }
  return verdict();
}
