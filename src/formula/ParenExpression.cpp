#include "formula/ParenExpression.h"

#include <utility>

void ParenExpression::setInner(std::unique_ptr<Expression> inner) {
  inner_ = std::move(inner);
  linkOperand(*inner_);
}

FormulaReason ParenExpression::apply(EvaluatedValues&) const { return FormulaReason::Done; }
