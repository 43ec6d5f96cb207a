#pragma once

#include "formula/ExplanationContents.h"
#include "formula/KnownVariables.h"
#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/VariableResolver.h>

#include <string>

/// What is requested of a formula.
enum class FormulaGoal {
  InUnit,     // a value in a unit
  Plain,      // a plain number
  Primitive,  // a value in any primitive units
};

/// Reads and evaluates a formula, as evaluateExpressionInUnit and evaluateUnitlessExpression do,
/// and records texts, tokens, nodes and outcome. Sentences and warnings are left empty.
///
/// @param unit   the requested unit. Null except for InUnit.
/// @param known  null if all identifiers are replaced.
/// @throws whatever the resolver throws, unless it is a Units::ParseException.
void recordFormula(const std::string& formula, FormulaGoal goal, const Units::Unit* unit,
                   const VariableResolver& resolver, const Units::SymbolTexts& symbols,
                   const Units::UnitMath& unitMath, UnitTermsSource& units, KnownVariables* known,
                   Units::ExplanationContents& out);
