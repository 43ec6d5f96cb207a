#pragma once

#include "formula/Expression.h"
#include "formula/UnitTerms.h"

#include <TrelvonUnits/Symbol.h>

#include <memory>
#include <utility>

/// An expression in parentheses with a unit symbol before or after it.
class SymbolExpression final : public Expression {
 public:
  static constexpr ExpressionKind nodeKind = ExpressionKind::Symbol;

  /// For a prefix symbol, whose operand is set later.
  SymbolExpression(const Units::Symbol& symbol, UnitTermsSource& units);
  /// For a suffix symbol.
  SymbolExpression(const Units::Symbol& symbol, UnitTermsSource& units,
                   std::unique_ptr<Expression> operand);

  void setOperand(std::unique_ptr<Expression> operand) { linkOperand(std::move(operand)); }

 private:
  FormulaReason apply(EvaluatedValues& values) const override;

  const Units::Symbol& symbol_;  // in the registry
  UnitTermsSource& units_;
};
