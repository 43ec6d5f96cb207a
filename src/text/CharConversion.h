#pragma once

#include "text/ClassicNumber.h"

/// What <charconv> does for doubles, for standard libraries that lack it: the same bits and texts,
/// through the C library, whatever the process's locale.
namespace Units::byCLibrary {

/// The decimal number that a text begins with, without a sign. One too large for a double is
/// infinite, one too small 0. Allocates nothing.
LeadingNumber readDecimal(std::string_view text);

/// Appends a magnitude in fixed notation; see `Units::appendFixed`.
/// @throws std::bad_alloc  nothing is appended then.
void appendFixed(std::string& out, double magnitude, unsigned char decimalPlaces);

/// See `Units::shortNumber`.
std::string shortNumber(double value);

}  // namespace Units::byCLibrary
