#pragma once

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

  bool hasOffsets() const { return fromOffset != 0.0 || toOffset != 0.0; }
};

}  // namespace Units
