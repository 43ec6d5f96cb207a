#pragma once

#include <string>

namespace Units {

/// Writes the digits of a number, rounded to the renderer's precision.
class INumberRenderer {
 public:
  virtual ~INumberRenderer() = default;

  /// Appends the digits of the rounded magnitude of `value` to `out`, never a minus sign, which
  /// belongs before a prefix. Writes infinity as "inf" and NaN as "nan", which has no sign.
  ///
  /// @param negative  set to whether the rounded value is below zero.
  virtual void render(std::string& out, double value, bool& negative) const = 0;
};

/// The magnitude of `value` rounded to a multiple of `step`. Halves round away from zero, and so do
/// decimal halves that fall short in binary (1.005 to hundredths).
///
/// @param negative  set to whether the rounded value is below zero; false if it rounds to zero.
/// @return  never negative. Infinite if `value` is, or if `value / step` is too large for a double.
double roundToStep(double value, double step, bool& negative);

}  // namespace Units
