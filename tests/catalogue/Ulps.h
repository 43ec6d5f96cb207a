/// How many doubles apart two doubles are.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>

/// In units in the last place; the largest number where signs differ or one is no number.
inline std::uint64_t ulpsBetween(double a, double b) {
  if (a == b) return 0;
  if (std::isnan(a) || std::isnan(b) || std::signbit(a) != std::signbit(b)) return UINT64_MAX;
  std::uint64_t left = 0;
  std::uint64_t right = 0;
  std::memcpy(&left, &a, sizeof left);
  std::memcpy(&right, &b, sizeof right);
  return left > right ? left - right : right - left;
}

inline testing::AssertionResult areWithin2Ulps(double got, double expected) {
  if (ulpsBetween(got, expected) <= 2) return testing::AssertionSuccess();
  return testing::AssertionFailure() << got << " instead of " << expected;
}
