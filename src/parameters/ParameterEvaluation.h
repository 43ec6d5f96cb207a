#pragma once

#include "parameters/Contents.h"

#include <TrelvonUnits/FormulaReason.h>

#include <cstddef>

namespace Units {

/// Evaluates a parameter and what it depends on, if they are due: each once, after everything that
/// it refers to. Returns how many formulas were evaluated.
std::size_t evaluateDue(ParameterTableContents& table, Parameter& parameter);

/// The value of a parameter, which must have one, in a unit.
/// @param inUnit  set unless the value does not fit.
FormulaReason countParameter(ParameterTableContents& table, const Parameter& parameter,
                             const Unit& unit, double& inUnit);

}  // namespace Units
