#include "prepared/ConversionLoops.h"

// The compiler vectorizes the loops below. Wider instructions produce the same bits, since products
// and sums are never fused.
namespace Units {

namespace {

#if defined(__GNUC__)
#define TRELVON_INLINED inline __attribute__((always_inline))
#else
#define TRELVON_INLINED inline
#endif

TRELVON_INLINED void convertEach(const double* values, double* converted, std::size_t count,
                                 double fromOffset, double fromFactor, double toFactor,
                                 double toOffset) {
  const auto convert = [=](double value) {
    return (fromOffset + value) * fromFactor / toFactor - toOffset;
  };
  if (values == converted) {  // separate, because loops over overlapping arrays are not vectorized
    for (std::size_t i = 0; i < count; ++i) converted[i] = convert(converted[i]);
  } else {
    for (std::size_t i = 0; i < count; ++i) converted[i] = convert(values[i]);
  }
}

#if defined(__GNUC__) && defined(__x86_64__)
__attribute__((target("avx2"))) void convertWide(const double* values, double* converted,
                                                 std::size_t count, double fromOffset,
                                                 double fromFactor, double toFactor,
                                                 double toOffset) {
  convertEach(values, converted, count, fromOffset, fromFactor, toFactor, toOffset);
}

bool hasWideInstructions() { return __builtin_cpu_supports("avx2"); }
#else
constexpr auto convertWide = convertEach;
bool hasWideInstructions() { return false; }
#endif

}  // namespace

void convertAll(const double* values, double* converted, std::size_t count, double fromOffset,
                double fromFactor, double toFactor, double toOffset) {
  if (hasWideInstructions())  // tuning
    convertWide(values, converted, count, fromOffset, fromFactor, toFactor, toOffset);
  else
    convertEach(values, converted, count, fromOffset, fromFactor, toFactor, toOffset);
}

}  // namespace Units
