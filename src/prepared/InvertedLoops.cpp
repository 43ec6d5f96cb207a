#include "prepared/ArrayChecks.h"
#include "prepared/ConversionLoops.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Units {

namespace {

/// Whether `pow` is the function for which LaneReciprocals.h proves its results. Programs that are
/// built with such a C library cannot run with an older one.
#if defined(__GLIBC__) && (defined(__x86_64__) || defined(__aarch64__))
constexpr bool isPowKnown = __GLIBC_PREREQ(2, 29);
#else
constexpr bool isPowKnown = false;
#endif

double applyInverted(double value, const LinearSteps& steps) {
  const double primitive = (steps.fromOffset + value) * steps.fromFactor;
  return std::pow(primitive, -1.0) / steps.toFactor - steps.toOffset;
}

constexpr std::size_t chunkSize = 128;

/// Converts at most `chunkSize` numbers.
void convertChunk(const double* values, double* converted, std::size_t count,
                  const LinearSteps& steps, const Divisor& by, const LaneLoops& lanes) {
  double primitives[chunkSize], reciprocals[chunkSize];
  for (std::size_t i = 0; i < count; ++i)
    primitives[i] = (steps.fromOffset + values[i]) * steps.fromFactor;
  const std::size_t rounded = (count + 7) / 8 * 8;
  std::fill(primitives + count, primitives + rounded, 1.0);
  lanes.reciprocals(primitives, reciprocals, rounded);
  // Adding -0 changes no number, not even -0.
  convertProven(reciprocals, converted, count, {-0.0, 1.0, steps.toFactor, steps.toOffset}, by,
                &lanes);
}

}  // namespace

void convertAllInverted(const double* values, double* converted, std::size_t count,
                        const LinearSteps& steps, const LaneLoops* lanes) {
  std::size_t done = 0;
  if (isPowKnown && lanes && roundsToNearest() && !overwritesValues(values, converted, count)) {
    const Divisor by = divisorFor(steps, lanes);
    for (; count - done >= chunkSize; done += chunkSize)
      convertChunk(values + done, converted + done, chunkSize, steps, by, *lanes);
    convertChunk(values + done, converted + done, count - done, steps, by, *lanes);
    return;
  }
  for (; done < count; ++done) converted[done] = applyInverted(values[done], steps);
}

}  // namespace Units
