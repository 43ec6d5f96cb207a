#pragma once

#include <cstddef>

namespace peers {

/// What a conversion comes to, by the plainest loop there is, compiled for the processor's wider
/// instructions where it has them.
void plainLoop(const double* values, double* converted, std::size_t count, double fromOffset,
               double fromFactor, double toFactor, double toOffset);

}  // namespace peers
