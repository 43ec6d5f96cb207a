#include "formula/VariableExpression.h"

FormulaReason VariableExpression::apply(EvaluatedValues& values) const {
  values.emplace_back(value_.value, value_.powers.empty() ? nullptr : &value_.powers);
  return FormulaReason::Done;
}
