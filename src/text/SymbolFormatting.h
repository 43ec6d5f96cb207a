#pragma once

#include "model/RecordStore.h"
#include "text/CompositeSymbolTable.h"
#include "text/NumberRenderer.h"

#include <TrelvonUnits/PrefixOrSuffix.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace Units {

/// Numbers with what stands around them. A value is taken to be in the symbol's unit already, for
/// a composite symbol in its first component. Nothing is allocated but the text returned.

/// The number with a symbol, or alone when `symbolTypeId` is null.
/// @throws UnrecognizedIdentifierException  no symbol has that type id, or it has neither a prefix,
///                                          a suffix nor a composite layout.
std::string formatWithSymbol(double value, const std::string* symbolTypeId,
                             const INumberRenderer& renderer, const RecordStore<Symbol>& symbols);

/// The number with a prefix or suffix; its sign stands before everything: `-$ 5`.
std::string formatWithPrefixOrSuffix(double value, const PrefixOrSuffix& decoration,
                                     const INumberRenderer& renderer);

/// Puts a prefix before a text or a suffix behind it. An empty one changes nothing.
void applyPrefixOrSuffix(std::string& text, const PrefixOrSuffix& decoration);

/// The number in the layout that the symbol's type id names: `-5' 6"`. All parts are whole but the
/// last, which is rounded by itself: 5.999 feet without decimal places are `5' 12"`.
///
/// Counts past 64 bits are written in full. Infinity leaves no remainder (`inf' 0"`); what is not a
/// number is none in any part (`nan' nan"`).
///
/// @throws UnrecognizedIdentifierException  the type id names no layout.
std::string formatCompositeSymbol(double value, const std::string& symbolTypeId,
                                  const INumberRenderer& renderer);

/// What a value holds of one component of a layout.
struct CompositePart {
  double whole;           // the amount without its fraction: any double has room for it
  double amount;          // together with what is left for the components below
  bool negative;          // only the first part of a negative value is
  std::string_view mark;  // the component's
};

struct CompositeParts {
  std::size_t count = 0;
  std::array<CompositePart, CompositeLayout::maximumComponents> parts = {};  // the first `count`
};

CompositeParts splitIntoParts(double value, const CompositeLayout& layout);

}  // namespace Units
