#include "formula/SymbolExpression.h"

#include "model/RecordAccess.h"

#include <utility>

SymbolExpression::SymbolExpression(const Units::Symbol& symbol, UnitTermsSource& units)
    : Expression(nodeKind), symbol_(symbol), units_(units) {}

SymbolExpression::SymbolExpression(const Units::Symbol& symbol, UnitTermsSource& units,
                                   std::unique_ptr<Expression> operand)
    : SymbolExpression(symbol, units) {
  setOperand(std::move(operand));
}

FormulaReason SymbolExpression::apply(EvaluatedValues& values) const {
  EvaluatedValue& operand = values.back();
  if (!operand.isUnitless()) return FormulaReason::SymbolAfterUnits;
  const UnitTerms& terms = units_.termsOf(Units::RecordAccess::unit(symbol_));
  operand = EvaluatedValue(terms.fromUnit(operand.value), &terms.powers);
  return FormulaReason::Done;
}
