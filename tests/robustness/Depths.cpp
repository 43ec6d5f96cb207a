/// Runs every shape at a great size on a small stack, from the reading to the destruction of the
/// engine: an answer, or an exception of the documented classes, and no overflow. Then a ladder of
/// 1,000 levels, each operation in less than a second.
#include "tests/robustness/Shapes.h"
#include "tests/support/Build.h"
#include "tests/support/Check.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <exception>

namespace {

/// As small as those of threads in hosts that start many. The limit holds from the start of a
/// program, so this one starts again.
void useSmallStack(char** arguments) {
  constexpr rlim_t bytes = (isSlowBuild ? 512 : 128) * 1024;
  rlimit limit{};
  ::getrlimit(RLIMIT_STACK, &limit);
  if (limit.rlim_cur == bytes) return;
  limit.rlim_cur = bytes;
  if (::setrlimit(RLIMIT_STACK, &limit) == 0) ::execv("/proc/self/exe", arguments);
  check(false, "no small stack");
}

double secondsOf(const Shape& shape, int size) {
  const auto start = std::chrono::steady_clock::now();
  try {
    const Engine engine = sampleEngine();
    shape.prepare(size, *engine).run();
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
  useSmallStack(arguments);
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  for (const Shape& shape : allShapes())
    secondsOf(shape, (shape.isOneText ? 1000000 : 100000) / share);
  for (const Shape& shape : allShapes())
    if (shape.name.find("ladder") == 0)
      check(secondsOf(shape, 2000) < (isSlowBuild ? 10 : 1), shape.name, " takes too long");
  return verdict();
}
