#pragma once

#include <string_view>

/// What stands between tokens.
inline constexpr std::string_view tokenSeparators = "\n \t";
