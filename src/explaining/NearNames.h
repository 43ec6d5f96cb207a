#pragma once

#include "registry/Registries.h"

#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// Where the word after a leading number and spaces begins: 2 in "5 fot", 0 in "fot".
std::size_t wordStart(std::string_view identifier);

/// What the word of an identifier may have been meant to be, nearest first, at most three:
/// functions and texts of symbols that are similar. For the name of a unit, the text of its symbol.
std::vector<std::string> nearNames(std::string_view identifier, const Registries& registries);

}  // namespace Units
