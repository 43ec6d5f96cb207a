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

/// The formula's value, whose units may be borrowed from `units`.
EvaluatedValue evaluate(std::string_view formula, VariableResolver resolver,
                        const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath,
                        UnitTermsSource& units) {
  NodeArena arena;
  std::unique_ptr<Expression> root;
  std::optional<EvaluatedValue> result;
  if (parseFormula(formula, arena, root, symbols, unitMath, units, std::move(resolver)))
    result = root->compute();
  if (!result) throwUnableToParse();
  return *std::move(result);
}

}  // namespace

double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath, UnitTermsSource& units) {
  EvaluatedValue result = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  if (result.isUnitless()) return result.value;

  const UnitTerms& terms = units.termsOf(unit);
  bool inverted = false;
  if (!Units::arePowersCompatible(truncatePowers(result.units()), truncatePowers(terms.powers),
                                  inverted))
    throwUnableToParse();
  return (inverted ? std::pow(result.value, -1.0) : result.value) / terms.factor - terms.offset;
}

double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath, UnitTermsSource& units) {
  EvaluatedValue result = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  if (!result.isUnitless()) throw Units::ParseException("Expression must be unitless.");
  return result.value;
}

std::string rejectIdentifier(const std::string& identifier) {
  throw Units::ParseException("Unrecognized identifier: " + identifier + ".");
}
