#pragma once

#include "formula/Expression.h"
#include "formula/SpellingTables.h"

#include <memory>
#include <utility>

/// A binary operator and its operands.
class BinaryOperatorExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::BinaryOperator;

  explicit BinaryOperatorExpression(FormulaBinaryOperator op) : Expression(nodeKind), op_(op) {}

  FormulaBinaryOperator getOperator() const { return op_; }
  void setOperands(std::unique_ptr<Expression> left, std::unique_ptr<Expression> right) {
    linkOperands(std::move(left), std::move(right));
  }

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  /// Replaces the left operand by the result.
  FormulaReason combine(EvaluatedValue& left, EvaluatedValue& right) const;

  const FormulaBinaryOperator op_;
};
