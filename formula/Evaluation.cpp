#include "formula/Evaluation.h"

#include "formula/FormulaParser.h"
#include "model/CompatiblePowers.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace {

[[noreturn]] void throwUnableToParse() {
  throw Units::ParseException("Unable to parse expression.");
}

/// A formula's value, whose units may be borrowed from its tree.
struct Evaluated {
  std::unique_ptr<Expression> root;
  EvaluatedValue result;
};

Evaluated evaluate(std::string_view formula, VariableResolver resolver,
                   const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath) {
  std::unique_ptr<Expression> root;
  if (!parseFormula(formula, root, symbols, unitMath, std::move(resolver))) throwUnableToParse();
  std::optional<EvaluatedValue> result = root->compute();
  if (!result) throwUnableToParse();
  return {std::move(root), std::move(*result)};
}

}  // namespace

double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath) {
  const Evaluated evaluated = evaluate(formula, std::move(resolver), symbols, unitMath);
  const double value = evaluated.result.value;
  const UnitPowers& units = evaluated.result.units();
  if (units.empty()) return value;

  double factor = 1;
  double offset = 0;
  UnitPowers powers;
  unitMath.reduceInPlace(unit, factor, offset, powers);
  bool inverted = false;
  if (!Units::arePowersCompatible(truncatePowers(units), truncatePowers(powers), inverted))
    throwUnableToParse();
  return (inverted ? std::pow(value, -1.0) : value) / factor - offset;
}

double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath) {
  const Evaluated evaluated = evaluate(formula, std::move(resolver), symbols, unitMath);
  if (!evaluated.result.units().empty())
    throw Units::ParseException("Expression must be unitless.");
  return evaluated.result.value;
}

std::string rejectIdentifier(const std::string& identifier) {
  throw Units::ParseException("Unrecognized identifier: " + identifier + ".");
}
