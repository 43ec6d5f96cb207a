#pragma once

#include "model/RecordStore.h"
#include "text/NumberRenderer.h"

#include <string>

namespace Units {

/// A number with a symbol, or alone when `symbolTypeId` is null. The value must already be in the
/// symbol's unit, for a composite symbol in its first component. Allocates only the text that it
/// returns.
///
/// A sign comes before everything, even a prefix: `-$ 5`. All parts of a composite text are whole
/// except the last, which is rounded by itself: 5.999 feet without decimal places are `5' 12"`.
/// Counts past 64 bits are written in full. Infinity leaves no remainder (`inf' 0"`); NaN is NaN in
/// every part (`nan' nan"`).
///
/// @throws UnrecognizedIdentifierException  no symbol has that type id, or it has neither a prefix,
///                                          a suffix nor a composite layout.
std::string formatWithSymbol(double value, const std::string* symbolTypeId,
                             const INumberRenderer& renderer, const RecordStore<Symbol>& symbols);

}  // namespace Units
