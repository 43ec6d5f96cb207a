#pragma once

#include "model/CompositeForms.h"
#include "model/SymbolTexts.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace Units {

/// Whether the whole of a text is a value literal: a number with an optional prefix or suffix
/// symbol, or a composite value such as feet and inches.
///
/// Allocates and throws nothing. For a text that is not a literal it looks only at the beginning,
/// up to where no form can continue.
///
/// @param value   set on success, in the symbol's unit (a composite one: feet, degrees or meters);
///                null when not wanted.
/// @param symbol  set on success to the symbol, in place, or to null when the literal has none;
///                null when not wanted.
bool parseValueText(std::string_view text, double* value, const Symbol** symbol,
                    const SymbolTexts& symbols);

/// Where a literal at the front of a text may end: in ascending order, none of them 0.
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
  std::optional<CompositeForm> form;  // if composite
};

/// The longest beginning of a text that is a literal and ends at one of `ends`. The result for each
/// end is that of `parseValueText`, but shared parts are read only once.
///
/// @param ends  each is before an operator of the formula language; the last may be the end of the
///              text instead.
std::optional<ValueLiteral> parseLongestValueText(std::string_view text, const LiteralEnds& ends,
                                                  const SymbolTexts& symbols);

/// Removes leading spaces and the longest symbol text that follows them, of a placement if one is
/// given. On failure nothing changes.
///
/// @param symbol  set on success; null when not wanted.
bool matchLeadingSymbol(std::string_view& text, std::optional<Placement> placement,
                        const Symbol** symbol, const SymbolTexts& symbols);

}  // namespace Units
