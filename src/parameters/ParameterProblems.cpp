#include "parameters/ParameterProblems.h"

#include "explaining/ExplainFormula.h"
#include "formula/Refusal.h"
#include "parameters/KnownParameters.h"
#include "parameters/ParameterName.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

namespace Units {

namespace {

using Kind = ParameterProblemKind;

/// The names that a formula refers to and that are not defined, each once, in reading order.
std::vector<std::string> missingNames(const Parameter& parameter) {
  std::vector<std::string> missing;
  std::set<const Parameter*> known;
  for (const Reference& reference : parameter.definition->references)
    if (!reference.to->definition && known.insert(reference.to).second)
      missing.push_back(*reference.to->name);
  return missing;
}

std::string whyMissing(const std::string& name, const std::vector<std::string>& missing) {
  if (missing.size() == 1)
    return "Parameter " + name + " refers to " + missing[0] + ", which is not defined.";
  std::string all;
  for (const std::string& one : missing) all += (all.empty() ? "" : ", ") + one;
  return "Parameter " + name + " refers to names that are not defined: " + all + ".";
}

/// The names on a shortest path from a cyclic parameter back to itself, found breadth first.
std::vector<std::string> cycleOf(ParameterTableContents& table, const Parameter& start) {
  const std::size_t before = table.clock;
  std::vector<const Parameter*> reached = {&start};
  std::vector<std::size_t> from = {0};  // indexes in `reached`
  for (std::size_t i = 0; i < reached.size(); ++i)
    for (const Reference& reference : reached[i]->definition->references) {
      Parameter& to = *reference.to;
      if (&to == &start) {
        std::vector<std::string> names;
        for (std::size_t step = i; step != 0; step = from[step])
          names.push_back(*reached[step]->name);
        names.push_back(*start.name);
        std::reverse(names.begin(), names.end());
        return names;
      }
      const bool isOnCycle = to.state == ParameterState::Cyclic && to.lowest == start.lowest;
      if (!isOnCycle || to.order > before) continue;
      to.order = ++table.clock;
      reached.push_back(&to);
      from.push_back(i);
    }
  return {*start.name};
}

std::string whyCyclic(const std::vector<std::string>& cycle) {
  std::string path;
  for (const std::string& name : cycle) path += name + " -> ";
  return "Parameters depend on each other: " + path + cycle.front() + ".";
}

std::string whyRefused(const ParameterTableContents& table, const Parameter& parameter) {
  const Definition& definition = *parameter.definition;
  const bool wasRead = definition.reason == FormulaReason::Done;
  std::string why = wasRead ? explainParameter(table, parameter).sentence()
                            : whyNotRead(*table.source, definition);
  if (why.empty()) why = messageOf(parameter.reason);
  return "Formula of parameter " + *parameter.name + ": " + why;
}

ParameterProblem problemOf(ParameterTableContents& table, const Parameter& parameter) {
  if (parameter.state == ParameterState::Cyclic) {
    std::vector<std::string> cycle = cycleOf(table, parameter);
    std::string why = whyCyclic(cycle);
    return {Kind::Cycle, std::move(cycle), std::move(why)};
  }
  std::vector<std::string> names = {*parameter.name};
  if (parameter.state != ParameterState::Missing)
    return {Kind::Refused, std::move(names), whyRefused(table, parameter)};
  const std::vector<std::string> missing = missingNames(parameter);
  names.insert(names.end(), missing.begin(), missing.end());
  return {Kind::Missing, std::move(names), whyMissing(*parameter.name, missing)};
}

}  // namespace

std::string whyNoValue(ParameterTableContents& table, const Parameter& parameter) {
  if (parameter.state != ParameterState::Blocked) return problemOf(table, parameter).message;
  return whyBlocked(parameter, *parameter.cause) + " " + problemOf(table, *parameter.cause).message;
}

std::string whyBlocked(const Parameter& parameter, const Parameter& cause) {
  return "Parameter " + *parameter.name + " depends on " + *cause.name + ".";
}

void throwNoValue(ParameterTableContents& table, const Parameter& parameter) {
  throw ParseException(whyNoValue(table, parameter));
}

void throwUnitDoesNotFit(const ParameterTableContents& table, const Parameter& parameter,
                         const Unit& unit) {
  KnownParameters known(table);
  const auto explained = explainWith(table.source->engine(), FormulaGoal::InUnit, &unit,
                                     *parameter.name, {}, &known, HiddenVariables::Ignore);
  const std::string why =
      explained.sentence().empty() ? messageOf(FormulaReason::UnitsDoNotFit) : explained.sentence();
  throw ParseException("Value of parameter " + *parameter.name + ": " + why);
}

std::vector<ParameterProblem> listProblems(ParameterTableContents& table) {
  std::vector<ParameterProblem> problems;
  std::set<std::size_t> cycles;
  for (auto& [name, parameter] : table.parameters) {
    if (!parameter.definition) continue;
    const bool isCause =
        parameter.state == ParameterState::Missing || parameter.state == ParameterState::Refused ||
        (parameter.state == ParameterState::Cyclic && cycles.insert(parameter.lowest).second);
    if (isCause) problems.push_back(problemOf(table, parameter));
    const std::string why = whyNotRead(name, table.source->engine());
    if (!why.empty())
      problems.push_back(
          {Kind::Hidden, {name}, "Parameter name " + name + " cannot be used. " + why});
  }
  return problems;
}

}  // namespace Units
