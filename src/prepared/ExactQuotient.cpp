#include "prepared/ExactQuotient.h"

#include "prepared/LaneLoops.h"

#if defined(TRELVON_HAS_LANES)

#include <cmath>
#include <cstdint>
#include <cstring>

// The method is that of N. Brisebarre, J.-M. Muller and S. K. Raina, "Accelerating correctly
// rounded floating-point division when the divisor is known in advance", IEEE Transactions on
// Computers 53(8), 2004. The proof, for doubles of 53 bits rounded to nearest:
//
// Scaling by powers of two changes nothing, so let x = X / 2^52 and y = Y / 2^52 be in [1, 2) with
// integers X and Y. If y = 1, then high = 1 / y, and x * high rounds the same number as x / y.
// Otherwise high is in [1/2, 1), so that |1/y - high| < 2^-54, |1/y - high - low| <= 2^-108, and
// x * low is rounded by at most 2^-107. Hence
//
//   |x * high + RN(x * low) - x / y| < 2 * 2^-108 + 2^-107 = 2^-106.
//
// The fma rounds its sum once. It gives the nearest double to x / y, unless the midpoint m of two
// doubles lies between x / y and that sum. x / y is never a midpoint itself.
//
// - If x >= y, then x / y is in [1, 2), and |x / y - m| = |2^53 X - M Y| / Y * 2^-53 with an odd M.
//   The numerator is an integer and not 0, and Y < 2^53, so this is more than 2^-106.
// - If x < y, then x / y is in (1/2, 1), and |x / y - m| = |2^54 X - M Y| / Y * 2^-54. It is more
//   than 2^-106 unless the numerator is 1, which is possible only if Y is odd. That leaves one X
//   for each sign: 2^-54 modulo Y, and the negative of it. Their sum is Y, so only the greater of
//   them can be 2^52 or more. This one numerator is tried.
//
//   If |low| < high * 2^-55, there is no doubt: both errors are half as large, so that the sum is
//   nearer than 2^-107 to x / y, and 1 / Y * 2^-54 is more than that.
//
// So the way with two products is right for every x, or the trial fails. Then the way with a
// correction is right: two products give one of the two doubles around x / y, and high is the
// nearest double to 1 / y, which is all that P. Markstein's theorem requires ("Computation of
// elementary functions on the IBM RISC System/6000 processor", IBM Journal of Research and
// Development 34(1), 1990).
#if defined(__GNUC__) && defined(__x86_64__)
#define TRELVON_TARGET __attribute__((target("fma")))
#else
#define TRELVON_TARGET
#endif

namespace Units {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::uint64_t unit = std::uint64_t{1} << 52;

std::uint64_t significandOf(double ordinary) {
  std::uint64_t bits;
  std::memcpy(&bits, &ordinary, sizeof bits);
  return (bits & (unit - 1)) | unit;
}

/// 2^-54 modulo an odd number: a multiple of it that ends with 54 ones is added to 1.
std::uint64_t inverseOf2To54(std::uint64_t odd) {
  std::uint64_t inverse = (3 * odd) ^ 2;                              // modulo 2^5
  for (int step = 0; step < 4; ++step) inverse *= 2 - odd * inverse;  // doubles the bits
  const std::uint64_t factor = (0 - inverse) & ((std::uint64_t{1} << 54) - 1);
  return static_cast<std::uint64_t>((Wide{factor} * odd + 1) >> 54);
}

/// Whether two products give the nearest double for the only numerator that is in doubt, if any is.
TRELVON_TARGET bool passesTrial(const Divisor& by) {
  if (std::abs(by.low) < std::abs(by.high) * 0x1p-55)
    return true;  // tuning: the trial takes longer
  const std::uint64_t significand = significandOf(by.divisor);
  if (significand % 2 == 0) return true;
  const std::uint64_t inverse = inverseOf2To54(significand);
  const std::uint64_t doubtful = inverse > significand / 2 ? inverse : significand - inverse;
  if (doubtful < unit) return true;
  const auto x = static_cast<double>(doubtful);
  return std::fma(x, by.high, x * by.low) == x / by.divisor;
}

}  // namespace

TRELVON_TARGET Divisor provenDivisor(double divisor) {
  if (!isOrdinary(divisor)) return {divisor, 0.0, 0.0, Division::Plain};
  const double high = 1.0 / divisor;
  Divisor by = {divisor, high, std::fma(-divisor, high, 1.0) / divisor, Division::Product};
  if (significandOf(divisor) == unit) return by;
  by.division = passesTrial(by) ? Division::TwoProducts : Division::Corrected;
  return by;
}

}  // namespace Units

#endif
