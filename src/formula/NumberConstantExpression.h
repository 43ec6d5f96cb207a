#pragma once

#include "formula/Expression.h"
#include "formula/UnitTerms.h"

/// A literal, converted to primitive units.
class NumberConstantExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::NumberConstant;

  explicit NumberConstantExpression(double value) : Expression(nodeKind), value_(value) {}

  /// @param value  in the unit.
  /// @param unit   must outlive the tree.
  NumberConstantExpression(double value, const UnitTerms& unit)
      : Expression(nodeKind), value_(unit.fromUnit(value)), units_(&unit.powers) {}

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  const double value_;
  const UnitPowers* const units_ = nullptr;
};
