#include "benchmarks/peers/PlainLoop.h"

namespace peers {

void plainLoop(const double* values, double* converted, std::size_t count, double fromOffset,
               double fromFactor, double toFactor, double toOffset) {
  for (std::size_t at = 0; at < count; ++at)
    converted[at] = (fromOffset + values[at]) * fromFactor / toFactor - toOffset;
}

}  // namespace peers
