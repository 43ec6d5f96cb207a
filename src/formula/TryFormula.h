#pragma once

#include "formula/FormulaRun.h"

#include <TrelvonUnits/FormulaOutcome.h>

#include <string>

/// Runs a formula for its outcome alone.
///
/// @param unit  the requested unit. Null except for InUnit.
/// @throws whatever the resolver throws, unless it is a Units::ParseException.
Units::FormulaOutcome tryFormula(const std::string& formula, FormulaGoal goal,
                                 const Units::Unit* unit, const FormulaContext& context);
