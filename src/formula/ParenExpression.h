#pragma once

#include "formula/Expression.h"

#include <cstddef>
#include <memory>
#include <utility>

/// An expression in parentheses. Until it is set, a marker for open parentheses. Adjacent open
/// parentheses share a node, so a thousand of them take no more memory than one.
class ParenExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Paren;

  ParenExpression() : Expression(nodeKind) {}

  void openAnother() { ++open_; }
  /// Closes one unless it is the last open one, which `setInner` closes. Returns whether it did.
  bool closeOneOfMany() {
    if (open_ == 1) return false;
    --open_;
    return true;
  }

  void setInner(std::unique_ptr<Expression> inner) { linkOperand(std::move(inner)); }

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  std::size_t open_ = 1;
};
