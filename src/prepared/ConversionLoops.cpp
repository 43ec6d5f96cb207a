#include "prepared/ConversionLoops.h"

#include "prepared/ArrayChecks.h"

#include <cstdint>

namespace Units {

namespace {

#if defined(__GNUC__)
#define TRELVON_INLINED inline __attribute__((always_inline))
#else
#define TRELVON_INLINED inline
#endif

// The compiler vectorizes these loops. Wider instructions produce the same bits, since products and
// sums are never fused.
TRELVON_INLINED void divideEach(const double* values, double* converted, std::size_t count,
                                const LinearSteps& steps) {
  const LinearSteps copy = steps;  // which the results cannot overwrite
  if (values == converted) {  // separate, because loops over overlapping arrays are not vectorized
    for (std::size_t i = 0; i < count; ++i) converted[i] = copy.apply(converted[i]);
  } else {
    for (std::size_t i = 0; i < count; ++i) converted[i] = copy.apply(values[i]);
  }
}

#if defined(__GNUC__) && defined(__x86_64__)
__attribute__((target("avx2"))) void divideWidely(const double* values, double* converted,
                                                  std::size_t count, const LinearSteps& steps) {
  divideEach(values, converted, count, steps);
}
#endif

/// Converts by division.
void divideAll(const double* values, double* converted, std::size_t count,
               const LinearSteps& steps) {
#if defined(__GNUC__) && defined(__x86_64__)
  if (__builtin_cpu_supports("avx2")) return divideWidely(values, converted, count, steps);
#endif
  divideEach(values, converted, count, steps);
}

std::uintptr_t addressOf(const double* number) { return reinterpret_cast<std::uintptr_t>(number); }

/// Whether to write past the cache, without reading each line first. If the arrays are much larger
/// than the cache, that takes a fifth less time. Packed structures and mapped files may have
/// numbers at any address, which needs other instructions.
bool isWorthStreaming(const double* values, const double* converted, std::size_t count) {
#if defined(TRELVON_HAS_X86_LANES)
  constexpr std::size_t manyValues = std::size_t{1} << 22;
  return count >= manyValues && areDisjoint(values, converted, count) &&
         addressOf(converted) % sizeof(double) == 0;
#else
  return (void)values, (void)converted, (void)count, false;
#endif
}

/// The number of values before the first one that is aligned to a vector. Streaming needs that
/// alignment, and storing a vector across two cache lines takes longer.
std::size_t countBeforeAligned(const double* converted, std::size_t count) {
  constexpr std::size_t minCount = 1024;  // tuning: fewer values are converted as fast as that
  return count < minCount ? 0 : (0 - addressOf(converted)) % 64 / sizeof(double);
}

}  // namespace

Divisor divisorFor(const LinearSteps& steps, const LaneLoops* lanes) {
#if defined(TRELVON_HAS_LANES)
  if (lanes && isOrdinary(steps.fromFactor) && isOrdinary(steps.toFactor) && roundsToNearest())
    return provenDivisor(steps.toFactor);
#endif
  return (void)lanes, Divisor{steps.toFactor, 0.0, 0.0, Division::Plain};
}

void convertProven(const double* values, double* converted, std::size_t count,
                   const LinearSteps& steps, const Divisor& by, const LaneLoops* lanes) {
  if (by.division == Division::Plain || overwritesValues(values, converted, count))
    return divideAll(values, converted, count, steps);
  const bool isStreamed = isWorthStreaming(values, converted, count);
  std::size_t done = countBeforeAligned(converted, count);
  divideAll(values, converted, done, steps);
  done += lanes->convert(values + done, converted + done, count - done, steps, by, isStreamed);
  divideAll(values + done, converted + done, count - done, steps);
}

void convertAll(const double* values, double* converted, std::size_t count,
                const LinearSteps& steps, const LaneLoops* lanes) {
  constexpr std::size_t minCount = 100;  // tuning
  const Divisor by = divisorFor(steps, count < minCount ? nullptr : lanes);
  convertProven(values, converted, count, steps, by, lanes);
}

}  // namespace Units
