#pragma once

#include <functional>
#include <string>

/// Gives the formula text that stands for an identifier of a formula.
///
/// Called with each identifier that is neither a number, a symbol nor a function; the text that it
/// returns is read in parentheses in the identifier's place, and may hold identifiers in turn. It
/// may throw: the exception reaches the caller of the evaluation unchanged.
using VariableResolver = std::function<std::string(const std::string&)>;

namespace Units {
using ::VariableResolver;
}  // namespace Units
