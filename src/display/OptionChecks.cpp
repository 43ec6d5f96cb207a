#include "display/OptionChecks.h"

#include "model/ShownText.h"
#include "text/DisplayText.h"

#include <algorithm>
#include <cmath>

namespace Units {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw ValidationException("display: " + reason + ".");
}

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> all) {
  return std::find(all.begin(), all.end(), text) != all.end();
}

bool isSpaceMark(std::string_view mark) { return isOneOf(mark, {" ", "\xC2\xA0", "\xE2\x80\xAF"}); }

void checkRounding(const DisplayOptions& options) {
  if (options.places.has_value() + options.denominator.has_value() +
          options.significant.has_value() >
      1)
    refuse("only one of places, denominator and significant can be given");
  if (options.places && *options.places < 0) refuse("there are no negative places");
  if (options.places)  // refuses by the engine's own message, whoever has made the engine
    formatFixedPoint(0.0, static_cast<unsigned char>(std::min(*options.places, 255)), nullptr,
                     false, {});
  const int denominator = options.denominator.value_or(1);
  constexpr int finest = 512;
  if (denominator < 1 || denominator > finest || (denominator & (denominator - 1)) != 0)
    refuse("a denominator is 1, 2, 4 and so on up to 512, not " + std::to_string(denominator));
  constexpr int mostDigits = 17;
  const int significant = options.significant.value_or(1);
  if (significant < 1 || significant > mostDigits)
    refuse("there are 1 to 17 significant digits, not " + std::to_string(significant));
  if (options.denominator && options.trims) refuse("a fraction has no zeros to trim");
}

void checkMarks(const DisplayOptions& options) {
  if (!options.decimalMark.empty() && !isOneOf(options.decimalMark, {".", ",", "\xD9\xAB"}))
    refuse("\"" + shownText(options.decimalMark) + "\" is no decimal mark");
  if (!options.groupMark.empty() && !isSpaceMark(options.groupMark) &&
      !isOneOf(options.groupMark, {".", ",", "\xE2\x80\x99", "\xD9\xAC"}))
    refuse("\"" + shownText(options.groupMark) + "\" is no group mark");
  if (options.minus < DisplayOptions::Minus::OfLocale ||
      options.minus > DisplayOptions::Minus::Sign)
    refuse("there is no such minus sign");
}

}  // namespace

bool isSameMark(std::string_view left, std::string_view right) {
  return left == right || (isSpaceMark(left) && isSpaceMark(right));
}

void checkOptions(const DisplayOptions& options) {
  checkRounding(options);
  checkMarks(options);
}

void checkLayout(const DisplayOptions& options, const CompositeLayout* layout) {
  if (!layout) return;
  if (!options.showsUnit) refuse("a composite symbol is not shown without its marks");
  if (options.denominator && layout->components[layout->count - 2].ratio != 12)
    refuse("only inches have fractions, not the last part of " + options.symbol);
}

void checkBest(const DisplayOptions& options, const CompositeLayout* layout) {
  if (!(options.leastBest > 0.0) || !std::isfinite(options.leastBest))
    refuse("the least number of the best unit is above 0");
  if (options.bestSymbols.empty() && options.bestQuantity.empty()) return;
  if (!options.bestSymbols.empty() && !options.bestQuantity.empty())
    refuse("the best unit is one of a list or of a quantity, not of both");
  if (layout) refuse("a composite symbol has no best unit");
  if (!options.showsUnit) refuse("the best unit is not shown without its text");
  if (options.unit.empty() && options.symbol.empty())
    refuse("a number without a unit has no best unit");
}

void refuseLocale(const std::string& name) {
  refuse("there is no locale \"" + shownText(name) + "\"");
}

}  // namespace Units
