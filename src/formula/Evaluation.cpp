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

/// A formula's tree, and its value, whose units may be borrowed from the tree.
class Evaluation {
 public:
  Evaluation(std::string_view formula, VariableResolver resolver, const Units::SymbolTexts& symbols,
             const Units::UnitMath& unitMath) {
    if (parseFormula(formula, arena_, root_, symbols, unitMath, std::move(resolver)))
      result_ = root_->compute();
    if (!result_) throwUnableToParse();
  }

  double value() const { return result_->value; }
  const UnitPowers& units() const { return result_->units(); }

 private:
  NodeArena arena_;
  std::unique_ptr<Expression> root_;
  std::optional<EvaluatedValue> result_;
};

}  // namespace

double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath) {
  const Evaluation evaluation(formula, std::move(resolver), symbols, unitMath);
  const double value = evaluation.value();
  const UnitPowers& units = evaluation.units();
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
  const Evaluation evaluation(formula, std::move(resolver), symbols, unitMath);
  if (!evaluation.units().empty()) throw Units::ParseException("Expression must be unitless.");
  return evaluation.value();
}

std::string rejectIdentifier(const std::string& identifier) {
  throw Units::ParseException("Unrecognized identifier: " + identifier + ".");
}
