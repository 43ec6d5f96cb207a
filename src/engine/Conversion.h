#pragma once

#include "engine/Reduction.h"
#include "registry/Registries.h"

#include <string>

namespace Units {

/// Whether two units are both absolute or both relative. An absolute unit has a zero of its own, so
/// that it never converts into a relative one.
bool areBothAbsoluteOrRelative(const RecordNode<Unit>& a, const RecordNode<Unit>& b);

/// The operations of the engine's interface, which says what they do and throw.
double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries);
bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries);

}  // namespace Units
