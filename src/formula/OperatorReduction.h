#pragma once

#include "formula/Expression.h"
#include "model/ShortList.h"

#include <memory>

/// Expressions whose place in the tree is not known yet: either operands, or operators and open
/// parentheses that wait for operands. The few of most formulas need no memory of their own.
class ExpressionStack {
 public:
  ExpressionStack() = default;
  ExpressionStack(const ExpressionStack&) = delete;
  ExpressionStack& operator=(const ExpressionStack&) = delete;

  bool empty() const { return nodes_.empty(); }
  std::size_t size() const { return nodes_.size(); }
  Expression& top() const { return *nodes_.begin()[nodes_.size() - 1]; }

  void push(std::unique_ptr<Expression> node) { nodes_.push_back(node.release()); }

  std::unique_ptr<Expression> pop() {
    std::unique_ptr<Expression> node(nodes_.back());
    nodes_.pop_back();
    return node;
  }

 private:
  Units::ShortList<Expression*, 8> nodes_;  // tuning; freed with their arena
};

/// @throws std::logic_error  always.
[[noreturn]] void throwUnexpectedParseError();

/// @throws Units::ParseException  the stack is empty.
std::unique_ptr<Expression> pop(ExpressionStack& stack);

/// Pops an operand.
/// @throws std::logic_error  the stack is empty.
inline std::unique_ptr<Expression> popOperand(ExpressionStack& operands) {
  if (operands.empty()) throwUnexpectedParseError();
  return operands.pop();
}

/// How tightly an operator binds. All binary operators are left-associative, "^" too.
/// @throws std::logic_error  the expression is not an operator, or is an unknown one.
int getPriority(const Expression& expression);

inline bool opensParenthesis(const Expression& expression) {
  return expression.kind() == ExpressionKind::Function ||
         expression.kind() == ExpressionKind::Paren || expression.kind() == ExpressionKind::Symbol;
}

/// Whether the last operator gets its operands before an operator of `priority` (0: the end of a
/// formula or of parentheses). An open parenthesis waits for its end.
inline bool isReducible(const ExpressionStack& operators, int priority) {
  return !operators.empty() && !opensParenthesis(operators.top()) &&
         (priority == 0 || priority <= getPriority(operators.top()));
}

/// Pops the last operator and gives it its operands.
/// @throws std::logic_error  there are too few operands.
void reduceOperator(ExpressionStack& operands, ExpressionStack& operators);

/// Pops operators and gives them their operands, down to an operator that binds less tightly than
/// `priority` (0: all operators) or to an open parenthesis.
/// @throws std::logic_error  there are too few operands.
inline void reduceOperators(ExpressionStack& operands, ExpressionStack& operators, int priority) {
  while (isReducible(operators, priority)) reduceOperator(operands, operators);
}
