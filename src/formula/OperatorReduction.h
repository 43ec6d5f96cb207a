#pragma once

#include "formula/Expression.h"

#include <memory>
#include <vector>

/// What the parser holds until it knows where it belongs: operands, or the operators and opened
/// parentheses that wait for them.
using ExpressionStack = std::vector<std::unique_ptr<Expression>>;

/// @throws std::logic_error  "Unexpected parse error": always.
[[noreturn]] void throwUnexpectedParseError();

/// @throws Units::ParseException  the stack is empty.
std::unique_ptr<Expression> pop(ExpressionStack& stack);

/// Pops an operand that must be there.
/// @throws std::logic_error  it is not.
std::unique_ptr<Expression> popOperand(ExpressionStack& operands);

/// How tightly an operator binds. All binary operators are left-associative, "^" too.
/// @throws std::logic_error  the expression is no operator, or one of an unknown kind.
int getPriority(const Expression& expression);

/// Gives the operators on top of the operator stack their operands, down to one that binds less
/// tightly than `priority` (0: to the end) or to an open parenthesis.
/// @throws std::logic_error  there are too few operands.
void reduceOperators(ExpressionStack& operands, ExpressionStack& operators, int priority);
