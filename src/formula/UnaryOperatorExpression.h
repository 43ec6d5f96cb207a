#pragma once

#include "formula/Expression.h"
#include "formula/SpellingTables.h"

#include <memory>

/// A unary operator and its operand.
class UnaryOperatorExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::UnaryOperator;

  explicit UnaryOperatorExpression(FormulaUnaryOperator op) : Expression(nodeKind), op_(op) {}

  FormulaUnaryOperator getOperator() const { return op_; }
  void setOperand(std::unique_ptr<Expression> operand);

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  const FormulaUnaryOperator op_;
};
