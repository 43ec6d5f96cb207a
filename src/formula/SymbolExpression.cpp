#include "formula/SymbolExpression.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <utility>

SymbolExpression::SymbolExpression(const Units::Symbol& symbol, const Units::UnitMath& unitMath)
    : Expression(nodeKind), symbol_(symbol), unitMath_(unitMath) {}

SymbolExpression::SymbolExpression(const Units::Symbol& symbol, const Units::UnitMath& unitMath,
                                   std::unique_ptr<Expression> operand)
    : SymbolExpression(symbol, unitMath) {
  setOperand(std::move(operand));
}

void SymbolExpression::setOperand(std::unique_ptr<Expression> operand) {
  operand_ = std::move(operand);
  linkOperand(*operand_);
}

bool SymbolExpression::apply(EvaluatedValues& values) const {
  EvaluatedValue& operand = values.back();
  if (!operand.units().empty())
    throw Units::ParseException("Unit symbol may be applied only to a unitless expression.");
  operand.value = reduceToPrimitives(operand.value, Units::RecordAccess::unit(symbol_), unitMath_,
                                     operand.changeableUnits());
  return true;
}
