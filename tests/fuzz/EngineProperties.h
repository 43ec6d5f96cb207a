#pragma once

#include "engine/UnitsEngineImpl.h"

/// Checks what holds in every engine, whatever it was filled with: units reduce as a recursive
/// walk reduces them, `canConvert`, `convert` and `getConvertibleUnits` agree, and definitions are
/// written so that they read as the same.
void checkEngine(const Units::UnitsEngineImpl& engine);
