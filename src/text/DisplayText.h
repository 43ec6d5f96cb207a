#pragma once

#include "model/RecordStore.h"

#include <string>

namespace Units {

/// A number with a fixed count of decimal places, and a symbol unless `symbolTypeId` is null.
/// @throws PrecisionException               over 12 places; tested first.
/// @throws UnrecognizedIdentifierException  the type id names no symbol that can be written.
std::string formatFixedPoint(double value, unsigned char decimalPlaces,
                             const std::string* symbolTypeId, bool trimTrailingZeros,
                             const RecordStore<Symbol>& symbols);

/// A number as a whole number and a binary fraction, and a symbol unless `symbolTypeId` is null.
/// @throws PrecisionException               a precision over 9; tested first.
/// @throws UnrecognizedIdentifierException  the type id names no symbol that can be written.
std::string formatFractional(double value, unsigned char precision, const std::string* symbolTypeId,
                             const RecordStore<Symbol>& symbols);

}  // namespace Units
