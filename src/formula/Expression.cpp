#include "formula/Expression.h"

#include "formula/Refusal.h"

#include <utility>

namespace {

struct NoWatch {
  void before(const Expression&) const {}
  void after(const Expression&, const EvaluatedValues&) const {}
};

constexpr std::size_t usualOperands = 4;  // tuning: enough for most formulas

}  // namespace

bool Expression::evaluate(double& value, UnitPowerMap& units) const {
  EvaluatedValues values;
  const FormulaReason reason = walk(values, NoWatch());
  if (reason != FormulaReason::Done) {
    if (ownMessageOf(reason)) throwRefusal(reason);
    return false;
  }
  value = values.back().value;
  units = toUnitPowerMap(values.back().units());
  return true;
}

EvaluatedValue Expression::compute() const {
  EvaluatedValues values;
  values.reserve(usualOperands);
  const FormulaReason reason = walk(values, NoWatch());
  if (reason != FormulaReason::Done) throwRefusal(reason);
  return std::move(values.back());
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
