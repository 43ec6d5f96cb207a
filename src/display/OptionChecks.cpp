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
  if (options.places && *options.places < 0) refuse("places must not be negative");
  if (options.places)  // refuses with the engine's own message, even for a host's engine
    formatFixedPoint(0.0, static_cast<unsigned char>(std::min(*options.places, 255)), nullptr,
                     false, {});
  const int denominator = options.denominator.value_or(1);
  constexpr int finest = 512;
  if (denominator < 1 || denominator > finest || (denominator & (denominator - 1)) != 0)
    refuse("a denominator must be 1, 2, 4 and so on up to 512, not " + std::to_string(denominator));
  constexpr int mostDigits = 17;
  const int significant = options.significant.value_or(1);
  if (significant < 1 || significant > mostDigits)
    refuse("the number of significant digits must be 1 to 17, not " + std::to_string(significant));
  if (options.denominator && options.trims) refuse("a fraction has no zeros to trim");
}

void checkMarks(const DisplayOptions& options) {
  if (!options.decimalMark.empty() && !isOneOf(options.decimalMark, {".", ",", "\xD9\xAB"}))
    refuse("\"" + shownText(options.decimalMark) + "\" is not a decimal mark");
  if (!options.groupMark.empty() && !isSpaceMark(options.groupMark) &&
      !isOneOf(options.groupMark, {".", ",", "\xE2\x80\x99", "\xD9\xAC"}))
    refuse("\"" + shownText(options.groupMark) + "\" is not a group mark");
  if (options.minus < DisplayOptions::Minus::OfLocale ||
      options.minus > DisplayOptions::Minus::Sign)
    refuse("minus must be locale, hyphen or sign");
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
  if (!options.showsUnit) refuse("a composite symbol cannot be shown without its marks");
  if (options.denominator && layout->components[layout->count - 2].ratio != 12)
    refuse("only inches can have fractions, not the last part of " + options.symbol);
}

void checkBest(const DisplayOptions& options, const CompositeLayout* layout) {
  if (!(options.leastBest > 0.0) || !std::isfinite(options.leastBest))
    refuse("the least number of the best unit must be above 0");
  if (options.bestSymbols.empty() && options.bestQuantity.empty()) return;
  if (!options.bestSymbols.empty() && !options.bestQuantity.empty())
    refuse("the best unit comes from a list or from a quantity, not from both");
  if (layout) refuse("a composite symbol cannot have a best unit");
  if (!options.showsUnit) refuse("the best unit cannot be shown without its text");
  if (options.unit.empty() && options.symbol.empty())
    refuse("a number without a unit cannot have a best unit");
}

void refuseLocale(const std::string& name) {
  refuse("there is no locale \"" + shownText(name) + "\"");
}

}  // namespace Units
