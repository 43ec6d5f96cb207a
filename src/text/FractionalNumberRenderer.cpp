#include "text/FractionalNumberRenderer.h"

#include "model/Tolerances.h"
#include "text/ClassicNumber.h"

#include <cmath>
#include <cstdint>
#include <numeric>

namespace Units {

void FractionalNumberRenderer::render(std::string& out, double value, bool& negative) const {
  // Half of the finest step, so that truncation below gives the rounded count.
  constexpr double halfStep = 0.5 / (1 << maximumPrecision);

  const double rounded = roundToStep(value, std::ldexp(1.0, -precision_), negative);
  const double amount = rounded + roundingTolerance;
  if (!(amount < 0x1p64)) return appendFixed(out, rounded, 0);  // true for NaN as well

  const auto whole = static_cast<std::uint64_t>(amount);
  const double fraction = amount - static_cast<double>(whole) + halfStep;
  std::uint32_t denominator = std::uint32_t{1} << precision_;
  auto numerator = static_cast<std::uint32_t>(denominator * fraction);
  const std::uint32_t divisor = std::gcd(numerator, denominator);
  numerator /= divisor;
  denominator /= divisor;

  if (whole != 0 || numerator == 0) appendWhole(out, whole);
  if (numerator == 0) return;
  if (whole != 0) out += ' ';
  appendWhole(out, numerator);
  out += '/';
  appendWhole(out, denominator);
}

}  // namespace Units
