#pragma once

#include "engine/UnitsEngineImpl.h"
#include "formula/FormulaRecorder.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <string>

namespace Units {

/// Explains a formula for the kind of result that is requested.
///
/// @param unit   the requested unit, of the engine. Null except for InUnit.
/// @param known  null if all identifiers are replaced.
/// @throws whatever the resolver throws, unless it is a ParseException.
FormulaExplanation explainWith(const UnitsEngineImpl& engine, FormulaGoal goal, const Unit* unit,
                               const std::string& formula, const VariableResolver& resolver,
                               KnownVariables* known, HiddenVariables hidden);

}  // namespace Units
