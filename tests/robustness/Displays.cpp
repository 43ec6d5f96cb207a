/// Random values by random displays, in every locale, against exact decimals that are worked out as
/// on paper. `Displays [COUNT]` shows so many values, each of which is read back, and reads as many
/// texts with other marks.
#include "tests/support/Check.h"
#include "tests/support/Random.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using Units::DisplayOptions;
using Units::ValueDisplay;

struct Layout {
  const char* symbol;
  std::vector<int> ratios;
  std::vector<const char*> marks;
};

const Layout layouts[] = {
    {"", {}, {""}},
    {"trelvon.symbol:kilogram-1.0.0", {}, {" kg"}},
    {"trelvon.symbol:degree-1.0.0", {}, {"\xC2\xB0"}},
    {"trelvon.symbol:feetAndInches-1.0.0", {12}, {"' ", "\""}},
    {"trelvon.symbol:feetHyphenInches-1.0.0", {12}, {"' - ", "\""}},
    {"trelvon.symbol:metersAndCentimeters-1.0.0", {100}, {"m ", "cm"}},
    {"trelvon.symbol:degreesMinutesSeconds-1.0.0", {60, 60}, {"\xC2\xB0 ", "' ", "\""}}};

/// Decimal digits, as on paper.
using Digits = std::string;

Digits times(const Digits& digits, int factor) {
  Digits product;
  int carry = 0;
  for (auto digit = digits.rbegin(); digit != digits.rend() || carry > 0; carry /= 10) {
    if (digit != digits.rend()) carry += (*digit++ - '0') * factor;
    product += static_cast<char>('0' + carry % 10);
  }
  std::reverse(product.begin(), product.end());
  return product;
}

/// Divides in place and returns the remainder.
int divide(Digits& digits, int divisor) {
  int rest = 0;
  for (char& digit : digits) {
    rest = rest * 10 + (digit - '0');
    digit = static_cast<char>('0' + rest / divisor);
    rest %= divisor;
  }
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
  return rest;
}

/// What a display by steps must show in English, without groups, and the value that it then has.
struct Expected {
  std::string text;
  double value = 0;
  double steps = 0;        // about
  bool isHalfway = false;  // within the precision of doubles, between two texts
};

class Reference {
 public:
  Reference(const Layout& layout, const DisplayOptions& options)
      : layout_(layout),
        places_(options.places.value_or(0)),
        denominator_(options.denominator.value_or(1)),
        trims_(options.trims) {
    for (const int ratio : layout.ratios) lastUnits_ *= ratio;
  }

  Expected of(double value) const {
    Expected expected;
    const Digits count = round(std::fabs(value), expected);
    expected.text = layOut(count);
    const double scale = std::pow(10.0, places_) * denominator_ * lastUnits_;
    expected.value = std::strtod(count.c_str(), nullptr) / scale;
    if (value < 0 && count.find_first_not_of('0') != Digits::npos) {
      expected.text.insert(0, "-");
      expected.value = -expected.value;
    }
    return expected;
  }

 private:
  static constexpr int exactPlaces = 60;

  Digits round(double magnitude, Expected& expected) const {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", exactPlaces, magnitude);
    Digits digits = text;
    digits.erase(digits.find('.'), 1);
    digits = times(times(digits, lastUnits_), denominator_);
    const std::size_t kept = digits.size() - static_cast<std::size_t>(exactPlaces - places_);
    const double rest = std::strtod(("0." + digits.substr(kept)).c_str(), nullptr);
    digits.erase(kept);
    digits.insert(0, "0");
    expected.steps = std::strtod(digits.c_str(), nullptr);
    expected.isHalfway = std::fabs(rest - 0.5) <= 1e-9 + expected.steps * 0x1p-51;
    if (expected.steps >= 0x1p51) expected.isHalfway = false;  // these are rounded exactly
    for (std::size_t i = digits.size(); rest >= 0.5 && i-- > 0;) {
      digits[i] = digits[i] == '9' ? '0' : static_cast<char>(digits[i] + 1);
      if (digits[i] != '0') break;
    }
    return digits;
  }

  std::string fractionOf(Digits& count) const {
    if (denominator_ > 1) {
      int below = denominator_;
      int above = divide(count, below);
      for (; above != 0 && above % 2 == 0; above /= 2) below /= 2;
      return above == 0 ? "" : std::to_string(above) + '/' + std::to_string(below);
    }
    const auto places = static_cast<std::size_t>(places_);
    if (count.size() <= places) count.insert(0, places + 1 - count.size(), '0');
    std::string fraction = count.substr(count.size() - places);
    count.erase(count.size() - places);
    while (trims_ && !fraction.empty() && fraction.back() == '0') fraction.pop_back();
    return fraction.empty() ? "" : '.' + fraction;
  }

  std::string layOut(Digits count) const {
    std::string fraction = fractionOf(count);
    std::string text;
    for (std::size_t part = layout_.marks.size(); part-- > 0;) {
      divide(count, 1);
      const std::string whole =
          part == 0 ? count : std::to_string(divide(count, layout_.ratios[part - 1]));
      const bool hasWhole = whole != "0" || fraction.empty() || fraction[0] == '.';
      const bool needsSpace = hasWhole && !fraction.empty() && fraction[0] != '.';
      text =
          (hasWhole ? whole : "") + (needsSpace ? " " : "") + fraction + layout_.marks[part] + text;
      fraction.clear();
    }
    return text;
  }

  const Layout& layout_;
  int places_;
  int denominator_;
  bool trims_;
  int lastUnits_ = 1;
};

/// The same options in English and in each locale.
struct Displays {
  Displays(const Units::UnitsEngine& engine, const Layout& layout, DisplayOptions options)
      : reference(layout, options),
        isTidy(!options.places && !options.denominator),
        plain(engine, inEnglish(options)) {
    for (const std::string& locale : ValueDisplay::locales()) {
      options.locale = locale;
      inLocales.emplace_back(engine, options);
    }
  }

  static DisplayOptions inEnglish(DisplayOptions options) {
    options.groups = false;
    options.hasNoBreakSpaces = false;
    options.minus = DisplayOptions::Minus::Hyphen;
    options.locale = "en";
    return options;
  }

  Reference reference;
  bool isTidy;
  ValueDisplay plain;
  std::vector<ValueDisplay> inLocales;
};

std::vector<Displays> allDisplays(const Units::UnitsEngine& engine) {
  std::vector<Displays> all;
  for (const Layout& layout : layouts)
    for (int rounding = -3; rounding <= 7; ++rounding)
      for (int switches = 0; switches < 4; ++switches) {
        static const int places[] = {0, 1, 2, 3, 4, 6, 9, 12};
        DisplayOptions options;
        options.symbol = layout.symbol;
        options.groups = (switches & 1) != 0;
        options.trims = (switches & 2) != 0;
        options.hasNoBreakSpaces = options.trims;
        if (rounding >= 0) options.places = places[rounding];
        if (rounding == -1) options.significant = 5;
        if (rounding == -2) options.denominator = options.trims ? 2 : 512;
        if (options.denominator && layout.ratios != std::vector<int>{12} && !layout.ratios.empty())
          continue;
        if (options.denominator) options.trims = false;
        all.emplace_back(engine, layout, options);
      }
  return all;
}

double someValue(Random& random) {
  const int kind = random.between(0, 7);
  if (kind < 4) return random.number();
  const double whole = random.between(0, kind == 4 ? 9 : 30000);
  if (kind == 5) return whole - std::pow(10.0, -random.between(1, 14));
  static const double steps[] = {1.0 / 24, 1.0 / 192, 1.0 / 7200, 1e-3, 5e-7, 0.5, 1.0 / 3072};
  const double value = whole + random.between(0, 9999) * random.oneOf(steps);
  return random.oneIn(2) ? value : -std::nextafter(value, random.oneIn(2) ? 1e300 : 0.0);
}

class Checker {
 public:
  explicit Checker(std::vector<Displays> displays) : displays_(std::move(displays)) {}

  void checkValue(double value) {
    const Displays& display = random_.oneOf(displays_);
    const std::string plain = display.plain.show(value);
    const auto& local = random_.oneOf(display.inLocales);
    const std::string text = local.show(value);
    const auto read = local.read(text);
    if (!std::isfinite(value)) {
      check(!read.isRead(), text, " is read");
      return;
    }
    check(read.isRead(), text, " is not read: ", read.sentence(), local.toJson());
    const double shown = display.plain.read(plain).value();
    check(read.value() == shown, text, " is ", read.value(), ", and ", plain, " is ", shown,
          local.toJson());
    check(local.show(shown) == text, text, " becomes ", local.show(shown), local.toJson());
    if (display.isTidy)
      check(std::fabs(shown - value) <= std::max(0.50001e-4 * std::fabs(value), 0.50001e-12), plain,
            " for ", value);
    else
      checkSteps(display, value, plain, shown);
    checkMarks(display, local, text, shown);
  }

  void checkMade() {
    static const char* const pieces[] = {"1",        "12",
                                         "123",      "234",
                                         "000",      "0",
                                         "5678",     ".",
                                         ",",        ".",
                                         ",",        " ",
                                         "\xC2\xA0", "\xE2\x80\x99",
                                         "'",        "\"",
                                         "-",        "1/2",
                                         "\xD9\xAB", "\xD9\xA1\xD9\xA2\xD9\xA3",
                                         "\xD9\xAC", "\xE0\xA5\xA7",
                                         " kg"};
    compare(random_.oneOf(displays_), random_.text(pieces, 7));
  }

  std::size_t equal = 0, refused = 0, halfway = 0;

 private:
  void checkSteps(const Displays& display, double value, const std::string& plain, double shown) {
    const Expected expected = display.reference.of(value);
    if (expected.isHalfway) {
      ++halfway;
      return;
    }
    check(plain == expected.text, value, " is ", plain, " and not ", expected.text,
          display.plain.toJson());
    const bool isExact = expected.steps < 0x1p53;  // else the quotient has rounded twice
    check(isExact ? shown == expected.value
                  : std::fabs(shown - expected.value) <= std::fabs(expected.value) * 0x1p-51,
          plain, " is read as ", shown, " and not ", expected.value);
    check(expected.steps < 0x1p55 || shown == value, plain, " is not ", value);
  }

  /// With its marks swapped, or in another locale, a text has the same value or none.
  void checkMarks(const Displays& display, const ValueDisplay& local, std::string text,
                  double shown) {
    compare(display, text);
    for (char& c : text) c = c == '.' ? ',' : c == ',' ? '.' : c;
    const auto swapped = local.read(text);
    check(!swapped.isRead() || swapped.value() == shown, text, " is ", swapped.value(),
          local.toJson());
  }

  void compare(const Displays& display, const std::string& text) {
    const ValueDisplay& left = random_.oneOf(display.inLocales);
    const ValueDisplay& right = random_.oneOf(display.inLocales);
    const auto first = left.read(text);
    const auto second = right.read(text);
    const bool areRead = first.isRead() && second.isRead();
    check(!areRead || first.value() == second.value(), text, " is ", first.value(), " by ",
          left.toJson(), " and ", second.value(), " by ", right.toJson());
    ++(areRead ? equal : refused);
  }

  Random random_{1};
  std::vector<Displays> displays_;
};

/// Each symbol of the catalog is told from the number beside it.
void readAllSymbols(const Units::UnitsEngine& engine, Random& random) {
  for (const auto& [typeId, symbol] : engine.getSymbols()) {
    DisplayOptions options;
    options.symbol = typeId;
    options.groups = true;
    options.locale = random.oneOf(ValueDisplay::locales());
    options.hasNoBreakSpaces = random.oneIn(2);
    if (symbol.getPrefixOrSuffix() && random.oneIn(2)) options.denominator = 8;
    const ValueDisplay display(engine, options);
    check(!options.hasNoBreakSpaces || display.show(-1.5).find(' ') == std::string::npos, typeId,
          " has a space where a line may end");
    for (const double value : {0.5, 12.0, -1234567.25})
      check(display.read(display.show(value)).value() == value, display.show(value), " by ",
            display.toJson());
  }
}

/// Plain symbols show what the engine shows. Of feet, it now and then shows 12 inches.
void compareWithEngine(const Units::UnitsEngine& engine, Random& random, long count) {
  const std::string kilogram = layouts[1].symbol, feetAndInches = layouts[3].symbol;
  long full = 0;
  for (int digits = 0; digits < 10; ++digits) {
    DisplayOptions options;
    options.symbol = kilogram;
    options.places = digits;
    const ValueDisplay places(engine, options);
    options.places.reset();
    options.denominator = 1 << digits;
    const ValueDisplay fractions(engine, options);
    for (long i = 0; i < count / 100; ++i) {
      const double value = someValue(random);
      const auto precision = static_cast<unsigned char>(digits);
      if (std::fabs(value) < std::ldexp(1.0, 49) / std::pow(10.0, digits))
        checkEqual(places.show(value), engine.formatFixedPoint(value, precision, &kilogram, false),
                   "places");
      if (std::fabs(value) < std::ldexp(1.0, 49 - digits))
        checkEqual(fractions.show(value), engine.formatFractional(value, precision, &kilogram),
                   "fractions");
      full += engine.formatFixedPoint(value, precision, &feetAndInches, false).find("' 12") !=
              std::string::npos;
    }
  }
  check(full > 0, "the engine shows no 12 inches");
  report("the engine shows 12 inches ", full, " times");
}

}  // namespace

int main(int count, char** arguments) {
  const long values = count > 1 ? std::atol(arguments[1]) : 100000000;
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"core", "symbols", "aliases"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(std::string(TRELVON_SCHEMAS_DIR "/") + pack,
                                                     *engine);
  Random random(2);
  Checker checker(allDisplays(*engine));
  for (long i = 0; i < values && findings() < 20; ++i) {
    checker.checkValue(someValue(random));
    checker.checkMade();
  }
  compareWithEngine(*engine, random, values);
  readAllSymbols(*engine, random);
  report(values, " values, ", checker.halfway,
         " of them halfway; texts in two locales: ", checker.equal, " equal, ", checker.refused,
         " refused in one");
  return verdict();
}
