#include "formula/Expression.h"

#include <utility>

bool Expression::evaluate(double& value, UnitPowerMap& units) const {
  std::optional<EvaluatedValue> result = compute();
  if (!result) return false;
  value = result->value;
  units = toUnitPowerMap(result->units());
  return true;
}

std::optional<EvaluatedValue> Expression::compute() const {
  EvaluatedValues values;
  values.reserve(4);  // enough for most formulas
  for (const Expression* node = first_;; node = node->next_) {
    if (!node->apply(values)) return std::nullopt;
    if (node == this) return std::move(values.back());
  }
}

void Expression::linkOperand(Expression& operand) {
  first_ = operand.first_;
  operand.next_ = this;
}

void Expression::linkOperands(Expression& left, Expression& right) {
  first_ = left.first_;
  left.next_ = right.first_;
  right.next_ = this;
}

void Expression::Removal::take(std::unique_ptr<Expression>& node) noexcept {
  if (!node) return;
  node->next_ = top_;
  top_ = node.release();
}

void Expression::deleteOperands() noexcept {
  Removal removal;
  removeOperands(removal);
  while (Expression* const node = removal.top_) {
    removal.top_ = node->next_;
    node->removeOperands(removal);
    delete node;
  }
}
