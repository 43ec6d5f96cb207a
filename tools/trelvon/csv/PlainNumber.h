#pragma once

#include <optional>
#include <string_view>

namespace tool {

/// A plain decimal number, such as -12.5 or 1e-3, rounded to the nearest double as the engine reads
/// it. Spaces around it are ignored. Empty for anything else, which the engine may still be able to
/// read.
std::optional<double> readPlainNumber(std::string_view text);

}  // namespace tool
