#pragma once

#include "text/NumberRenderer.h"

namespace Units {

/// Writes numbers with a fixed count of decimal places: "12.50", or "12.5" when trailing zeros are
/// trimmed. No point is written without places.
class FixedPointNumberRenderer : public INumberRenderer {
 public:
  static constexpr unsigned char maximumPrecision = 12;

  /// The rounding step by decimal places: pow(10.0, -places), to the bit.
  static constexpr double steps[maximumPrecision + 1] = {1.0,  1e-1, 1e-2, 1e-3,  1e-4,  1e-5, 1e-6,
                                                         1e-7, 1e-8, 1e-9, 1e-10, 1e-11, 1e-12};

  /// @param precision  decimal places, up to the maximum.
  FixedPointNumberRenderer(unsigned char precision, bool trimTrailingZeros)
      : precision_(precision), trimTrailingZeros_(trimTrailingZeros) {}

  void render(std::string& out, double value, bool& negative) const override;

 private:
  const unsigned char precision_;
  const bool trimTrailingZeros_;
};

}  // namespace Units
