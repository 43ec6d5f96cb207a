#pragma once

#include "display/Natural.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace Units {

/// The double nearest to a number divided by all divisors, whose product is at most 2^53.
double quotient(Natural number, std::initializer_list<std::uint32_t> divisors);

/// A number of ASCII digits.
/// @param digits  at most `mostWholeDigits`.
Natural naturalOf(std::string_view digits);

/// More than any double has before its point.
inline constexpr std::size_t mostWholeDigits = 310;

}  // namespace Units
