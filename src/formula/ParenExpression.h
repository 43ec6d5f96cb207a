#pragma once

#include "formula/Expression.h"

#include <cstddef>
#include <memory>

/// An expression in parentheses. Without it, the mark of open parentheses: those that open side by
/// side are one node, so that a thousand of them want no more memory than one.
class ParenExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Paren;

  ParenExpression() : Expression(nodeKind) {}
  ~ParenExpression() override { deleteOperands(); }

  void openAnother() { ++open_; }
  /// Whether it was the last of those open.
  bool closeOne() { return --open_ == 0; }

  void setInner(std::unique_ptr<Expression> inner);

 private:
  bool apply(EvaluatedValues& values) const override;
  void removeOperands(Removal& removal) noexcept override { removal.take(inner_); }

  std::size_t open_ = 1;
  std::unique_ptr<Expression> inner_;
};
