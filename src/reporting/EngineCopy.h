#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <memory>

namespace Schemas {

/// A new engine with all records that another one stores. What a host-implemented engine lists
/// without its parents is left out.
std::unique_ptr<Units::UnitsEngine> copyEngine(const Units::UnitsEngine& engine);

}  // namespace Schemas
