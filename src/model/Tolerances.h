#pragma once

#include <cmath>

namespace Units {

/// Added in rounding, so that a number that fell just short of a step in binary still reaches it.
inline constexpr double roundingTolerance = 1e-9;

/// An exponent of a unit whose magnitude is below this counts as gone.
inline constexpr double exponentEpsilon = 2.220446049250313e-16;

inline bool isNearZero(double x) { return std::fabs(x) <= 1e-9; }

inline bool areNearlyEqual(double a, double b) {
  const double sum = std::fabs(a) + std::fabs(b);
  return sum < 1e-9 || std::fabs(a - b) <= sum * 1e-9;
}

}  // namespace Units
