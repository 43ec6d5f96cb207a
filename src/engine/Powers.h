#pragma once

#include "model/Powers.h"

#include <TrelvonUnits/PrimitivePowers.h>

#include <cstddef>

namespace Units {

/// Sorts the powers from `first` to the end and adds up the exponents of each unit. A unit that
/// cancels stays, with exponent 0. Sums may exceed 32 bits.
void combinePowers(Powers& powers, std::size_t first);

PrimitivePowers toPrimitivePowers(const Powers& powers);

}  // namespace Units
