#pragma once

#include "json/JsonText.h"

#include <TrelvonUnits/FormulaExplanation.h>

namespace Units {

/// Writes the object of `FormulaExplanation::toJson`.
void writeExplanation(JsonText& json, const FormulaExplanation& explained);

}  // namespace Units
