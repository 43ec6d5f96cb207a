#pragma once

#include "engine/Reduction.h"
#include "prepared/ConversionSource.h"
#include "registry/Registries.h"

#include <string>

namespace Units {

/// Whether two units are both absolute or both relative. An absolute unit has its own zero, so it
/// is never convertible to a relative one.
bool areBothAbsoluteOrRelative(const RecordNode<Unit>& a, const RecordNode<Unit>& b);

/// The operations that UnitsEngine.h documents.
double convertValue(double value, const std::string& fromUnitTypeId,
                    const std::string& toUnitTypeId, const Registries& registries);
bool canConvertUnits(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                     const Registries& registries);

/// The steps that `convertValue` takes for these units.
ConversionSteps conversionSteps(const std::string& fromUnitTypeId, const std::string& toUnitTypeId,
                                const Registries& registries);

}  // namespace Units
