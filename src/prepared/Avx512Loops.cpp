#include "prepared/LaneLoops.h"

#if defined(TRELVON_HAS_X86_LANES)

#include <cstdint>
#include <immintrin.h>
#include <limits>

#define TRELVON_TARGET __attribute__((target("avx512f")))
#define TRELVON_NOT_INLINED __attribute__((noinline))

#include "prepared/LaneConversion.h"
#include "prepared/LaneReciprocals.h"

namespace Units {

namespace {

struct Lanes {
  using Doubles = __m512d;
  static constexpr std::size_t width = 8;

  TRELVON_TARGET static Doubles all(double value) { return _mm512_set1_pd(value); }
  TRELVON_TARGET static Doubles load(const double* from) { return _mm512_loadu_pd(from); }
  TRELVON_TARGET static void store(double* to, Doubles a) { _mm512_storeu_pd(to, a); }
  TRELVON_TARGET static void stream(double* to, Doubles a) { _mm512_stream_pd(to, a); }
  TRELVON_TARGET static void endStream() { _mm_sfence(); }

  TRELVON_TARGET static Doubles fma(Doubles a, Doubles b, Doubles c) {
    return _mm512_fmadd_pd(a, b, c);
  }
  TRELVON_TARGET static Doubles fnma(Doubles a, Doubles b, Doubles c) {
    return _mm512_fnmadd_pd(a, b, c);
  }

  TRELVON_TARGET static bool areInRange(const Doubles (&vectors)[4]) {
    const __m512i a = _mm512_castpd_si512(vectors[0]), b = _mm512_castpd_si512(vectors[1]);
    const __m512i c = _mm512_castpd_si512(vectors[2]), d = _mm512_castpd_si512(vectors[3]);
    const __m512i right = _mm512_set1_epi64(std::int64_t{1} << 61);
    __m512i wrong = _mm512_ternarylogic_epi64(a, b, right, 0x7E);  // (a ^ right) | (b ^ right)
    wrong = _mm512_ternarylogic_epi64(wrong, c, right, 0xF6);      // wrong | (c ^ right)
    wrong = _mm512_ternarylogic_epi64(wrong, d, right, 0xF6);
    return _mm512_test_epi64_mask(wrong, _mm512_set1_epi64(std::int64_t{3} << 61)) == 0;
  }

  TRELVON_TARGET static Doubles replaceZeros(Doubles zeros, Doubles a) {
    const __mmask8 isZero =
        _mm512_cmpeq_epi64_mask(_mm512_castpd_si512(zeros), _mm512_setzero_si512());
    return _mm512_mask_mov_pd(a, isZero, all(0.5));
  }

  TRELVON_TARGET static unsigned lanesBelow(Doubles a, Doubles b) {
    return _mm512_cmp_pd_mask(_mm512_abs_pd(a), b, _CMP_LT_OQ);
  }

  TRELVON_TARGET static Doubles powerOfTwo(Doubles a) {
    const __m512i exponent = _mm512_set1_epi64(std::int64_t{0x7FF} << 52);
    return _mm512_castsi512_pd(_mm512_and_epi64(_mm512_castpd_si512(a), exponent));
  }
};

}  // namespace

extern const LaneLoops avx512Loops = {"AVX-512",
                                      [] { return __builtin_cpu_supports("avx512f") != 0; },
                                      convertInLanes<Lanes>, reciprocalsInLanes<Lanes>};

}  // namespace Units

#endif
