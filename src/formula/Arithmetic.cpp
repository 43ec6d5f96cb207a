#include "formula/Arithmetic.h"

#include <cerrno>
#include <cmath>

using Units::FormulaReason;

namespace {

constexpr double largestResult = 1e30;

FormulaReason checkRange(double result, bool mayBeZero) {
  const bool isInRange =
      errno == 0 && !(std::fabs(result) > largestResult) && (result != 0 || mayBeZero);
  return isInRange ? FormulaReason::Done : FormulaReason::OutOfRange;
}

}  // namespace

FormulaReason computePower(double& base, double exponent) {
  // Only 0 and infinities have powers that are exactly 0.
  const bool mayBeZero = base == 0 || !std::isfinite(base) || !std::isfinite(exponent);
  errno = 0;
  base = std::pow(base, exponent);
  return checkRange(base, mayBeZero);
}

FormulaReason computeExponential(double& exponent) {
  const bool mayBeZero = !std::isfinite(exponent);
  errno = 0;
  exponent = std::exp(exponent);
  return checkRange(exponent, mayBeZero);
}
