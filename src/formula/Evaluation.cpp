#include "formula/Evaluation.h"

#include "formula/FormulaParser.h"
#include "formula/Refusal.h"
#include "model/CompatiblePowers.h"

#include <TrelvonUnits/Exceptions.h>

#include <cmath>
#include <memory>
#include <utility>

namespace {

/// The formula's value, whose units may be borrowed from `units`.
EvaluatedValue evaluate(std::string_view formula, VariableResolver resolver,
                        const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath,
                        UnitTermsSource& units) {
  LocalNodeArena arena;
  std::unique_ptr<Expression> root;
  const FormulaReason reason =
      parseFormula(formula, arena, root, symbols, unitMath, units, std::move(resolver));
  if (reason != FormulaReason::Done) throwRefusal(reason);
  return root->compute();
}

}  // namespace

FormulaReason countInUnit(EvaluatedValue& result, const Units::Unit& unit, UnitTermsSource& units,
                          bool& inverted) {
  if (result.isUnitless()) return FormulaReason::Done;
  const UnitTerms& terms = units.termsOf(unit);
  const bool hasUnitsOf = result.borrowedUnits() == &terms.powers;
  if (!hasUnitsOf && !Units::arePowersCompatible(truncatePowers(result.units()),
                                                 truncatePowers(terms.powers), inverted))
    return FormulaReason::UnitsDoNotFit;
  result.value =
      (inverted ? std::pow(result.value, -1.0) : result.value) / terms.factor - terms.offset;
  return FormulaReason::Done;
}

double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath, UnitTermsSource& units) {
  EvaluatedValue result = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  bool inverted = false;
  const FormulaReason reason = countInUnit(result, unit, units, inverted);
  if (reason != FormulaReason::Done) throwRefusal(reason);
  return result.value;
}

double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath, UnitTermsSource& units) {
  EvaluatedValue result = evaluate(formula, std::move(resolver), symbols, unitMath, units);
  if (!result.isUnitless()) throwRefusal(FormulaReason::HasUnits);
  return result.value;
}

std::string rejectIdentifier(const std::string& identifier) {
  throw Units::ParseException("Unrecognized identifier: " + identifier + ".");
}
