#pragma once

#include <functional>
#include <string>

/// Returns the formula text that replaces an identifier in a formula.
///
///   const auto resolver = [&](const std::string& name) { return variables.at(name); };
///   engine.evaluateUnitlessExpression("2 * x", resolver);   // 4, if x is "1 + 1"
///
/// - The argument is the identifier without surrounding spaces: whatever is neither a number, a
///   symbol nor a function. An identifier runs to the next operator or parenthesis and may contain
///   spaces: `room height * 2` asks for "room height".
/// - The result is read in parentheses in place of the identifier. It may contain identifiers in
///   turn, within the bounds of Limits.h. A result equal to the identifier throws ParseException
///   "Variable resolved to an identical string.".
/// - For many variables that refer to each other, see ParameterTable.h, which evaluates each once.
/// - An exception from the resolver reaches the caller of the evaluation unchanged.
/// - The resolver runs on the thread that evaluates. It may use the same engine and even add to it.
using VariableResolver = std::function<std::string(const std::string&)>;

namespace Units {
using ::VariableResolver;
}  // namespace Units
