#pragma once

#include "formula/Expression.h"
#include "formula/UnitMath.h"

#include <TrelvonUnits/Symbol.h>

/// A literal, in primitive terms.
class NumberConstantExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::NumberConstant;

  /// @param value   counted in the symbol's unit.
  /// @param symbol  null for a plain number.
  NumberConstantExpression(double value, const Units::Symbol* symbol,
                           const Units::UnitMath& unitMath);

 private:
  bool apply(EvaluatedValues& values) const override;
  void removeOperands(Removal&) noexcept override {}

  double value_;
  UnitPowers units_;
};
