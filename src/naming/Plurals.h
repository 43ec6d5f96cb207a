#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// The possible singular forms of an English text, the likeliest first: "feet per second" gives
/// "foot per second". One of its words is made singular at a time; words are separated by spaces,
/// hyphens and underscores. Empty for texts that are too long to be names.
std::vector<std::string> singularsOf(std::string_view text);

}  // namespace Units
