#include "parameters/ParameterGraph.h"

#include <TrelvonUnits/Exceptions.h>

namespace Units {

namespace {

void link(Reference& reference, Parameter& from) noexcept {
  Reference*& first = reference.to->referrers;
  reference.from = &from;
  reference.previous = nullptr;
  reference.next = first;
  if (first) first->previous = &reference;
  first = &reference;
}

void unlink(Reference& reference) noexcept {
  (reference.previous ? reference.previous->next : reference.to->referrers) = reference.next;
  if (reference.next) reference.next->previous = reference.previous;
}

}  // namespace

Parameter& ParameterChange::of(std::string_view name) {
  const auto known = table_.parameters.find(name);
  if (known != table_.parameters.end()) return known->second;
  const auto [made, isNew] = made_.try_emplace(std::string(name));
  made->second.name = &made->first;
  return made->second;
}

void ParameterChange::commit() noexcept {
  table_.parameters.merge(made_);
  for (auto& [parameter, definition] : definitions_) {
    parameter->definition.swap(definition);
    for (Reference& reference : parameter->definition->references) link(reference, *parameter);
    if (!definition) ++table_.defined;
  }
  // Only now, since new definitions may refer to the same parameters as the old ones.
  for (auto& [parameter, old] : definitions_)
    if (old) leave(table_, *old);
}

Parameter& lookUpParameter(ParameterTableContents& table, const std::string& name) {
  const auto found = table.parameters.find(name);
  if (found == table.parameters.end() || !found->second.definition)
    throw UnrecognizedIdentifierException("Could not find parameter " + name + ".");
  return found->second;
}

void makeDue(Parameter& parameter) noexcept {
  if (parameter.state == ParameterState::Due) return;
  parameter.state = ParameterState::Due;
  parameter.below = nullptr;
  for (Parameter* top = &parameter; top;) {
    Parameter& changed = *top;
    top = changed.below;
    for (const Reference* it = changed.referrers; it; it = it->next) {
      Parameter& from = *it->from;
      if (from.state == ParameterState::Due) continue;
      from.state = ParameterState::Due;
      from.below = top;
      top = &from;
    }
  }
}

void leave(ParameterTableContents& table, Definition& definition, const Parameter* stays) noexcept {
  for (Reference& reference : definition.references) {
    unlink(reference);
    if (reference.to != stays) removeIfUnused(table, *reference.to);
  }
}

void removeIfUnused(ParameterTableContents& table, Parameter& parameter) noexcept {
  if (!parameter.definition && !parameter.referrers)
    table.parameters.erase(table.parameters.find(*parameter.name));
}

}  // namespace Units
