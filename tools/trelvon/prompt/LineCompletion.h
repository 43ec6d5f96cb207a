#pragma once

#include "tools/trelvon/Definitions.h"
#include "tools/trelvon/prompt/Completions.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// Completes a line of the prompt: commands, their options and operands, and in formulas variables
/// and the texts of symbols.
/// @param before     the line up to the cursor.
/// @param variables  their names.
Completions completeLine(std::string_view before, const std::vector<std::string>& variables,
                         Definitions& definitions);

}  // namespace tool
