#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <string>

namespace Schemas {

/// The size in bytes of the longest text that our engines read; they reject longer ones.
constexpr std::size_t longestSchemaText = std::size_t{1} << 29;

/// Gives a schema text to an engine. Silently skips a text that the engine rejects with a
/// ValidationException, because it is not a schema or its type id is taken.
void addOrSkip(const std::string& text, Units::UnitsEngine& engine);

}  // namespace Schemas
