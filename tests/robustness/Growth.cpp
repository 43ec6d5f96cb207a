/// Runs one shape once, for callgrind to count: `Growth SHAPE SIZE`. Without arguments it lists the
/// shapes, with --proportions those of small definitions with two dimensions blown up. Only what
/// happens in `measured` counts.
#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"

#include <cstdlib>

extern "C" __attribute__((noinline)) void measured(const Work& work) { work.run(); }

int main(int count, char** arguments) {
  if (count != 3) {
    for (const Shape& shape : count == 1 ? allShapes() : proportionShapes()) report(shape.name);
    return 0;
  }
  const Engine engine = sampleEngine();
  const Work work = findShape(arguments[1]).prepare(std::atoi(arguments[2]), *engine);
  measured(work);
  report(work.bytes, " bytes");
}
