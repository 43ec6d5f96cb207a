#pragma once

namespace Units {

/// How to divide by a known divisor faster than by division, but with the same bits.
enum class Division {
  Plain,        // x / divisor
  Product,      // x * high
  TwoProducts,  // fma(x, high, x * low)
  Corrected,    // q = fma(x, high, x * low), then fma(fma(-divisor, q, x), high, q)
};

/// A divisor with its reciprocal in two doubles: `high` is the nearest to 1 / divisor, and `low` is
/// the nearest to the rest.
struct Divisor {
  double divisor;
  double high;
  double low;
  Division division;
};

/// Divisors and factors in this range leave a wide range of numbers whose conversion neither
/// overflows nor underflows.
inline bool isOrdinary(double factor) { return factor >= 0x1p-256 && factor <= 0x1p256; }

/// Proves which of the ways to divide gives the bits of the division for every x from 2^-256 to
/// 2^257 (by a product, for every x), as long as results are rounded to nearest. Takes as long as a
/// few divisions. Only for processors that have an instruction for fma.
Divisor provenDivisor(double divisor);

}  // namespace Units
