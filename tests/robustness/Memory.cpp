/// The most memory that reading a text takes, in bytes for each byte of it.
#include "tests/robustness/Measure.h"
#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"

#include <cstdio>
#include <cstdlib>

namespace {

int fullSize(Shape::Kind kind) {
  return kind == Shape::Formula || kind == Shape::Text ? 100000 : 3000;
}

/// Returns the bytes taken for a byte of text.
double measureAt(const Shape& shape, int size) {
  const Engine engine = sampleEngine();
  const Work work = shape.prepare(size, *engine);
  if (work.bytes == 0) return 0;
  const Taken taken = measure(work);
  std::printf("%-42s %9.0f bytes, peak %11.0f, %6.1f a byte\n", shape.name.c_str(), taken.bytes,
              taken.peak, taken.perByte());
  std::fflush(stdout);
  check(taken.isWithin(budgetOf(shape.kind)), shape.name, " takes too much memory");
  return taken.perByte();
}

void measureAll(const char* texts, bool areFormulas, int share) {
  double greatest = 0;
  std::string name;
  for (const Shape& shape : allShapes()) {
    if (isFormula(shape.kind) != areFormulas) continue;
    measureAt(shape, 1);
    const double perByte = measureAt(shape, fullSize(shape.kind) / share);
    if (perByte <= greatest) continue;
    greatest = perByte;
    name = shape.name;
  }
  std::printf("%s: at most %.1f bytes a byte, %s\n", texts, greatest, name.c_str());
}

}  // namespace

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  measureAll("Schema texts", false, share);
  measureAll("Formulas", true, share);
  return verdict();
}
