#pragma once

#include "engine/Reduction.h"
#include "registry/Registries.h"

#include <string>

namespace Units {

/// Whether two units convert into each other: both absolute or both relative, and of the same or
/// exactly reciprocal dimension.
bool areConvertible(const RecordNode<Unit>& from, const RecordNode<Unit>& to, Reducer& reducer);

/// The operations of the engine's interface, which says what they do and throw.
double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries);
bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries);

}  // namespace Units
