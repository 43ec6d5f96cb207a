/// Formulas: against libqalculate, against parsing only their numbers, and by length.
#include "benchmarks/Catalogue.h"
#include "benchmarks/peers/FormulaTable.h"
#include "benchmarks/peers/Qalculate.h"
#include "benchmarks/peers/Turns.h"

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
  return formula.unit.empty() ? catalogue().evaluateUnitlessExpression(formula.text)
                              : catalogue().evaluateExpressionInUnit(formula.unit, formula.text);
}

Side ours() {
  return {[] {
            for (const Ready& formula : readyFormulas()) keep(ourValue(formula));
            return Leftover();
          },
          static_cast<double>(formulas.size())};
}

Sides againstQalculate() {
  const Qalculate qalculate;
  for (const Ready& formula : readyFormulas())
    checkNear(ourValue(formula), qalculate.evaluate(formula.theirText), 1e-9, formula.text);
  return {ours(),
          {[qalculate] {
             for (const Ready& formula : readyFormulas())
               keep(qalculate.evaluate(formula.theirText));
             return Leftover();
           },
           static_cast<double>(formulas.size())}};
}

/// The start of each number in the formulas. Exponents, as in m^2, are numbers too.
std::vector<const char*> numbers() {
  std::vector<const char*> found;
  for (const Ready& formula : readyFormulas()) {
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

Sides againstNumbers() {
  return {ours(),
          {[found = numbers()] {
             for (const char* number : found) keep(std::strtod(number, nullptr));
             return Leftover();
           },
           static_cast<double>(formulas.size())}};
}

Side explained() {
  return {[] {
            for (const Ready& formula : readyFormulas())
              keep(formula.unit.empty()
                       ? explainUnitlessFormula(catalogue(), formula.text, {}).value()
                       : explainFormula(catalogue(), formula.unit, formula.text, {}).value());
            return Leftover();
          },
          static_cast<double>(formulas.size())};
}

/// A formula without units and with a known value.
Side bare(std::string formula, double value, double pieces) {
  check(catalogue().evaluateUnitlessExpression(formula) == value, "the long formula");
  return {[formula = std::move(formula)] {
            keep(catalogue().evaluateUnitlessExpression(formula));
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

Side nested(std::size_t depth) {
  return bare(std::string(depth, '(') + "1.5" + std::string(depth, ')'), 1.5,
              static_cast<double>(depth));
}

}  // namespace

std::vector<Row> formulaRows() {
  return {
      {"32 formulas of 7 to 200 characters", "libqalculate", Bound::Faster, 20, 35,
       againstQalculate},
      {"32 formulas of 7 to 200 characters", "parsing only their numbers (`strtod`)", Bound::AtMost,
       35, 20, againstNumbers},
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
