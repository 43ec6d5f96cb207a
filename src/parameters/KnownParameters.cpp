#include "parameters/KnownParameters.h"

#include "explaining/ExplainFormula.h"

namespace Units {

const VariableValue* KnownParameters::find(std::string_view name) {
  const auto found = table_.parameters.find(name);
  const bool hasValue =
      found != table_.parameters.end() && found->second.state == ParameterState::HasValue;
  return hasValue ? &found->second.value : nullptr;
}

FormulaExplanation explainParameter(const ParameterTableContents& table,
                                    const Parameter& parameter) {
  const Definition& definition = *parameter.definition;
  const FormulaGoal goal = definition.unit ? FormulaGoal::InUnit : FormulaGoal::Primitive;
  KnownParameters known(table);
  return explainWith(table.source->engine(), goal, definition.unit, definition.formula, {}, &known,
                     HiddenVariables::Ignore);
}

}  // namespace Units
