#pragma once

#include "formula/Expression.h"
#include "formula/SpellingTables.h"

#include <memory>

/// A unary operator and its operand.
class UnaryOperatorExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::UnaryOperator;

  explicit UnaryOperatorExpression(FormulaUnaryOperator op) : Expression(nodeKind), op_(op) {}
  ~UnaryOperatorExpression() override { deleteOperands(); }

  FormulaUnaryOperator getOperator() const { return op_; }
  void setOperand(std::unique_ptr<Expression> operand);

 private:
  FormulaReason apply(EvaluatedValues& values) const override;
  void removeOperands(Removal& removal) noexcept override { removal.take(operand_); }

  const FormulaUnaryOperator op_;
  std::unique_ptr<Expression> operand_;
};
