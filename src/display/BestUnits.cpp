#include "display/BestUnits.h"

#include <algorithm>
#include <cmath>

namespace Units {

namespace {

/// How many of the display's unit a scale's unit is; 0 if their zeros differ or one is the
/// reciprocal of the other.
double sizeOf(const DisplayScale& scale) {
  return scale.amount(0.0) == 0.0 && scale.value(0.0) == 0.0 ? scale.value(1.0) : 0.0;
}

/// Whether a number is a power of 1000, but for the rounding of conversions.
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
      throw ValidationException("display: the best unit cannot be shown by " + typeId +
                                ", which is composite.");
  }
  return symbols;
}

/// By a rule for prefixes of the metric system: millimeters and meters, but no centimeters.
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

void addScale(const UnitsEngine& engine, const Symbol& symbol, DisplayContents& display) {
  DisplayScale scale = scaleOf(engine, symbol, display.unit);
  const double size = sizeOf(scale);
  if (!(size > 0.0) || !std::isfinite(size))
    throw ValidationException("display: " + symbol.getTypeId() +
                              " cannot be the best unit: its zero or its direction differs.");
  std::vector<DisplayScale>& scales = display.scales;
  const auto place = std::find_if(scales.begin(), scales.end(),
                                  [&](const DisplayScale& other) { return sizeOf(other) >= size; });
  if (place != scales.end() && sizeOf(*place) == size) return;  // the first of equal ones
  for (const DisplayScale& other : scales)
    if (other.text == scale.text)
      throw ValidationException("display: " + other.symbol + " and " + scale.symbol +
                                " look the same.");
  scales.insert(place, scale);
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
  const std::vector<Symbol> symbols = options.bestSymbols.empty()
                                          ? symbolsOfQuantity(engine, display)
                                          : symbolsOfList(engine, options);
  const DisplayScale own = display.scales.front();
  display.scales.clear();
  addScale(engine, engine.getSymbol(own.symbol), display);
  for (const Symbol& symbol : symbols) addScale(engine, symbol, display);
  for (std::size_t i = 0; i < display.scales.size(); ++i)
    if (display.scales[i].symbol == home) display.home = i;
}

}  // namespace Units
