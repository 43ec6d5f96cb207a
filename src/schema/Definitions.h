#pragma once

#include "registry/Registries.h"

#include <set>
#include <string>

/// The engine's operations on schema texts. See UnitsEngine.h for what they promise hosts.
namespace Units {

/// Reads a schema text and keeps it until `buildSchemas`. When it throws, nothing is kept.
/// @return  the type ids that the schema refers to and that are not registered yet.
std::set<std::string> addDefinition(const std::string& text, Registries& registries);

/// Turns all pending schemas into stored records. When it throws, they are dropped.
void buildSchemas(Registries& registries);

/// A stored definition as schema text.
std::string getDefinition(const std::string& typeId, const Registries& registries);

/// All that a stored definition rests on, directly or through others.
std::set<std::string> getDependencies(const std::string& typeId, const Registries& registries);

}  // namespace Units
