#include "formula/BinaryOperatorExpression.h"

#include "formula/Arithmetic.h"
#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

FormulaReason add(EvaluatedValue& left, EvaluatedValue& right) {
  if (!left.hasSameUnitsAs(right)) return FormulaReason::UnitsDiffer;
  left.value = right.value + left.value;
  return FormulaReason::Done;
}

FormulaReason subtract(EvaluatedValue& left, EvaluatedValue& right) {
  if (!left.hasSameUnitsAs(right)) return FormulaReason::UnitsDiffer;
  left.value = left.value - right.value;
  return FormulaReason::Done;
}

FormulaReason multiply(EvaluatedValue& left, EvaluatedValue& right) {
  left.value = right.value * left.value;
  left.multiplyUnits(right);
  return FormulaReason::Done;
}

FormulaReason divide(EvaluatedValue& left, EvaluatedValue& right) {
  if (Units::isNearZero(right.value)) return FormulaReason::DivisorNearZero;
  left.value = left.value / right.value;
  left.divideUnits(right);
  return FormulaReason::Done;
}

/// Adjusts base and exponent for `pow`. Returns false if the power is undefined.
bool prepareBase(double& base, double& exponent) {
  if (Units::isNearZero(base)) {
    if (Units::isNearZero(exponent) || exponent < 0) return false;
    base = std::max(0.0, base);
  } else if (base < 0) {
    const double nearest = std::floor(exponent + 0.5);
    if (!Units::areNearlyEqual(exponent, nearest)) return false;
    exponent = nearest;
  }
  return true;
}

FormulaReason raise(EvaluatedValue& left, EvaluatedValue& right) {
  if (!right.isUnitless()) return FormulaReason::ExponentHasUnits;
  double exponent = right.value;
  if (!prepareBase(left.value, exponent)) return FormulaReason::UndefinedPower;
  const FormulaReason reason = computePower(left.value, exponent);
  if (reason != FormulaReason::Done) return reason;
  return left.isUnitless() ? FormulaReason::Done : left.changeableUnits().raiseTo(exponent);
}

}  // namespace

FormulaReason BinaryOperatorExpression::apply(EvaluatedValues& values) const {
  const FormulaReason reason = combine(*(values.end() - 2), values.back());
  values.pop_back();
  return reason;
}

FormulaReason BinaryOperatorExpression::combine(EvaluatedValue& left, EvaluatedValue& right) const {
  switch (op_) {
    case FormulaBinaryOperator::Add:
      return add(left, right);
    case FormulaBinaryOperator::Subtract:
      return subtract(left, right);
    case FormulaBinaryOperator::Multiply:
      return multiply(left, right);
    case FormulaBinaryOperator::Divide:
      return divide(left, right);
    case FormulaBinaryOperator::Power:
      return raise(left, right);
    case FormulaBinaryOperator::None:
      break;
  }
  throw std::logic_error(
      "legacy code dbgWarn: Bad FormulaBinaryOperator in BinaryOperatorExpression::evaluate. "
      "Dresmond 10-Apr-2003");
}
