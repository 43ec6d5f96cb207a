#include "formula/OperatorReduction.h"

#include "formula/BinaryOperatorExpression.h"
#include "formula/UnaryOperatorExpression.h"

#include <TrelvonUnits/Exceptions.h>

#include <stdexcept>
#include <utility>

void throwUnexpectedParseError() {
  throw std::logic_error("legacy code dbgWarn: Unexpected parse error. Dresmond 9-May-2004");
}

std::unique_ptr<Expression> pop(ExpressionStack& stack) {
  if (stack.empty()) throw Units::ParseException("Expected an expression.");
  return stack.pop();
}

int getPriority(const Expression& expression) {
  if (expression.kind() == ExpressionKind::UnaryOperator) return 4;
  const auto* const binary = nodeAs<BinaryOperatorExpression>(&expression);
  if (!binary)
    throw std::logic_error(
        "legacy code dbgWarn: Unknown expresion type in getPriority. Dresmond 10-Apr-2003");
  switch (binary->getOperator()) {
    case FormulaBinaryOperator::Add:
    case FormulaBinaryOperator::Subtract:
      return 1;
    case FormulaBinaryOperator::Multiply:
    case FormulaBinaryOperator::Divide:
      return 2;
    case FormulaBinaryOperator::Power:
      return 3;
    case FormulaBinaryOperator::None:
      break;
  }
  throw std::logic_error(
      "legacy code dbgWarn: Unknown binary operator in getPriority. Dresmond 10-Apr-2003");
}

void reduceOperator(ExpressionStack& operands, ExpressionStack& operators) {
  std::unique_ptr<Expression> top = operators.pop();
  if (auto* const unary = nodeAs<UnaryOperatorExpression>(top.get())) {
    unary->setOperand(popOperand(operands));
  } else if (auto* const binary = nodeAs<BinaryOperatorExpression>(top.get())) {
    std::unique_ptr<Expression> right = popOperand(operands);
    binary->setOperands(popOperand(operands), std::move(right));
  }
  operands.push(std::move(top));
}
