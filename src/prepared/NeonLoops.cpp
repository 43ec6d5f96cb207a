#include "prepared/LaneLoops.h"

#if defined(TRELVON_HAS_NEON_LANES)

#include <arm_neon.h>
#include <cstdint>

#define TRELVON_TARGET  // every processor of this kind has these instructions
#define TRELVON_NOT_INLINED __attribute__((noinline))

#include "prepared/LaneConversion.h"
#include "prepared/LaneReciprocals.h"

namespace Units {

namespace {

struct Lanes {
  using Doubles = float64x2_t;
  static constexpr std::size_t width = 2;

  static Doubles all(double value) { return vdupq_n_f64(value); }
  static Doubles load(const double* from) { return vld1q_f64(from); }
  static void store(double* to, Doubles a) { vst1q_f64(to, a); }
  static void stream(double* to, Doubles a) { vst1q_f64(to, a); }
  static void endStream() {}

  static Doubles fma(Doubles a, Doubles b, Doubles c) { return vfmaq_f64(c, a, b); }
  static Doubles fnma(Doubles a, Doubles b, Doubles c) { return vfmsq_f64(c, a, b); }

  static bool areInRange(const Doubles (&vectors)[4]) {
    const uint64x2_t a = vreinterpretq_u64_f64(vectors[0]), b = vreinterpretq_u64_f64(vectors[1]);
    const uint64x2_t c = vreinterpretq_u64_f64(vectors[2]), d = vreinterpretq_u64_f64(vectors[3]);
    const uint64x2_t any = vorrq_u64(vorrq_u64(a, b), vorrq_u64(c, d));
    const uint64x2_t every = vandq_u64(vandq_u64(a, b), vandq_u64(c, d));
    constexpr std::uint64_t first = std::uint64_t{1} << 62, second = first >> 1;
    const std::uint64_t anyLane = vgetq_lane_u64(any, 0) | vgetq_lane_u64(any, 1);
    const std::uint64_t everyLane = vgetq_lane_u64(every, 0) & vgetq_lane_u64(every, 1);
    return (anyLane & first) == 0 && (everyLane & second) != 0;
  }

  static Doubles replaceZeros(Doubles zeros, Doubles a) {
    return vbslq_f64(vceqzq_u64(vreinterpretq_u64_f64(zeros)), all(0.5), a);
  }

  static unsigned lanesBelow(Doubles a, Doubles b) {
    const uint64x2_t below = vcltq_f64(vabsq_f64(a), b);
    return static_cast<unsigned>((vgetq_lane_u64(below, 0) & 1) | (vgetq_lane_u64(below, 1) & 2));
  }

  static Doubles powerOfTwo(Doubles a) {
    const uint64x2_t exponent = vdupq_n_u64(std::uint64_t{0x7FF} << 52);
    return vreinterpretq_f64_u64(vandq_u64(vreinterpretq_u64_f64(a), exponent));
  }
};

}  // namespace

extern const LaneLoops neonLoops = {"NEON", [] { return true; }, convertInLanes<Lanes>,
                                    reciprocalsInLanes<Lanes>};

}  // namespace Units

#endif
