#include "display/DisplayMaker.h"

#include "display/BestUnits.h"
#include "display/Locales.h"
#include "display/OptionChecks.h"

#include <algorithm>

namespace Units {

namespace {

NumberForm formOf(const DisplayOptions& options) {
  NumberForm form;
  if (options.places) form = {NumberForm::Kind::Places, *options.places, options.trims};
  if (options.denominator) form = {NumberForm::Kind::Fraction, *options.denominator, false};
  if (options.significant)
    form = {NumberForm::Kind::Significant, *options.significant, options.trims};
  return form;
}

NumberStyle styleOf(const DisplayOptions& options, const DisplayLocale& locale) {
  const auto either = [](const std::string& asked, std::string_view otherwise) {
    return asked.empty() ? std::string(otherwise) : asked;
  };
  NumberStyle style;
  style.decimalMark = either(options.decimalMark, locale.decimalMark);
  style.groupMark = either(options.groupMark, locale.groupMark);
  style.minus = locale.minus;
  if (options.minus == DisplayOptions::Minus::Hyphen) style.minus = "-";
  if (options.minus == DisplayOptions::Minus::Sign) style.minus = "\xE2\x88\x92";
  style.zero = locale.zero;
  style.space = options.hasNoBreakSpaces ? "\xC2\xA0" : " ";
  if (style.groupMark == " ") style.groupMark = style.space;
  style.secondaryGroup = locale.secondaryGroup;
  style.minimumGrouping = locale.minimumGrouping;
  style.groups = options.groups;
  return style;
}

/// The symbol that is asked for, or the one of the unit; none for a number alone.
std::optional<Symbol> symbolOf(const UnitsEngine& engine, const DisplayOptions& options) {
  if (!options.symbol.empty()) return engine.getSymbol(options.symbol);
  if (options.unit.empty()) return std::nullopt;
  std::optional<Symbol> symbol = firstTextOf(engine, options.unit);
  if (!symbol)
    throw ValidationException("display: unit " + options.unit + " has no symbol with a text.");
  return symbol;
}

void setLayout(const Symbol& symbol, NumberForm& form) {
  form.layout = findCompositeLayout(symbol.getTypeId());
  if (!form.layout)  // no symbol of this library's engines
    throw ValidationException("display: symbol " + symbol.getTypeId() + " has no text.");
  for (std::size_t part = 0; part + 1 < form.layout->count; ++part)
    form.lastUnits *= static_cast<std::uint32_t>(form.layout->components[part].ratio);
}

}  // namespace

std::unique_ptr<DisplayContents> makeDisplay(const UnitsEngine& engine,
                                             const DisplayOptions& options) {
  checkOptions(options);
  const DisplayLocale* const locale = findDisplayLocale(options.locale);
  if (!locale) refuseLocale(options.locale);
  auto display = std::make_unique<DisplayContents>();
  display->options = options;
  display->form = formOf(options);
  display->style = styleOf(options, *locale);
  if (isSameMark(display->style.decimalMark, display->style.groupMark))
    throw ValidationException("display: the decimal mark and the group mark are the same.");
  display->unit = options.unit;
  const std::optional<Symbol> symbol = symbolOf(engine, options);
  if (!symbol) {
    display->scales.emplace_back();
    checkBest(options, nullptr);
    return display;
  }
  if (options.unit.empty()) display->unit = symbol->getUnit().getTypeId();
  if (!symbol->getPrefixOrSuffix()) setLayout(*symbol, display->form);
  checkLayout(options, display->form.layout);
  checkBest(options, display->form.layout);
  display->scales.push_back(scaleOf(engine, *symbol, display->unit));
  if (!options.showsUnit) display->scales.front().text.clear();
  addBestUnits(engine, *display);
  return display;
}

}  // namespace Units
