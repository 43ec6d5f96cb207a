/// Formulas: against libqalculate, against parsing only their numbers, and by length.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/FormulaTable.h"
#include "benchmarks/peers/Qalculate.h"
#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace peers {

namespace {

struct Ready {
  std::string text;
  std::string unit;       // type id, or empty
  std::string theirText;  // a formula whose result is a plain number
};

const std::vector<Ready>& readyFormulas() {
  static const std::vector<Ready> made = [] {
    std::vector<Ready> all;
    for (const Formula& formula : formulas) {
      const std::string text = formula.text;
      if (formula.unit == nullptr)
        all.push_back({text, "", text});
      else
        all.push_back({text, unit(formula.unit), "(" + text + ")/(" + formula.symbol + ")"});
    }
    return all;
  }();
  return made;
}

double ourValue(const Ready& formula) {
  return formula.unit.empty() ? catalog().evaluateUnitlessExpression(formula.text)
                              : catalog().evaluateExpressionInUnit(formula.unit, formula.text);
}

Side evaluating(std::vector<Ready> formulas) {
  const auto count = static_cast<double>(formulas.size());
  return {[formulas = std::move(formulas)] {
            for (const Ready& formula : formulas) keep(ourValue(formula));
            return Leftover();
          },
          count};
}

Side ours() { return evaluating(readyFormulas()); }

Sides againstQalculate(const std::vector<Ready>& formulas) {
  const Qalculate qalculate;
  for (const Ready& formula : formulas)
    checkNear(ourValue(formula), qalculate.evaluate(formula.theirText), 1e-9, formula.text);
  return {evaluating(formulas),
          {[formulas, qalculate] {
             for (const Ready& formula : formulas) keep(qalculate.evaluate(formula.theirText));
             return Leftover();
           },
           static_cast<double>(formulas.size())}};
}

/// The start of each number in the formulas. Exponents, as in m^2, are numbers too.
std::vector<const char*> numbersOf(const std::vector<Ready>& formulas) {
  std::vector<const char*> found;
  for (const Ready& formula : formulas) {
    const char* at = formula.text.c_str();
    while (*(at += std::strcspn(at, ".0123456789")) != '\0') {
      found.push_back(at);
      char* end = nullptr;
      std::strtod(at, &end);
      at = end;
    }
  }
  return found;
}

/// @param formulas  must outlive the rounds.
Sides againstNumbers(const std::vector<Ready>& formulas) {
  return {evaluating(formulas),
          {[found = numbersOf(formulas)] {
             for (const char* number : found) keep(std::strtod(number, nullptr));
             return Leftover();
           },
           static_cast<double>(formulas.size())}};
}

/// The formulas of about 50 characters.
const std::vector<Ready>& mediumFormulas() {
  static const std::vector<Ready> chosen = [] {
    std::vector<Ready> medium;
    for (const Ready& formula : readyFormulas())
      if (formula.text.size() >= 40 && formula.text.size() <= 60) medium.push_back(formula);
    return medium;
  }();
  return chosen;
}

struct Literal {
  const char* text;
  const char* unit;       // our name
  const char* theirUnit;  // in the spelling of UDUNITS-2
};

constexpr std::array<Literal, 12> literals = {{{"12.5 kg", "kilogram", "kg"},
                                               {"3 m", "meter", "m"},
                                               {"250 mm", "millimeter", "mm"},
                                               {"1e3 Pa", "pascal", "Pa"},
                                               {"0.75 kN", "kilonewton", "kN"},
                                               {"101.325 kPa", "kilopascal", "kPa"},
                                               {"7.25 W", "watt", "W"},
                                               {"16 A", "ampere", "A"},
                                               {"2.75 m/s", "meterPerSecond", "m/s"},
                                               {"12.5 ft", "foot", "ft"},
                                               {"4.2e-3 V", "volt", "V"},
                                               {"1500 J", "joule", "J"}}};

/// Reads literals, each in the unit that it is written in.
Sides literalsAgainstUdunits() {
  const auto udunits = std::make_shared<Udunits>();
  std::vector<Ready> ready;
  for (const Literal& literal : literals) {
    ready.push_back({literal.text, unit(literal.unit), ""});
    checkNear(ourValue(ready.back()), udunits->valueOf(literal.text, literal.theirUnit), 1e-12,
              literal.text);
  }
  return {evaluating(std::move(ready)),
          {[udunits] {
             for (const Literal& literal : literals)
               keep(udunits->valueOf(literal.text, literal.theirUnit));
             return Leftover();
           },
           literals.size()}};
}

Side explained() {
  return {[] {
            for (const Ready& formula : readyFormulas())
              keep(formula.unit.empty()
                       ? explainUnitlessFormula(catalog(), formula.text, {}).value()
                       : explainFormula(catalog(), formula.unit, formula.text, {}).value());
            return Leftover();
          },
          static_cast<double>(formulas.size())};
}

/// A formula without units and with a known value.
Side bare(std::string formula, double value, double pieces) {
  check(catalog().evaluateUnitlessExpression(formula) == value, "the long formula");
  return {[formula = std::move(formula)] {
            keep(catalog().evaluateUnitlessExpression(formula));
            return Leftover();
          },
          pieces};
}

Side sum(std::size_t characters) {
  std::string formula = "1";
  while (formula.size() + 2 <= characters) formula += "+1";
  const auto length = static_cast<double>(formula.size());
  return bare(std::move(formula), (length + 1) / 2, length);
}

std::string inParentheses(std::size_t depth) {
  return std::string(depth, '(') + "1.5" + std::string(depth, ')');
}

Side nested(std::size_t depth) {
  return bare(inParentheses(depth), 1.5, static_cast<double>(depth));
}

}  // namespace

std::vector<Row> formulaRows() {
  return {
      {"32 formulas of 7 to 200 characters", "libqalculate", Bound::Faster, 20, 35,
       [] { return againstQalculate(readyFormulas()); }},
      {"32 formulas of 7 to 200 characters", "parsing only their numbers (`strtod`)", Bound::AtMost,
       35, 20, [] { return againstNumbers(readyFormulas()); }},
      {"formulas of 40 to 60 characters", "parsing only their numbers (`strtod`)", Bound::AtMost, 9,
       6, [] { return againstNumbers(mediumFormulas()); }},
      {"a literal as a formula in its unit", "UDUNITS-2, text to number", Bound::Faster, 5, 7,
       literalsAgainstUdunits},
      {"1,000 nested parentheses", "libqalculate", Bound::Faster, 15, 30,
       [] {
         return againstQalculate({{inParentheses(1000), "", inParentheses(1000)}});
       }},
      {"32 formulas of 7 to 200 characters, explained", "evaluating them", Bound::AtMost, 4, 2.5,
       [] {
         return Sides{explained(), ours()};
       }},
      {"sum of 100,000 characters, per character", "1,000 characters", Bound::AtMost, 2, 1.2,
       [] {
         return Sides{sum(100000), sum(1000)};
       }},
      {"100,000 nested parentheses, per parenthesis", "1,000 parentheses", Bound::AtMost, 2, 1.2,
       [] {
         return Sides{nested(100000), nested(1000)};
       }},
  };
}

}  // namespace peers
