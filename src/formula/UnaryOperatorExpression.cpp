#include "formula/UnaryOperatorExpression.h"

#include <stdexcept>
#include <utility>

void UnaryOperatorExpression::setOperand(std::unique_ptr<Expression> operand) {
  // `apply` rejects other operators before their operand is evaluated.
  if (op_ == FormulaUnaryOperator::Negate) linkOperand(std::move(operand));
}

FormulaReason UnaryOperatorExpression::apply(EvaluatedValues& values) const {
  if (op_ != FormulaUnaryOperator::Negate)
    throw std::logic_error(
        "legacy code dbgWarn: Bad FormulaUnaryOperator in UnaryOperatorExpression::evaluate. "
        "Dresmond 10-Apr-2003");
  values.back().value = -values.back().value;
  return FormulaReason::Done;
}
