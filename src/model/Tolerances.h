#pragma once

#include <cmath>

namespace Units {

/// Added when rounding, so that a number just below a step because of binary error still reaches
/// it.
inline constexpr double roundingTolerance = 1e-9;

/// A unit's exponent of a magnitude below this counts as 0.
inline constexpr double exponentEpsilon = 2.220446049250313e-16;

inline bool isNearZero(double x) { return std::fabs(x) <= 1e-9; }

inline bool areNearlyEqual(double a, double b) {
  const double sum = std::fabs(a) + std::fabs(b);
  return sum < 1e-9 || std::fabs(a - b) <= sum * 1e-9;
}

}  // namespace Units
