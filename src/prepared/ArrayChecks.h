#pragma once

#include <cstddef>
#include <functional>

namespace Units {

/// Whether results are rounded to nearest, as every proof assumes. A process can change that.
inline bool roundsToNearest() {
  const volatile double one = 1.0, tiny = 0x1p-60;
  return one + tiny == one && one - tiny == one;
}

/// Whether results overwrite values that have not been read yet. A loop over single values then
/// reads some of its own results; loops over blocks would not.
inline bool overwritesValues(const double* values, const double* converted, std::size_t count) {
  return std::less<>()(values, converted) && std::less<>()(converted, values + count);
}

inline bool areDisjoint(const double* values, const double* converted, std::size_t count) {
  return std::less_equal<>()(values + count, converted) ||
         std::less_equal<>()(converted + count, values);
}

}  // namespace Units
