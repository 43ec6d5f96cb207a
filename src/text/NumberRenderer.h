#pragma once

#include <string>

namespace Units {

/// Writes the digits of a number, rounded to what it was made for.
class INumberRenderer {
 public:
  virtual ~INumberRenderer() = default;

  /// Appends the digits of the rounded magnitude of `value` to `out`, never a minus sign: that
  /// stands before what the digits are decorated with. Infinity is written as "inf", and what is
  /// not a number as "nan", which has no sign.
  ///
  /// @param negative  set to whether the rounded value is below zero.
  virtual void render(std::string& out, double value, bool& negative) const = 0;
};

/// The magnitude of `value` rounded to a multiple of `step`; halves go away from zero, and so does
/// what falls short of a half by no more than the binary fraction does (1.005 to hundredths).
///
/// @param negative  set to whether the rounded value is below zero, which one that rounds to zero
///                  is not.
/// @return  never negative. Infinite if `value` is, or if it holds too many steps for a double.
double roundToStep(double value, double step, bool& negative);

}  // namespace Units
