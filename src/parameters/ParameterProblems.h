#pragma once

#include "parameters/Contents.h"

#include <string>
#include <vector>

namespace Units {

/// Explains why a parameter that was evaluated has no value.
std::string whyNoValue(ParameterTableContents& table, const Parameter& parameter);

/// The beginning of that explanation if the cause is another parameter.
std::string whyBlocked(const Parameter& parameter, const Parameter& cause);

/// Throws what `value` throws, with the message of `whyNoValue`.
/// @throws ParseException  always.
[[noreturn]] void throwNoValue(ParameterTableContents& table, const Parameter& parameter);

/// @throws ParseException  always: a parameter's value does not fit a unit.
[[noreturn]] void throwUnitDoesNotFit(const ParameterTableContents& table,
                                      const Parameter& parameter, const Unit& unit);

/// All causes, once all parameters were evaluated.
std::vector<ParameterProblem> listProblems(ParameterTableContents& table);

}  // namespace Units
