#include "text/SymbolFormatting.h"

#include "model/RecordAccess.h"
#include "model/Tolerances.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Units {

namespace {

/// An empty text that grows once at most: it has room for a value's digits and as many characters
/// more as stand around them, unless its first growth, to twice its capacity, makes that room.
std::string roomyText(double value, std::size_t around) {
  // A digit for each three bits, one more for rounding, a point, and twelve places.
  constexpr std::size_t besidesWholeDigits = 1 + 1 + 12;
  int exponent = 0;
  if (std::isfinite(value)) std::frexp(value, &exponent);
  const auto wholeDigits = static_cast<std::size_t>(1 + std::max(exponent, 0) / 3);
  const std::size_t length = wholeDigits + besidesWholeDigits + around;

  std::string text;
  if (length > 2 * text.capacity()) text.reserve(length);
  return text;
}

}  // namespace

std::string formatWithSymbol(double value, const std::string* symbolTypeId,
                             const INumberRenderer& renderer, const RecordStore<Symbol>& symbols) {
  if (!symbolTypeId)
    return formatWithPrefixOrSuffix(value, PrefixOrSuffix("", Placement::Suffix, false), renderer);
  const Symbol& symbol = lookUp(symbols, *symbolTypeId);
  if (const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol))
    return formatWithPrefixOrSuffix(value, *decoration, renderer);
  return formatCompositeSymbol(value, *symbolTypeId, renderer);
}

std::string formatWithPrefixOrSuffix(double value, const PrefixOrSuffix& decoration,
                                     const INumberRenderer& renderer) {
  constexpr std::size_t signAndSpace = 2;
  std::string text = roomyText(value, RecordAccess::text(decoration).size() + signAndSpace);
  bool negative = false;
  renderer.render(text, value, negative);
  applyPrefixOrSuffix(text, decoration);
  if (negative) text.insert(text.begin(), '-');
  return text;
}

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

std::string formatCompositeSymbol(double value, const std::string& symbolTypeId,
                                  const INumberRenderer& renderer) {
  const CompositeLayout* const layout = findCompositeLayout(symbolTypeId);
  if (!layout)
    throw UnrecognizedIdentifierException("Could not find special symbol with typeid " +
                                          symbolTypeId + ".");
  const CompositeParts split = splitIntoParts(value, *layout);

  constexpr std::size_t signMarksAndMinutes = 12;
  std::string text = roomyText(value, signMarksAndMinutes);
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
  bool negative = false;  // stays so: the first part has the sign
  renderer.render(text, last.amount, negative);
  text += last.mark;
  return text;
}

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

}  // namespace Units
