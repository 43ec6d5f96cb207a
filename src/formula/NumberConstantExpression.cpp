#include "formula/NumberConstantExpression.h"

#include "model/RecordAccess.h"

NumberConstantExpression::NumberConstantExpression(double value, const Units::Symbol* symbol,
                                                   const Units::UnitMath& unitMath)
    : Expression(nodeKind), value_(value) {
  if (symbol)
    value_ = reduceToPrimitives(value, Units::RecordAccess::unit(*symbol), unitMath, units_);
}

bool NumberConstantExpression::apply(EvaluatedValues& values) const {
  values.emplace_back(value_, units_);
  return true;
}
