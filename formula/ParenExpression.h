#pragma once

#include "formula/Expression.h"

#include <memory>

/// An expression in parentheses. Without it, the mark of an open parenthesis.
class ParenExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Paren;

  ParenExpression() : Expression(nodeKind) {}
  ~ParenExpression() override { deleteOperands(); }

  void setInner(std::unique_ptr<Expression> inner);

 private:
  bool apply(EvaluatedValues& values) const override;
  void removeOperands(Removal& removal) noexcept override { removal.take(inner_); }

  std::unique_ptr<Expression> inner_;
};
