#pragma once

#include "text/NumberRenderer.h"

namespace Units {

/// Writes numbers as a whole number and a binary fraction in lowest terms: "12 1/2", "3/4", "2".
/// From 2^64 on, where no double has a fraction, the whole number is written in full.
class FractionalNumberRenderer : public INumberRenderer {
 public:
  static constexpr unsigned char maximumPrecision = 9;

  /// @param precision  numbers are rounded to a multiple of 2 to the power -precision, up to the
  ///                   maximum.
  explicit FractionalNumberRenderer(unsigned char precision) : precision_(precision) {}

  void render(std::string& out, double value, bool& negative) const override;

 private:
  const unsigned char precision_;
};

}  // namespace Units
