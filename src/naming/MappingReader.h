#pragma once

#include "naming/UnitCodesContents.h"

#include <map>
#include <string>
#include <string_view>

namespace Units {

/// Reads a mapping file, which `UnitCodes` describes.
/// @throws std::logic_error  as `UnitCodes::fromText`.
void readMapping(std::string_view json, std::map<std::string, CodesBySystem>& units);

}  // namespace Units
