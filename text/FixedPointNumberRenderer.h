#pragma once

#include "text/NumberRenderer.h"

namespace Units {

/// Writes numbers with a fixed count of decimal places: "12.50", or "12.5" when trailing zeros are
/// trimmed. Without places there is no point.
class FixedPointNumberRenderer : public INumberRenderer {
 public:
  static constexpr unsigned char maximumPrecision = 12;

  /// @param precision  decimal places, up to the maximum.
  FixedPointNumberRenderer(unsigned char precision, bool trimTrailingZeros)
      : precision_(precision), trimTrailingZeros_(trimTrailingZeros) {}

  void render(std::string& out, double value, bool& negative) const override;

 private:
  const unsigned char precision_;
  const bool trimTrailingZeros_;
};

}  // namespace Units
