#pragma once

#include "formula/EvaluatedValue.h"
#include "formula/NodeArena.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

/// Which class a node is of.
enum class ExpressionKind : std::int32_t {
  BinaryOperator,
  UnaryOperator,
  Function,
  NumberConstant,
  Paren,
  Symbol,
};

/// A node of a formula's tree.
///
/// A tree is as deep as its author likes: a sum of a million terms is a tree of a million levels.
/// So nothing here recurses. Nodes are chained in the order in which they are evaluated, operands
/// before their operator, and each knows where the chain of its subtree begins; evaluating is
/// walking along that chain. A node that refuses its operands unseen leaves them out of it.
class Expression {
 public:
  virtual ~Expression() = default;

  /// Evaluates the subtree below this node.
  ///
  /// @param value  in primitive terms when the result has units.
  /// @param units  replaced by the result's.
  /// @return  false when there is no result: units that do not match in a sum, a division by zero,
  ///          an argument outside a function's domain, an overflow.
  /// @throws Units::ParseException  a rule that the formula's author must be told about is broken.
  virtual bool evaluate(double& value, UnitPowerMap& units) const;

  /// The same in one result, which may borrow from the tree: empty for false.
  std::optional<EvaluatedValue> compute() const;

  // Nodes lie in the arena of their formula, which alone frees memory.
  static void* operator new(std::size_t size, NodeArena& arena) { return arena.allocate(size); }
  static void operator delete(void*, NodeArena&) {}
  static void operator delete(void*) {}

  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  ExpressionKind kind() const { return kind_; }

 protected:
  explicit Expression(ExpressionKind kind) : first_(this), kind_(kind) {}

  /// Has this node evaluated after its operands. They must not be linked to another node.
  void linkOperand(Expression& operand);
  void linkOperands(Expression& left, Expression& right);
  void unlinkOperands() { first_ = this; }

  /// Replaces the values of the node's operands by its own. False as for `evaluate`.
  virtual bool apply(EvaluatedValues& values) const = 0;

  /// Nodes on their way out, chained by `next_`.
  class Removal {
   public:
    void take(std::unique_ptr<Expression>& node) noexcept;

   private:
    friend class Expression;
    Expression* top_ = nullptr;
  };

  /// Hands the operands over, without allocating.
  virtual void removeOperands(Removal& removal) noexcept = 0;

  /// Deletes all nodes below this one. The destructor of every class that has operands calls it, so
  /// that none of them is deleted by the destructor of another.
  void deleteOperands() noexcept;

 private:
  Expression* first_;           // where the chain of this subtree begins
  Expression* next_ = nullptr;  // after this node in the chain
  const ExpressionKind kind_;
};

/// The node as one of the class `Node`, or null when it is of another class.
template <class Node>
Node* nodeAs(Expression* expression) {
  return expression->kind() == Node::nodeKind ? static_cast<Node*>(expression) : nullptr;
}
template <class Node>
const Node* nodeAs(const Expression* expression) {
  return nodeAs<Node>(const_cast<Expression*>(expression));
}
