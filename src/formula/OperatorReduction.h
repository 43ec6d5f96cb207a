#pragma once

#include "formula/Expression.h"

#include <memory>
#include <vector>

/// Expressions whose place in the tree is not known yet: either operands, or operators and open
/// parentheses that wait for operands.
using ExpressionStack = std::vector<std::unique_ptr<Expression>>;

/// @throws std::logic_error  always.
[[noreturn]] void throwUnexpectedParseError();

/// @throws Units::ParseException  the stack is empty.
std::unique_ptr<Expression> pop(ExpressionStack& stack);

/// Pops an operand.
/// @throws std::logic_error  the stack is empty.
std::unique_ptr<Expression> popOperand(ExpressionStack& operands);

/// How tightly an operator binds. All binary operators are left-associative, "^" too.
/// @throws std::logic_error  the expression is not an operator, or is an unknown one.
int getPriority(const Expression& expression);

/// Pops operators and gives them their operands, down to an operator that binds less tightly than
/// `priority` (0: all operators) or to an open parenthesis.
/// @throws std::logic_error  there are too few operands.
void reduceOperators(ExpressionStack& operands, ExpressionStack& operators, int priority);
