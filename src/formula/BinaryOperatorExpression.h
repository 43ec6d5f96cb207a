#pragma once

#include "formula/Expression.h"
#include "formula/SpellingTables.h"

#include <memory>

/// A binary operator and its operands.
class BinaryOperatorExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::BinaryOperator;

  explicit BinaryOperatorExpression(FormulaBinaryOperator op) : Expression(nodeKind), op_(op) {}
  ~BinaryOperatorExpression() override { deleteOperands(); }

  FormulaBinaryOperator getOperator() const { return op_; }
  void setOperands(std::unique_ptr<Expression> left, std::unique_ptr<Expression> right);

 private:
  FormulaReason apply(EvaluatedValues& values) const override;
  void removeOperands(Removal& removal) noexcept override;

  /// Replaces the left operand by the result.
  FormulaReason combine(EvaluatedValue& left, EvaluatedValue& right) const;

  const FormulaBinaryOperator op_;
  std::unique_ptr<Expression> left_;
  std::unique_ptr<Expression> right_;
};
