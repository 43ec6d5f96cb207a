#include "formula/NumberConstantExpression.h"

FormulaReason NumberConstantExpression::apply(EvaluatedValues& values) const {
  values.emplace_back(value_, units_);
  return FormulaReason::Done;
}
