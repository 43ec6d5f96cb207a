#pragma once

#include "formula/Expression.h"
#include "formula/KnownVariables.h"

/// A variable whose value is known.
class VariableExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Variable;

  /// @param value  read at each evaluation; must outlive the tree.
  explicit VariableExpression(const VariableValue& value) : Expression(nodeKind), value_(value) {}

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  const VariableValue& value_;
};
