#pragma once

#include <map>
#include <string>

namespace Units {

/// The reduced dimension of a unit: type id of a primitive unit to its exponent.
///
/// Meter per second squared is {meter: 1, second: -2} where meter and second are primitive units.
/// An entry whose exponent is 0 counts as absent in every comparison.
using PrimitivePowers = std::map<std::string, int>;

}  // namespace Units
