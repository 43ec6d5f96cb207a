#pragma once

#include "formula/EvaluatedValue.h"
#include "formula/NodeArena.h"

#include <TrelvonUnits/FormulaReason.h>

#include <cstddef>
#include <cstdint>
#include <memory>

using Units::FormulaReason;

/// The class of a node.
enum class ExpressionKind : std::int32_t {
  BinaryOperator,
  UnaryOperator,
  Function,
  NumberConstant,
  Paren,
  Symbol,
  Variable,
};

/// A node of a formula's tree.
///
/// A tree may have any depth: a sum of a million terms has a million levels. So nothing here
/// recurses. Nodes form a linked list in evaluation order, operands before their operator, and each
/// node points to the start of its subtree's list. Evaluation iterates over that list. A node that
/// rejects its operands without evaluating them does not link them.
class Expression {
 public:
  virtual ~Expression() = default;

  /// Evaluates the subtree below this node.
  ///
  /// @param value  set to the result, in primitive units if it has units.
  /// @param units  set to the units of the result.
  /// @return  false if there is no result: mismatched units in a sum, a division by zero,
  ///          an argument outside a function's domain, an overflow.
  /// @throws Units::ParseException  the formula breaks a rule that has its own message.
  virtual bool evaluate(double& value, UnitPowerMap& units) const;

  /// Returns value and units together. The units may be borrowed.
  /// @throws Units::ParseException  there is no result.
  EvaluatedValue compute() const;

  /// Evaluates the subtree and lets `watch` see each node before and after it is applied:
  /// `watch.before(node)`, `watch.after(node, values)`.
  ///
  /// @param values  empty; set to the result.
  template <class Watch>
  FormulaReason walk(EvaluatedValues& values, Watch&& watch) const;

  /// Calls `visit` with every node of the subtree, in evaluation order.
  template <class Visit>
  void forEach(Visit&& visit) const;

  // Nodes are allocated in the arena of their formula, own nothing else, and are freed with it. So
  // deleting a tree need not visit its nodes.
  static void* operator new(std::size_t size, NodeArena& arena) { return arena.allocate(size); }
  static void operator delete(void*, NodeArena&) {}
  static void operator delete(void*) {}

  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  ExpressionKind kind() const { return kind_; }

  /// How many operands are evaluated before the node.
  std::size_t operandCount() const {
    return first_ == this ? 0 : kind_ == ExpressionKind::BinaryOperator ? 2 : 1;
  }

  /// The number of the token that the node was made for, from 0.
  std::uint32_t tokenNumber() const { return tokenNumber_; }
  void setTokenNumber(std::uint32_t number) { tokenNumber_ = number; }

 protected:
  explicit Expression(ExpressionKind kind) : first_(this), kind_(kind) {}

  /// Link this node after its operands in evaluation order. They must not be linked elsewhere, and
  /// are left to the arena.
  void linkOperand(std::unique_ptr<Expression> operand) {
    first_ = operand->first_;
    operand.release()->next_ = this;
  }
  void linkOperands(std::unique_ptr<Expression> left, std::unique_ptr<Expression> right) {
    first_ = left->first_;
    left.release()->next_ = right->first_;
    right.release()->next_ = this;
  }
  void unlinkOperands() { first_ = this; }

  /// Replaces the values of the node's operands by its own. If it is refused, their values must not
  /// be used.
  virtual FormulaReason apply(EvaluatedValues& values) const = 0;

 private:
  Expression* first_;           // the first node of this subtree in evaluation order
  Expression* next_ = nullptr;  // the next node in evaluation order
  const ExpressionKind kind_;
  std::uint32_t tokenNumber_ = 0;
};

template <class Watch>
FormulaReason Expression::walk(EvaluatedValues& values, Watch&& watch) const {
  for (const Expression* node = first_;; node = node->next_) {
    watch.before(*node);
    const FormulaReason reason = node->apply(values);
    if (reason != FormulaReason::Done) return reason;
    watch.after(*node, values);
    if (node == this) return FormulaReason::Done;
  }
}

template <class Visit>
void Expression::forEach(Visit&& visit) const {
  for (const Expression* node = first_;; node = node->next_) {
    visit(*node);
    if (node == this) return;
  }
}

/// Casts to the class `Node`. Null if the node is of another class.
template <class Node>
Node* nodeAs(Expression* expression) {
  return expression->kind() == Node::nodeKind ? static_cast<Node*>(expression) : nullptr;
}
template <class Node>
const Node* nodeAs(const Expression* expression) {
  return nodeAs<Node>(const_cast<Expression*>(expression));
}
