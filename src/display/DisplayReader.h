#pragma once

#include "display/DisplayContents.h"

#include <memory>
#include <string_view>

namespace Units {

/// Reads a text as a display shows values.
std::unique_ptr<DisplayReadingContents> readDisplayed(const DisplayContents& display,
                                                      std::string_view text);

}  // namespace Units
