#pragma once

#include "engine/UnitsEngineImpl.h"

#include <string>
#include <string_view>

namespace Units {

/// Whether a text has the form of a name: ParameterTable.h describes it.
bool isParameterName(std::string_view text);

/// A sentence that tells what formulas read instead of the name; empty if they read it as a name.
std::string whyNotRead(const std::string& name, const UnitsEngineImpl& engine);

/// @throws ValidationException  the name cannot be used.
void checkParameterName(const std::string& name, const UnitsEngineImpl& engine);

}  // namespace Units
