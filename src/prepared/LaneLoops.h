#pragma once

#include "prepared/ExactQuotient.h"
#include "prepared/LinearSteps.h"

#include <cstddef>

// GCC does not align the stack for wide vectors on Windows, so they are not used there.
#if defined(__GNUC__) && defined(__x86_64__) && !defined(_WIN32)
#define TRELVON_HAS_X86_LANES
#define TRELVON_HAS_LANES
#elif defined(__GNUC__) && defined(__aarch64__) && !defined(_WIN32)
#define TRELVON_HAS_NEON_LANES
#define TRELVON_HAS_LANES
#endif

namespace Units {

/// The loops over arrays for one kind of processor: for vectors of several doubles, called lanes.
struct LaneLoops {
  const char* processor;
  bool (*isUsable)();

  /// Converts whole blocks of at most 32 values, in the way to divide that is proven.
  /// @param isStreamed  whether to write past the cache; `converted` is aligned to 64 bytes then.
  /// @return  the number of values in these blocks.
  std::size_t (*convert)(const double* values, double* converted, std::size_t count,
                         const LinearSteps& steps, const Divisor& by, bool isStreamed);

  /// Stores pow(x, -1.0) of `count` numbers, a multiple of 8. Only for glibc's pow.
  void (*reciprocals)(const double* numbers, double* reciprocals, std::size_t count);
};

/// The loops that are compiled for this machine, the fastest first, and then a null pointer.
extern const LaneLoops* const allLaneLoops[];

/// The fastest that this processor can execute, or null.
const LaneLoops* usableLaneLoops();

}  // namespace Units
