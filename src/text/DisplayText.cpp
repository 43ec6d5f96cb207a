#include "text/DisplayText.h"

#include "text/FixedPointNumberRenderer.h"
#include "text/FractionalNumberRenderer.h"
#include "text/SymbolFormatting.h"

namespace Units {

std::string formatFixedPoint(double value, unsigned char decimalPlaces,
                             const std::string* symbolTypeId, bool trimTrailingZeros,
                             const RecordStore<Symbol>& symbols) {
  constexpr unsigned char maximum = FixedPointNumberRenderer::maximumPrecision;
  if (decimalPlaces > maximum)
    throw PrecisionException("Requested fixed point precision of " + std::to_string(decimalPlaces) +
                             " decimal places, but the maximum is " + std::to_string(maximum) +
                             ".");
  return formatWithSymbol(value, symbolTypeId,
                          FixedPointNumberRenderer(decimalPlaces, trimTrailingZeros), symbols);
}

std::string formatFractional(double value, unsigned char precision, const std::string* symbolTypeId,
                             const RecordStore<Symbol>& symbols) {
  constexpr unsigned char maximum = FractionalNumberRenderer::maximumPrecision;
  if (precision > maximum)
    throw PrecisionException("Requested fractional precision of 2^(-" + std::to_string(precision) +
                             "), but the maximum is 2^(-" + std::to_string(maximum) + ").");
  return formatWithSymbol(value, symbolTypeId, FractionalNumberRenderer(precision), symbols);
}

}  // namespace Units
