#pragma once

#include "formula/ExplanationContents.h"
#include "formula/FormulaRun.h"

#include <string>

/// Runs a formula and records texts, tokens, nodes and outcome. Sentences and warnings are left empty.
///
/// @param unit  the requested unit. Null except for InUnit.
/// @throws whatever the resolver throws, unless it is a Units::ParseException.
void recordFormula(const std::string& formula, FormulaGoal goal, const Units::Unit* unit,
                   const FormulaContext& context, Units::ExplanationContents& out);
