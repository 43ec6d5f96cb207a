#include "parameters/Contents.h"
#include "parameters/KnownParameters.h"
#include "parameters/ParameterEvaluation.h"
#include "parameters/ParameterGraph.h"
#include "parameters/ParameterName.h"
#include "parameters/ParameterProblems.h"
#include "parameters/Renaming.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <mutex>
#include <set>
#include <utility>

namespace Units {

namespace {

using Lock = std::lock_guard<std::mutex>;

/// Evaluates a parameter, which must then have a value.
Parameter& valued(ParameterTableContents& table, const std::string& name) {
  Parameter& parameter = lookUpParameter(table, name);
  evaluateDue(table, parameter);
  if (parameter.state != ParameterState::HasValue) throwNoValue(table, parameter);
  return parameter;
}

std::size_t evaluateAll(ParameterTableContents& table) {
  std::size_t evaluated = 0;
  for (auto& [name, parameter] : table.parameters) evaluated += evaluateDue(table, parameter);
  return evaluated;
}

/// A parameter and everything that it depends on, in an order in which each comes after what it
/// refers to, except in cycles.
std::vector<const Parameter*> withAllBefore(ParameterTableContents& table, Parameter& last) {
  const std::size_t before = table.clock;
  std::vector<const Parameter*> all;
  const auto visit = [&](Parameter& parameter, Parameter* caller) {
    parameter.order = ++table.clock;
    parameter.nextReference = 0;
    parameter.caller = caller;
  };
  visit(last, nullptr);
  for (Parameter* current = &last; current;) {
    const auto& references = current->definition->references;
    if (current->nextReference == references.size()) {
      all.push_back(current);
      current = current->caller;
      continue;
    }
    Parameter& to = *references[current->nextReference++].to;
    if (!to.definition || to.order > before) continue;
    visit(to, current);
    current = &to;
  }
  return all;
}

/// Explains parameters one by one. Only the cause of a problem has the whole message, and only one
/// parameter of all cycles, since a cycle may be long.
class Explainer {
 public:
  explicit Explainer(ParameterTableContents& table) : table_(table) {}

  ParameterExplanation explain(const Parameter& parameter) {
    const Definition& definition = *parameter.definition;
    ParameterExplanation explained = {
        *parameter.name, definition.formula, definition.unitTypeId, whyNot(parameter), {}};
    if (haveValues(definition.references))
      explained.explanation.emplace(explainParameter(table_, parameter));
    return explained;
  }

 private:
  static bool haveValues(const std::vector<Reference>& references) {
    return std::all_of(references.begin(), references.end(), [](const Reference& reference) {
      return reference.to->state == ParameterState::HasValue;
    });
  }

  std::string whyNot(const Parameter& parameter) {
    if (parameter.state == ParameterState::HasValue) return "";
    if (parameter.state == ParameterState::Blocked) return whyBlocked(parameter, *parameter.cause);
    if (parameter.state == ParameterState::Cyclic) {
      const auto [first, isFirst] = firstOfCycles_.emplace(parameter.lowest, &parameter);
      if (!isFirst) return whyBlocked(parameter, *first->second);
    }
    return whyNoValue(table_, parameter);
  }

  ParameterTableContents& table_;
  std::map<std::size_t, const Parameter*> firstOfCycles_;
};

}  // namespace

ParameterTable::ParameterTable(const UnitsEngine& engine)
    : contents_(std::make_unique<ParameterTableContents>(engine)) {}
ParameterTable::~ParameterTable() = default;

void ParameterTable::set(const std::string& name, const std::string& formula,
                         const std::string& unitTypeId) {
  FormulaSource& source = *contents_->source;
  checkParameterName(name, source.engine());
  ParameterChange change(*contents_);
  Parameter& parameter = change.of(name);
  auto definition = readFormula(source, formula, unitTypeId, change);
  if (definition->reason != FormulaReason::Done)
    throw ParseException("Formula of parameter " + name + ": " + whyNotRead(source, *definition));
  change.define(parameter, std::move(definition));
  change.commit();
  makeDue(parameter);
}

void ParameterTable::rename(const std::string& name, const std::string& newName) {
  renameParameter(*contents_, name, newName);
}

void ParameterTable::remove(const std::string& name) {
  ParameterTableContents& table = *contents_;
  Parameter& parameter = lookUpParameter(table, name);
  makeDue(parameter);
  const std::unique_ptr<Definition> old = std::move(parameter.definition);
  --table.defined;
  leave(table, *old, &parameter);
  removeIfUnused(table, parameter);
}

void ParameterTable::reevaluate() {
  ParameterTableContents& table = *contents_;
  auto source = std::make_unique<FormulaSource>(table.host);
  ParameterChange change(table);
  for (auto& [name, parameter] : table.parameters)
    if (const Definition* const old = parameter.definition.get())
      change.define(parameter, readFormula(*source, old->formula, old->unitTypeId, change));
  for (auto& [name, parameter] : table.parameters) makeDue(parameter);
  change.commit();
  table.source.swap(source);
}

std::size_t ParameterTable::evaluate() const {
  const Lock lock(contents_->mutex);
  return evaluateAll(*contents_);
}

double ParameterTable::value(const std::string& name) const {
  const Lock lock(contents_->mutex);
  const Parameter& parameter = valued(*contents_, name);
  if (!parameter.definition->unit && !parameter.value.powers.empty())
    throw ParseException("Parameter " + name + " has units, so it is not a plain number.");
  return parameter.inOwnUnit;
}

double ParameterTable::value(const std::string& name, const std::string& unitTypeId) const {
  const Lock lock(contents_->mutex);
  ParameterTableContents& table = *contents_;
  const Unit& unit = lookUp(table.source->engine().registries().units.objects, unitTypeId);
  const Parameter& parameter = valued(table, name);
  if (parameter.definition->unitTypeId == unitTypeId) return parameter.inOwnUnit;
  double inUnit = 0;
  if (countParameter(table, parameter, unit, inUnit) != FormulaReason::Done)
    throwUnitDoesNotFit(table, parameter, unit);
  return inUnit;
}

std::map<std::string, double> ParameterTable::powers(const std::string& name) const {
  const Lock lock(contents_->mutex);
  return toUnitPowerMap(valued(*contents_, name).value.powers);
}

bool ParameterTable::contains(const std::string& name) const {
  const auto found = contents_->parameters.find(name);
  return found != contents_->parameters.end() && found->second.definition;
}

std::size_t ParameterTable::size() const { return contents_->defined; }

std::vector<std::string> ParameterTable::names() const {
  std::vector<std::string> names;
  names.reserve(size());
  for (const auto& [name, parameter] : contents_->parameters)
    if (parameter.definition) names.push_back(name);
  return names;
}

std::string ParameterTable::formula(const std::string& name) const {
  return lookUpParameter(*contents_, name).definition->formula;
}

std::string ParameterTable::unitTypeId(const std::string& name) const {
  return lookUpParameter(*contents_, name).definition->unitTypeId;
}

std::vector<std::string> ParameterTable::references(const std::string& name) const {
  std::set<std::string> names;
  for (const Reference& reference : lookUpParameter(*contents_, name).definition->references)
    names.insert(*reference.to->name);
  return {names.begin(), names.end()};
}

std::vector<std::string> ParameterTable::dependents(const std::string& name) const {
  std::set<std::string> names;
  const auto found = contents_->parameters.find(name);
  if (found != contents_->parameters.end())
    for (const Reference* it = found->second.referrers; it; it = it->next)
      names.insert(*it->from->name);
  return {names.begin(), names.end()};
}

std::vector<ParameterProblem> ParameterTable::problems() const {
  const Lock lock(contents_->mutex);
  evaluateAll(*contents_);
  return listProblems(*contents_);
}

std::vector<ParameterExplanation> ParameterTable::explain(const std::string& name) const {
  const Lock lock(contents_->mutex);
  Parameter& parameter = lookUpParameter(*contents_, name);
  evaluateDue(*contents_, parameter);
  std::vector<ParameterExplanation> explanations;
  Explainer explainer(*contents_);
  for (const Parameter* const each : withAllBefore(*contents_, parameter))
    explanations.push_back(explainer.explain(*each));
  return explanations;
}

}  // namespace Units
