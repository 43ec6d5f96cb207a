#include "parameters/ParameterEvaluation.h"

#include "formula/Evaluation.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace Units {

namespace {

struct NoWatch {
  void before(const Expression&) const {}
  void after(const Expression&, const EvaluatedValues&) const {}
};

/// Visits parameters depth first, by Tarjan's algorithm: its components are completed in an order
/// in which each comes after what it refers to. A component of several parameters consists of
/// cycles. If an allocation fails, what was not evaluated is still due.
class Walk {
 public:
  explicit Walk(ParameterTableContents& table) : table_(table), before_(table.clock) {}

  std::size_t run(Parameter& start);

 private:
  void visit(Parameter& parameter, Parameter* caller);
  Parameter* next(Parameter& current);
  void complete(Parameter& first);
  void settle(Parameter& parameter);
  ParameterState stateOf(Parameter& parameter);
  FormulaReason compute(Parameter& parameter);
  FormulaReason fit(const Definition& definition, EvaluatedValue& result, double& inOwnUnit);

  ParameterTableContents& table_;
  const std::size_t before_;      // visits of earlier walks
  Parameter* waiting_ = nullptr;  // visited, of components that are not complete
  std::size_t evaluated_ = 0;
};

std::size_t Walk::run(Parameter& start) {
  if (!start.definition || start.state != ParameterState::Due) return 0;
  visit(start, nullptr);
  for (Parameter* current = &start; current;) {
    if (Parameter* const to = next(*current)) {
      visit(*to, current);
      current = to;
      continue;
    }
    if (current->lowest == current->order) complete(*current);
    Parameter* const caller = current->caller;
    if (caller) caller->lowest = std::min(caller->lowest, current->lowest);
    current = caller;
  }
  return evaluated_;
}

void Walk::visit(Parameter& parameter, Parameter* caller) {
  parameter.order = parameter.lowest = ++table_.clock;
  parameter.nextReference = 0;
  parameter.caller = caller;
  parameter.below = waiting_;
  waiting_ = &parameter;
}

/// The next parameter to visit; null if there is none.
Parameter* Walk::next(Parameter& current) {
  auto& references = current.definition->references;
  while (current.nextReference < references.size()) {
    Parameter& to = *references[current.nextReference++].to;
    if (!to.definition) to.state = ParameterState::Undefined;
    if (to.state != ParameterState::Due) continue;
    if (to.order <= before_) return &to;
    current.lowest = std::min(current.lowest, to.order);  // it waits: a cycle
  }
  return nullptr;
}

void Walk::complete(Parameter& first) {
  const auto& references = first.definition->references;
  const bool isCycle =
      waiting_ != &first || std::any_of(references.begin(), references.end(),
                                        [&](const Reference& it) { return it.to == &first; });
  if (!isCycle) settle(first);
  for (bool isLast = false; !isLast; waiting_ = waiting_->below) {
    isLast = waiting_ == &first;
    if (!isCycle) continue;
    waiting_->state = ParameterState::Cyclic;
    waiting_->lowest = first.order;
  }
}

void Walk::settle(Parameter& parameter) {
  const ParameterState state = stateOf(parameter);
  if (state == ParameterState::Refused) parameter.reason = parameter.definition->reason;
  if (state != ParameterState::HasValue) {
    parameter.state = state;
    return;
  }
  ++evaluated_;
  parameter.reason = compute(parameter);
  parameter.state =
      parameter.reason == FormulaReason::Done ? ParameterState::HasValue : ParameterState::Refused;
}

/// The state that a parameter will have; HasValue if it can be evaluated.
ParameterState Walk::stateOf(Parameter& parameter) {
  const Definition& definition = *parameter.definition;
  if (definition.reason != FormulaReason::Done) return ParameterState::Refused;
  parameter.cause = nullptr;
  for (const Reference& reference : definition.references) {
    const Parameter& to = *reference.to;
    if (to.state == ParameterState::Undefined) return ParameterState::Missing;
    if (to.state != ParameterState::HasValue && !parameter.cause)
      parameter.cause = to.state == ParameterState::Blocked ? to.cause : &to;
  }
  return parameter.cause ? ParameterState::Blocked : ParameterState::HasValue;
}

FormulaReason Walk::compute(Parameter& parameter) {
  EvaluatedValues& values = table_.evaluated;
  values.clear();
  try {
    const FormulaReason reason = parameter.definition->root->walk(values, NoWatch());
    if (reason != FormulaReason::Done) return reason;
    EvaluatedValue& result = values.back();
    double inOwnUnit = 0;
    const FormulaReason fits = fit(*parameter.definition, result, inOwnUnit);
    if (fits != FormulaReason::Done) return fits;
    VariableValue value = {result.value, result.units()};
    parameter.value = std::move(value);
    parameter.inOwnUnit = inOwnUnit;
    return FormulaReason::Done;
  } catch (const std::logic_error&) {
    return FormulaReason::Other;
  }
}

/// Gives a result the dimension of the parameter's own unit.
FormulaReason Walk::fit(const Definition& definition, EvaluatedValue& result, double& inOwnUnit) {
  inOwnUnit = result.value;
  if (!definition.unit) return FormulaReason::Done;
  FormulaUnits& units = table_.source->units();
  const UnitTerms& terms = units.termsOf(*definition.unit);
  if (result.isUnitless()) {
    result = EvaluatedValue(terms.fromUnit(result.value), &terms.powers);
    return FormulaReason::Done;
  }
  bool inverted = false;
  EvaluatedValue counted = result;
  const FormulaReason reason = countInUnit(counted, *definition.unit, units, inverted);
  inOwnUnit = counted.value;
  if (inverted) result = EvaluatedValue(std::pow(result.value, -1.0), &terms.powers);
  return reason;
}

}  // namespace

std::size_t evaluateDue(ParameterTableContents& table, Parameter& parameter) {
  return Walk(table).run(parameter);
}

FormulaReason countParameter(ParameterTableContents& table, const Parameter& parameter,
                             const Unit& unit, double& inUnit) {
  const auto& [value, powers] = parameter.value;
  EvaluatedValue counted(value, powers.empty() ? nullptr : &powers);
  bool inverted = false;
  const FormulaReason reason = countInUnit(counted, unit, table.source->units(), inverted);
  inUnit = counted.value;
  return reason;
}

}  // namespace Units
