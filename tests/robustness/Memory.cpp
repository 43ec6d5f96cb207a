/// The most memory that reading a text takes, in bytes for each byte of it.
#include "tests/robustness/Measure.h"
#include "tests/support/Check.h"

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments) {
  const int share = count > 1 ? std::atoi(arguments[1]) : 1;  // of the full size, one in so many
  struct {
    const char* texts;
    double perByte;
    std::string shape;
  } most[] = {{"Schema texts", 0, ""}, {"Formulas", 0, ""}, {"Explanations", 0, ""}};
  for (const Shape& shape : allShapes())
    for (const int size : {1, (shape.isOneText ? 100000 : 3000) / share}) {
      const Engine engine = sampleEngine();
      const Work work = shape.prepare(size, *engine);
      const Taken taken = measure(work);
      std::printf("%-42s %9.0f bytes, peak %11.0f, %6.1f a byte\n", shape.name.c_str(), taken.bytes,
                  taken.peak, taken.perByte());
      std::fflush(stdout);
      check(taken.share <= 1, shape.name, " takes too much memory");
      auto& greatest = most[work.kind];
      if (size > 1 && taken.perByte() > greatest.perByte)
        greatest = {greatest.texts, taken.perByte(), shape.name};
    }
  for (const auto& [texts, perByte, shape] : most)
    std::printf("%s: at most %.1f bytes a byte, %s\n", texts, perByte, shape.c_str());
  return verdict();
}
