#include "formula/NumberConstantExpression.h"

bool NumberConstantExpression::apply(EvaluatedValues& values) const {
  values.emplace_back(value_, units_);
  return true;
}
