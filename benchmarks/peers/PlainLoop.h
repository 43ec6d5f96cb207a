#pragma once

#include <cstddef>

namespace peers {

/// The arithmetic of a conversion in the simplest possible loop, compiled for wide vector
/// instructions if the processor has them.
void plainLoop(const double* values, double* converted, std::size_t count, double fromOffset,
               double fromFactor, double toFactor, double toOffset);

}  // namespace peers
