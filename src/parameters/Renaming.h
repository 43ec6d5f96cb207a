#pragma once

#include "parameters/Contents.h"

#include <string>

namespace Units {

/// As `ParameterTable::rename`.
void renameParameter(ParameterTableContents& table, const std::string& name,
                     const std::string& newName);

}  // namespace Units
