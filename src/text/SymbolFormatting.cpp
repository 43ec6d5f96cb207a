#include "text/SymbolFormatting.h"

#include "model/RecordAccess.h"
#include "model/Tolerances.h"
#include "text/ClassicNumber.h"
#include "text/CompositeSymbolTable.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Units {

namespace {

/// Puts a prefix before a text or a suffix after it. An empty one changes nothing.
void applyPrefixOrSuffix(std::string& text, const PrefixOrSuffix& decoration) {
  const std::string& added = RecordAccess::text(decoration);
  if (added.empty()) return;
  const std::size_t spaces = decoration.hasSpace() ? 1 : 0;
  if (decoration.getPlacement() == Placement::Prefix) {
    text.insert(0, spaces, ' ');
    text.insert(0, added);
  } else {
    text.append(spaces, ' ');
    text.append(added);
  }
}

/// @param decoration  null for the number alone.
std::string formatWithPrefixOrSuffix(double value, const PrefixOrSuffix* decoration,
                                     const INumberRenderer& renderer) {
  std::string text;
  bool negative = false;
  renderer.render(text, value, negative);
  if (decoration) applyPrefixOrSuffix(text, *decoration);
  if (negative) text.insert(text.begin(), '-');
  return text;
}

/// The part of a value in one component of a layout.
struct CompositePart {
  double whole;           // the amount without its fraction, which may exceed any integer type
  double amount;          // including what is left for the components below
  bool negative;          // set for the first part of a negative value only
  std::string_view mark;  // the component's
};

struct CompositeParts {
  std::size_t count = 0;
  std::array<CompositePart, CompositeLayout::maximumComponents> parts = {};  // the first `count`
};

CompositeParts splitIntoParts(double value, const CompositeLayout& layout) {
  CompositeParts split;
  double remainder = std::fabs(value);
  for (std::size_t i = 0; i < layout.count; ++i) {
    const CompositeComponent& component = layout.components[i];
    const double amount = remainder + roundingTolerance;
    const double whole = std::trunc(amount);
    split.parts[split.count++] = {whole, amount, i == 0 && value < 0.0, component.mark};
    remainder = std::isinf(amount) ? 0.0 : (amount - whole) * component.ratio;
  }
  return split;
}

std::string formatCompositeSymbol(double value, const std::string& symbolTypeId,
                                  const INumberRenderer& renderer) {
  const CompositeLayout* const layout = findCompositeLayout(symbolTypeId);
  if (!layout)
    throw UnrecognizedIdentifierException("Could not find special symbol with typeid " +
                                          symbolTypeId + ".");
  const CompositeParts split = splitIntoParts(value, *layout);

  std::string text;
  for (std::size_t i = 0; i + 1 < split.count; ++i) {
    const CompositePart& part = split.parts[i];
    if (part.negative) text += '-';
    if (part.whole < 0x1p64)
      appendWhole(text, static_cast<std::uint64_t>(part.whole));
    else
      appendFixed(text, part.whole, 0);
    text += part.mark;
    text += ' ';
  }
  const CompositePart& last = split.parts[split.count - 1];
  bool negative = false;  // not used: the first part has the sign
  renderer.render(text, last.amount, negative);
  text += last.mark;
  return text;
}

}  // namespace

std::string formatWithSymbol(double value, const std::string* symbolTypeId,
                             const INumberRenderer& renderer, const RecordStore<Symbol>& symbols) {
  if (!symbolTypeId) return formatWithPrefixOrSuffix(value, nullptr, renderer);
  const Symbol& symbol = lookUp(symbols, *symbolTypeId);
  if (const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol))
    return formatWithPrefixOrSuffix(value, decoration, renderer);
  return formatCompositeSymbol(value, *symbolTypeId, renderer);
}

}  // namespace Units
