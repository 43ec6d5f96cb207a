#pragma once

#include "display/DisplayContents.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Units {

/// A text without the spaces around it, of any kind.
std::string_view withoutOuterSpaces(std::string_view text);

/// The scale whose text is the longest before or behind a number; null if there is none.
///
/// @param bytes  0; set to the bytes of that text.
const DisplayScale* findScale(std::string_view number, const std::vector<DisplayScale>& scales,
                              std::size_t& bytes);

}  // namespace Units
