#pragma once

#include <cstddef>

namespace Units {

/// converted[i] = (fromOffset + values[i]) * fromFactor / toFactor - toOffset, rounded after each
/// step in that order, with the widest instructions that the processor has.
void convertAll(const double* values, double* converted, std::size_t count, double fromOffset,
                double fromFactor, double toFactor, double toOffset);

}  // namespace Units
