#include "prepared/LaneLoops.h"

#if defined(TRELVON_HAS_X86_LANES)

#include <cstdint>
#include <immintrin.h>
#include <limits>

#define TRELVON_TARGET __attribute__((target("avx2,fma")))
#define TRELVON_NOT_INLINED __attribute__((noinline))

#include "prepared/LaneConversion.h"
#include "prepared/LaneReciprocals.h"

namespace Units {

namespace {

struct Lanes {
  using Doubles = __m256d;
  static constexpr std::size_t width = 4;

  TRELVON_TARGET static Doubles all(double value) { return _mm256_set1_pd(value); }
  TRELVON_TARGET static Doubles load(const double* from) { return _mm256_loadu_pd(from); }
  TRELVON_TARGET static void store(double* to, Doubles a) { _mm256_storeu_pd(to, a); }
  TRELVON_TARGET static void stream(double* to, Doubles a) { _mm256_stream_pd(to, a); }
  TRELVON_TARGET static void endStream() { _mm_sfence(); }

  /// a * b + c and c - a * b, rounded once.
  TRELVON_TARGET static Doubles fma(Doubles a, Doubles b, Doubles c) {
    return _mm256_fmadd_pd(a, b, c);
  }
  TRELVON_TARGET static Doubles fnma(Doubles a, Doubles b, Doubles c) {
    return _mm256_fnmadd_pd(a, b, c);
  }

  /// Whether all exponents begin with the bits 01: from 2^-511 to below 2.
  TRELVON_TARGET static bool areInRange(const Doubles (&vectors)[4]) {
    const Doubles a = _mm256_or_pd(vectors[0], vectors[1]);
    const Doubles b = _mm256_or_pd(vectors[2], vectors[3]);
    const Doubles c = _mm256_and_pd(vectors[0], vectors[1]);
    const Doubles d = _mm256_and_pd(vectors[2], vectors[3]);
    const __m256i first = _mm256_set1_epi64x(std::int64_t{1} << 62);
    const __m256i second = _mm256_set1_epi64x(std::int64_t{1} << 61);
    return _mm256_testz_si256(_mm256_castpd_si256(_mm256_or_pd(a, b)), first) &&
           _mm256_testc_si256(_mm256_castpd_si256(_mm256_and_pd(c, d)), second);
  }

  /// `a`, but 0.5 in the lanes where `zeros` is 0 and not -0.
  TRELVON_TARGET static Doubles replaceZeros(Doubles zeros, Doubles a) {
    const __m256i isZero = _mm256_cmpeq_epi64(_mm256_castpd_si256(zeros), _mm256_setzero_si256());
    return _mm256_blendv_pd(a, all(0.5), _mm256_castsi256_pd(isZero));
  }

  /// A bit for each lane: whether |a| < b.
  TRELVON_TARGET static unsigned lanesBelow(Doubles a, Doubles b) {
    const Doubles magnitude = _mm256_andnot_pd(all(-0.0), a);
    return static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(magnitude, b, _CMP_LT_OQ)));
  }

  /// The power of two at or below |a|, if `a` is normal.
  TRELVON_TARGET static Doubles powerOfTwo(Doubles a) {
    return _mm256_and_pd(a, all(std::numeric_limits<double>::infinity()));
  }
};

}  // namespace

extern const LaneLoops avx2Loops = {
    "AVX2", [] { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); },
    convertInLanes<Lanes>, reciprocalsInLanes<Lanes>};

}  // namespace Units

#endif
