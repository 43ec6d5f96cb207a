#include "formula/Arithmetic.h"

#include <cerrno>
#include <cmath>

namespace {

constexpr double largestResult = 1e30;

bool isInRange(double result, bool mayBeZero) {
  return errno == 0 && !(std::fabs(result) > largestResult) && (result != 0 || mayBeZero);
}

}  // namespace

bool computePower(double& base, double exponent) {
  // Only 0 and infinities have powers that are exactly 0.
  const bool mayBeZero = base == 0 || !std::isfinite(base) || !std::isfinite(exponent);
  errno = 0;
  base = std::pow(base, exponent);
  return isInRange(base, mayBeZero);
}

bool computeExponential(double& exponent) {
  const bool mayBeZero = !std::isfinite(exponent);
  errno = 0;
  exponent = std::exp(exponent);
  return isInRange(exponent, mayBeZero);
}
