#pragma once

#include <optional>
#include <string_view>

namespace tool {

/// A plain decimal number, such as -12.5 or 1e-3, rounded to the nearest double as the engine reads
/// it. Spaces around it do not count. Empty for anything else, which the engine may yet read.
std::optional<double> readPlainNumber(std::string_view text);

}  // namespace tool
