#pragma once

#include "model/SymbolTexts.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace Units {

/// Whether the whole of a text is a value literal: a number with an optional prefix or suffix
/// symbol, or a composite value such as feet and inches.
///
/// Nothing is allocated or thrown. A text that is no literal costs what its beginning does, up to
/// where no form goes on, however long it is.
///
/// @param value   set on success, in the symbol's unit (a composite one: feet, degrees or meters);
///                null when not wanted.
/// @param symbol  set on success to the symbol, in place, or to null when the literal has none;
///                null when not wanted.
bool parseValueText(std::string_view text, double* value, const Symbol** symbol,
                    const SymbolTexts& symbols);

/// Where a literal at the front of a text may end: ascending, none of them 0.
struct LiteralEnds {
  static constexpr std::size_t most = 5;

  std::array<std::size_t, most> ends = {};
  std::size_t count = 0;  // of `ends`
};

/// A value literal at the front of a text.
struct ValueLiteral {
  std::size_t length;
  double value;
  const Symbol* symbol;
};

/// The longest literal that a text begins with, among those that end at one of `ends`. Each of
/// these is what `parseValueText` makes of it, but what several of them begin with is read once.
///
/// @param ends  all but the last stand before an operator of the formula language, and the last
///              there or at the end of the text.
std::optional<ValueLiteral> parseLongestValueText(std::string_view text, const LiteralEnds& ends,
                                                  const SymbolTexts& symbols);

/// Takes the longest symbol text, of a placement if one is asked for, off the front of a text,
/// after leading spaces. On failure nothing changes.
///
/// @param symbol  set on success; null when not wanted.
bool matchLeadingSymbol(std::string_view& text, std::optional<Placement> placement,
                        const Symbol** symbol, const SymbolTexts& symbols);

}  // namespace Units
