#pragma once

#include <TrelvonUnits/FormulaReason.h>

/// The two C library functions whose result a formula can make overflow or underflow. They return
/// OutOfRange, without a valid result, if `errno` reports either one or if the result exceeds 1e30.
///
/// If the C library does not set `errno` on underflow, a zero that cannot be exact detects it.

/// Replaces a base by its power. The exponent of a negative base must be an integer.
Units::FormulaReason computePower(double& base, double exponent);

/// Replaces an exponent by e raised to it.
Units::FormulaReason computeExponential(double& exponent);
