/// Runs every shape at a great size on a small stack, from the reading to the destruction of the
/// engine: an answer, or an exception of the documented classes, and no overflow. Then a diamond of
/// 1,000 levels, each operation in less than a second.
#include <chrono>
#include <cstdlib>
#include <exception>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Shapes.h"
#include "tests/robustness/SmallStack.h"
#include "tests/support/Build.h"

namespace {

double secondsOf(const Shape& shape, int size) {
  const auto start = std::chrono::steady_clock::now();
  try {
    onSmallStack([&] {
      const Engine engine = sampleEngine();
      shape.prepare(size, *engine).run();
    });
  } catch (const std::exception& error) {
    check(false, shape.name + ": " + error.what());
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  for (const Shape& shape : allShapes()) {
    const int size = (shape.kind == Shape::Definitions ? 100000 : 1000000) / share;
    const double seconds = secondsOf(shape, size);
    report(shape.name + ": " + std::to_string(size) + " in " + std::to_string(seconds) + " s");
  }
  for (const Shape& shape : allShapes())
    if (shape.name.find("diamond") == 0 || shape.name.find("ladder") == 0) {
      const double seconds = secondsOf(shape, 3000);
      report(shape.name + ": 1,000 levels in " + std::to_string(seconds) + " s");
      check(seconds < (isSlowBuild ? 10 : 1), shape.name + " takes too long");
    }
  return verdict();
}
