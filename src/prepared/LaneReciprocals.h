#pragma once

#include <cmath>
#include <cstddef>

// Included after TRELVON_TARGET is defined, as LaneLoops.h is.
namespace Units {

// The library's results are pow(x, -1.0), to the bit. From 2^-64 to 2^64, glibc's pow is one
// rounding of a number within 1/64 ULP of the true power: since version 2.28, its source states an
// error of 0.511 ULP and 1.5 * 2^-15 for each unit of the natural logarithm of the result, which is
// 0.5131 ULP in all. So pow gives the double nearest to 1 / x, as division does, unless 1 / x is
// nearer than that to the midpoint of two doubles. Their distance is known from the remainder,
// which is exact: 1 / x - q = (1 - x * q) / x, and 1 / x is q apart from rounding.

/// Stores pow(x, -1.0) of `count` numbers, a multiple of the number of lanes.
template <class Lanes>
TRELVON_TARGET void reciprocalsInLanes(const double* numbers, double* reciprocals,
                                       std::size_t count) {
  constexpr unsigned everyLane = (1U << Lanes::width) - 1;
  const auto one = Lanes::all(1.0), limit = Lanes::all(0x1p64);
  const auto mostUlps = Lanes::all((0.5 - 1.0 / 64) * 0x1p-52);
  for (std::size_t done = 0; done < count; done += Lanes::width) {
    const auto x = Lanes::load(numbers + done);
    const auto quotient = one / x;
    const auto distance = Lanes::fnma(x, quotient, one) * quotient;
    const unsigned certain = Lanes::lanesBelow(distance, Lanes::powerOfTwo(quotient) * mostUlps) &
                             Lanes::lanesBelow(x, limit) & Lanes::lanesBelow(quotient, limit);
    Lanes::store(reciprocals + done, quotient);
    if (certain == everyLane) continue;
    for (std::size_t i = 0; i < Lanes::width; ++i)
      if ((certain >> i & 1U) == 0) reciprocals[done + i] = std::pow(numbers[done + i], -1.0);
  }
}

}  // namespace Units
