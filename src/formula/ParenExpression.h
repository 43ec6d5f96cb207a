#pragma once

#include "formula/Expression.h"

#include <cstddef>
#include <memory>

/// An expression in parentheses. Until it is set, a marker for open parentheses. Adjacent open
/// parentheses share a node, so a thousand of them take no more memory than one.
class ParenExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Paren;

  ParenExpression() : Expression(nodeKind) {}
  ~ParenExpression() override { deleteOperands(); }

  void openAnother() { ++open_; }
  /// Returns whether this closed the last open one.
  bool closeOne() { return --open_ == 0; }

  void setInner(std::unique_ptr<Expression> inner);

 private:
  FormulaReason apply(EvaluatedValues& values) const override;
  void removeOperands(Removal& removal) noexcept override { removal.take(inner_); }

  std::size_t open_ = 1;
  std::unique_ptr<Expression> inner_;
};
