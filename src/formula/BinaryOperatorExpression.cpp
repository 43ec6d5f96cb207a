#include "formula/BinaryOperatorExpression.h"

#include "formula/Arithmetic.h"
#include "model/Tolerances.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace {

bool add(EvaluatedValue& left, EvaluatedValue& right) {
  if (!left.hasSameUnitsAs(right)) return false;
  left.value = right.value + left.value;
  return true;
}

bool subtract(EvaluatedValue& left, EvaluatedValue& right) {
  if (!left.hasSameUnitsAs(right)) return false;
  left.value = left.value - right.value;
  return true;
}

bool multiply(EvaluatedValue& left, EvaluatedValue& right) {
  left.value = right.value * left.value;
  left.multiplyUnits(right);
  return true;
}

bool divide(EvaluatedValue& left, EvaluatedValue& right) {
  if (Units::isNearZero(right.value)) return false;
  left.value = left.value / right.value;
  left.divideUnits(right);
  return true;
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

bool raise(EvaluatedValue& left, EvaluatedValue& right) {
  if (!right.isUnitless())
    throw Units::ParseException("Right-hand operand of the power operator must be unitless.");
  double exponent = right.value;
  if (!prepareBase(left.value, exponent) || !computePower(left.value, exponent)) return false;
  if (!left.isUnitless()) left.changeableUnits().raiseTo(exponent);
  return true;
}

}  // namespace

void BinaryOperatorExpression::setOperands(std::unique_ptr<Expression> left,
                                           std::unique_ptr<Expression> right) {
  left_ = std::move(left);
  right_ = std::move(right);
  linkOperands(*left_, *right_);
}

bool BinaryOperatorExpression::apply(EvaluatedValues& values) const {
  EvaluatedValue right = std::move(values.back());
  values.pop_back();
  EvaluatedValue& left = values.back();
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

void BinaryOperatorExpression::removeOperands(Removal& removal) noexcept {
  removal.take(left_);
  removal.take(right_);
}
