#pragma once

#include "registry/Registries.h"

#include <set>
#include <string>

/// The engine's operations on schema texts. UnitsEngine.h documents them.
namespace Units {

/// Reads a schema text and stores it as pending until `buildSchemas`. If it throws, nothing
/// changes.
/// @return  the type ids that the schema refers to and that are not registered yet.
std::set<std::string> addDefinition(const std::string& text, Registries& registries);

/// Turns all pending schemas into stored records. If it throws, they are dropped.
void buildSchemas(Registries& registries);

/// A stored definition as schema text.
std::string getDefinition(const std::string& typeId, const Registries& registries);

/// All type ids that a stored definition depends on, directly or indirectly.
std::set<std::string> getDependencies(const std::string& typeId, const Registries& registries);

}  // namespace Units
