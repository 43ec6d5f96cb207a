/// Runs one shape once, for callgrind to count: `Growth SHAPE SIZE`. Without arguments it lists the
/// shapes. Only what happens in `measured` counts.
#include <cstdlib>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Shapes.h"

extern "C" __attribute__((noinline)) void measured(const Work& work) { work.run(); }

int main(int count, char** arguments) {
  if (count != 3) {
    for (const Shape& shape : allShapes()) report(shape.name);
    return 0;
  }
  const Engine engine = sampleEngine();
  for (const Shape& shape : allShapes()) {
    if (shape.name != arguments[1]) continue;
    measured(shape.prepare(std::atoi(arguments[2]), *engine));
    return 0;
  }
  report(std::string("No shape is called ") + arguments[1]);
  return 2;
}
