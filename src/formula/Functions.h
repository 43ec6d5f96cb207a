#pragma once

#include "formula/SpellingTables.h"

#include <TrelvonUnits/FormulaReason.h>

/// How a function treats the units of its input.
enum class UnitRule {
  Reject,  // the input must be unitless
  Keep,
  Root,  // raised to the power 0.5
};

/// A function of one input.
struct InputFunction {
  FormulaFunction function;
  UnitRule unitRule;
  Units::FormulaReason (*compute)(double& x);  // replaces x by the result
};

/// Null for "pi()", which has no input, and for None.
const InputFunction* findInputFunction(FormulaFunction function);
