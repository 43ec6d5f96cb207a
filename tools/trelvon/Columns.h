#pragma once

#include "tools/trelvon/Output.h"

#include <string>
#include <vector>

namespace tool {

using Row = std::vector<std::string>;

/// Writes texts that are fit to be shown in columns of equal width.
void writeColumns(Output& out, const std::vector<Row>& rows);

}  // namespace tool
