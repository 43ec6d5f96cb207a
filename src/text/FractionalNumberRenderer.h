#pragma once

#include "text/NumberRenderer.h"

namespace Units {

/// Writes numbers as a whole number and a binary fraction in lowest terms: "12 1/2", "3/4", "2".
/// Numbers of 2^64 and more, which have no fraction, are written in full.
class FractionalNumberRenderer : public INumberRenderer {
 public:
  static constexpr unsigned char maximumPrecision = 9;

  /// @param precision  up to the maximum; numbers are rounded to a multiple of 2 to the power
  ///                   -precision.
  explicit FractionalNumberRenderer(unsigned char precision) : precision_(precision) {}

  void render(std::string& out, double value, bool& negative) const override;

 private:
  const unsigned char precision_;
};

}  // namespace Units
