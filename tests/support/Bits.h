/// Doubles by their bits: -0.0 is not 0.0.
#pragma once

#include <cstdint>
#include <cstring>

inline std::uint64_t bitsOf(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}
