/// Runs every shape at a great size on a small stack, from the reading to the destruction of the
/// engine: an answer, or an exception of the documented classes, and no overflow. Then a diamond of
/// 1,000 levels, each operation in less than a second.
#include <pthread.h>

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <exception>

#include "robustness/Build.h"
#include "robustness/Findings.h"
#include "robustness/Shapes.h"

namespace {

constexpr std::size_t stackBytes = isSlowBuild ? 512 * 1024 : 128 * 1024;

struct Run {
  const Shape& shape;
  int size;
};

void* runOnThisStack(void* argument) {
  const Run& run = *static_cast<Run*>(argument);
  try {
    const Engine engine = sampleEngine();
    run.shape.prepare(run.size, *engine).run();
  } catch (const std::exception& error) {
    check(false, run.shape.name + ": " + error.what());
  }
  return nullptr;
}

double secondsOf(Run run) {
  const auto start = std::chrono::steady_clock::now();
  pthread_attr_t attributes;
  pthread_t thread;
  const bool hasRun = pthread_attr_init(&attributes) == 0 &&
                      pthread_attr_setstacksize(&attributes, stackBytes) == 0 &&
                      pthread_create(&thread, &attributes, runOnThisStack, &run) == 0 &&
                      pthread_join(thread, nullptr) == 0;
  check(hasRun, "no thread with a small stack");
  pthread_attr_destroy(&attributes);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  for (const Shape& shape : allShapes()) {
    const int size = (shape.kind == Shape::Definitions ? 100000 : 1000000) / share;
    const double seconds = secondsOf({shape, size});
    report(shape.name + ": " + std::to_string(size) + " in " + std::to_string(seconds) + " s");
  }
  for (const Shape& shape : allShapes())
    if (shape.name.find("diamond") == 0 || shape.name.find("ladder") == 0) {
      const double seconds = secondsOf({shape, 3000});
      report(shape.name + ": 1,000 levels in " + std::to_string(seconds) + " s");
      check(seconds < (isSlowBuild ? 10 : 1), shape.name + " takes too long");
    }
  return verdict();
}
