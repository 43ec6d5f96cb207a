#pragma once

#include "formula/Expression.h"
#include "formula/SpellingTables.h"

#include <cstddef>
#include <memory>

/// A function and its inputs: one, or none for "pi()". Other counts are rejected on evaluation.
class FunctionExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Function;

  explicit FunctionExpression(FormulaFunction function)
      : Expression(nodeKind), function_(function) {}

  void addInput(std::unique_ptr<Expression> input);

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  const FormulaFunction function_;
  std::size_t inputCount_ = 0;
};
