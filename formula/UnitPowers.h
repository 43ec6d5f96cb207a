#pragma once

#include <map>
#include <string>

/// The units of a formula's value: type id of a primitive unit to its exponent, which a root may
/// make fractional. Empty means unitless.
using UnitPowerMap = std::map<std::string, double>;
