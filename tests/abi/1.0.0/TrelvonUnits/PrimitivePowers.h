#pragma once

#include <map>
#include <string>

namespace Units {

/// The reduced dimension of a unit: the type ids of primitive units, each with its exponent.
///
///   {{"example.unit:meter-1.0.0", 1}, {"example.unit:second-1.0.0", -2}}   acceleration
///   {}                                                                     a pure number
///
/// The keys are primitive units, not dimensions: a meter and another primitive unit of length are
/// different. In comparisons, an entry whose exponent is 0 counts as absent.
using PrimitivePowers = std::map<std::string, int>;

}  // namespace Units
