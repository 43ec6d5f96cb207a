#pragma once

/// The two operations of the C library that a formula may drive out of the range of doubles. They
/// are false, and leave no result, when `errno` tells of an overflow or underflow, and beyond 1e30.
///
/// Where the C library sets no `errno` on underflow, a zero that cannot be exact tells of it.

/// Replaces a base, which must not be negative or else have an integral exponent, by its power.
bool computePower(double& base, double exponent);

/// Replaces an exponent by e raised to it.
bool computeExponential(double& exponent);
