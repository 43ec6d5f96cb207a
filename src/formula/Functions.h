#pragma once

#include "formula/SpellingTables.h"

/// What a function makes of the units of its input.
enum class UnitRule {
  Refuse,  // the input must be unitless
  Keep,
  Root,  // raised to the power 0.5
};

/// A function of one input.
struct InputFunction {
  FormulaFunction function;
  UnitRule unitRule;
  bool (*compute)(double& x);  // replaces x by the result; false where there is none
};

/// Null for "pi()", which takes no input, and for what is no function.
const InputFunction* findInputFunction(FormulaFunction function);
