#include "formula/Expression.h"

#include "formula/Refusal.h"

#include <utility>

namespace {

struct NoNodeWatch {
  void before(const Expression&) const {}
  void after(const Expression&, const EvaluatedValues&) const {}
};

constexpr std::size_t usualOperands = 4;  // tuning: enough for most formulas

}  // namespace

bool Expression::evaluate(double& value, UnitPowerMap& units) const {
  EvaluatedValues values;
  const FormulaReason reason = walk(values, NoNodeWatch());
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
  const FormulaReason reason = walk(values, NoNodeWatch());
  if (reason != FormulaReason::Done) throwRefusal(reason);
  return std::move(values.back());
}
