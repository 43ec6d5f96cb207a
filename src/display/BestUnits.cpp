#include "display/BestUnits.h"

#include "model/Characters.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace Units {

namespace {

/// The size of a scale's unit, in the display's unit; 0 if their zeros differ or one is the
/// reciprocal of the other.
double sizeOf(const DisplayScale& scale) {
  return scale.amount(0.0) == 0.0 && scale.value(0.0) == 0.0 ? scale.value(1.0) : 0.0;
}

/// Whether a number is a power of 1000, apart from the rounding of conversions.
bool isPowerOfThousand(double number) {
  constexpr double tolerance = 1e-9;
  const double power = std::log10(number) / 3.0;
  return std::fabs(power - std::round(power)) < tolerance;
}

std::vector<Symbol> symbolsOfList(const UnitsEngine& engine, const DisplayOptions& options) {
  std::vector<Symbol> symbols;
  for (const std::string& typeId : options.bestSymbols) {
    symbols.push_back(engine.getSymbol(typeId));
    if (!symbols.back().getPrefixOrSuffix())
      throw ValidationException("display: the best unit cannot be shown with " + typeId +
                                ", which is composite.");
  }
  return symbols;
}

/// Follows the convention for metric prefixes: millimeters and meters, but not centimeters.
std::vector<Symbol> symbolsOfQuantity(const UnitsEngine& engine, const DisplayContents& display) {
  const System system = engine.getUnit(display.unit).getUnitSystem();
  std::vector<Symbol> symbols;
  for (const Unit& unit : engine.getQuantity(display.options.bestQuantity).getUnits()) {
    if (unit.getUnitSystem() != system || !engine.canConvert(display.unit, unit.getTypeId()))
      continue;
    const std::optional<Symbol> symbol = firstTextOf(engine, unit.getTypeId());
    if (!symbol) continue;
    const double size = sizeOf(scaleOf(engine, *symbol, display.unit));
    if (size > 0.0 && isPowerOfThousand(size)) symbols.push_back(*symbol);
  }
  return symbols;
}

struct SizedScale {
  double size;
  std::size_t place;  // in the list
  DisplayScale scale;
};

SizedScale sizedScaleOf(const UnitsEngine& engine, const Symbol& symbol, std::size_t place,
                        const std::string& unitTypeId) {
  const DisplayScale scale = scaleOf(engine, symbol, unitTypeId);
  const double size = sizeOf(scale);
  if (!(size > 0.0) || !std::isfinite(size))
    throw ValidationException("display: " + scale.symbol +
                              " cannot be the best unit: it has a different zero or direction.");
  return {size, place, scale};
}

/// Sorts scales by size. Of equal ones, only the first is left.
void sortScales(std::vector<SizedScale>& sized) {
  std::sort(sized.begin(), sized.end(), [](const SizedScale& left, const SizedScale& right) {
    return std::pair(left.size, left.place) < std::pair(right.size, right.place);
  });
  const auto equal = [](const SizedScale& left, const SizedScale& right) {
    return left.size == right.size;
  };
  sized.erase(std::unique(sized.begin(), sized.end(), equal), sized.end());
}

/// Whether a text would be read as part of the number next to it.
bool looksLikeNumber(const DisplayScale& scale) {
  const std::string& text = scale.text;
  if (text.empty()) return false;
  const bool isSign = text.front() == '-' || text.compare(0, 3, "\xE2\x88\x92") == 0;
  const bool isDigitBeside =
      !scale.hasSpace && isDigit(scale.isPrefix ? text.back() : text.front());
  return (scale.isPrefix && isSign) || isDigitBeside;
}

}  // namespace

std::optional<Symbol> firstTextOf(const UnitsEngine& engine, const std::string& unitTypeId) {
  for (const auto& [typeId, symbol] : engine.getSymbolsOfUnit(unitTypeId)) {
    const std::optional<PrefixOrSuffix> shown = symbol.getPrefixOrSuffix();
    if (shown && !shown->getText().empty()) return symbol;
  }
  return std::nullopt;
}

DisplayScale scaleOf(const UnitsEngine& engine, const Symbol& symbol,
                     const std::string& unitTypeId) {
  DisplayScale scale;
  scale.symbol = symbol.getTypeId();
  if (const std::optional<PrefixOrSuffix> shown = symbol.getPrefixOrSuffix()) {
    scale.text = shown->getText();
    scale.isPrefix = shown->getPlacement() == Placement::Prefix;
    scale.hasSpace = shown->hasSpace();
  }
  if (looksLikeNumber(scale))
    throw ValidationException("display: the text of " + scale.symbol +
                              " would look like part of the number.");
  const std::string own = symbol.getUnit().getTypeId();
  if (own != unitTypeId)
    scale.conversions = DisplayScale::Conversions{PreparedConversion(engine, unitTypeId, own),
                                                  PreparedConversion(engine, own, unitTypeId)};
  return scale;
}

void addBestUnits(const UnitsEngine& engine, DisplayContents& display) {
  const DisplayOptions& options = display.options;
  if (options.bestSymbols.empty() && options.bestQuantity.empty()) return;
  const std::string home = display.scales.front().symbol;
  std::vector<SizedScale> sized = {sizedScaleOf(engine, engine.getSymbol(home), 0, display.unit)};
  for (const Symbol& symbol : options.bestSymbols.empty() ? symbolsOfQuantity(engine, display)
                                                          : symbolsOfList(engine, options))
    sized.push_back(sizedScaleOf(engine, symbol, sized.size(), display.unit));
  sortScales(sized);
  display.scales.clear();
  std::map<std::string, std::string> symbolsByText;
  for (const SizedScale& each : sized) {
    const auto [other, isNew] = symbolsByText.emplace(each.scale.text, each.scale.symbol);
    if (!isNew)
      throw ValidationException("display: " + other->second + " and " + each.scale.symbol +
                                " look the same.");
    if (each.scale.symbol == home) display.home = display.scales.size();
    display.scales.push_back(each.scale);
  }
}

}  // namespace Units
