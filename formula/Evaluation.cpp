#include "formula/Evaluation.h"

#include "formula/FormulaParser.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <memory>
#include <utility>

namespace {

[[noreturn]] void throwUnableToParse() {
  throw Units::ParseException("Unable to parse expression.");
}

double evaluate(std::string_view formula, VariableResolver resolver,
                const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath,
                UnitPowerMap& units) {
  std::unique_ptr<Expression> root;
  double value = 0;
  if (!parseFormula(formula, root, symbols, unitMath, std::move(resolver)) ||
      !root->evaluate(value, units))
    throwUnableToParse();
  return value;
}

}  // namespace

double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath) {
  UnitPowerMap units;
  const double value = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  if (units.empty()) return value;

  double factor = 1;
  double offset = 0;
  Units::PrimitivePowers powers;
  unitMath.reduceUnit(unit, factor, offset, powers);
  bool inverted = false;
  if (!unitMath.arePowersCompatible(truncatePowers(units), std::move(powers), inverted))
    throwUnableToParse();
  return (inverted ? std::pow(value, -1.0) : value) / factor - offset;
}

double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath) {
  UnitPowerMap units;
  const double value = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  if (!units.empty()) throw Units::ParseException("Expression must be unitless.");
  return value;
}

std::string rejectIdentifier(const std::string& identifier) {
  throw Units::ParseException("Unrecognized identifier: " + identifier + ".");
}
