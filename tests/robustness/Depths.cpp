/// Runs every shape at a great size on a small stack, from the reading to the destruction of the
/// engine: an answer, or an exception of the documented classes, and no overflow. Then a diamond of
/// 1,000 levels, each operation in less than a second.
#include "tests/robustness/Shapes.h"
#include "tests/robustness/SmallStack.h"
#include "tests/support/Build.h"
#include "tests/support/Check.h"

#include <chrono>
#include <cstdlib>
#include <exception>

namespace {

double secondsOf(const Shape& shape, int size) {
  const auto start = std::chrono::steady_clock::now();
  try {
    onSmallStack([&] {
      const Engine engine = sampleEngine();
      shape.prepare(size, *engine).run();
    });
  } catch (const std::exception& error) {
    check(false, shape.name, ": ", error.what());
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  report(shape.name, ": ", size, " in ", seconds, " s");
  return seconds;
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  for (const Shape& shape : allShapes())
    secondsOf(shape, (shape.isOneText ? 1000000 : 100000) / share);
  for (const Shape& shape : allShapes())
    if (shape.name.find("diamond") == 0 || shape.name.find("ladder") == 0)
      check(secondsOf(shape, 3000) < (isSlowBuild ? 10 : 1), shape.name, " takes too long");
  return verdict();
}
