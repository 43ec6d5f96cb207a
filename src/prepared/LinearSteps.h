#pragma once

#include <cmath>

namespace Units {

/// The steps of a conversion between units that are not reciprocal, each of which is rounded.
struct LinearSteps {
  double fromOffset;
  double fromFactor;
  double toFactor;
  double toOffset;

  double apply(double value) const {
    return (fromOffset + value) * fromFactor / toFactor - toOffset;
  }

  /// Whether both offsets are 0 and not -0, which are added and subtracted with other results.
  bool hasNoOffsets() const {
    return fromOffset == 0.0 && toOffset == 0.0 && !std::signbit(fromOffset) &&
           !std::signbit(toOffset);
  }
};

}  // namespace Units
