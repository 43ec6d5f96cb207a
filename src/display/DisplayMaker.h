#pragma once

#include "display/DisplayContents.h"

#include <memory>

namespace Units {

/// Checks options and looks up what they name. Throws as the constructor of `ValueDisplay`.
std::unique_ptr<DisplayContents> makeDisplay(const UnitsEngine& engine,
                                             const DisplayOptions& options);

}  // namespace Units
