#pragma once

#include "registry/KindRegistry.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>

namespace Units {

/// The record of one kind that a schema of the running build refers to: a stored one, else one that
/// the build has made. Stays where it is until the build ends.
///
/// @throws ValidationException  there is neither. The id may belong to another kind: no id names
///                              two things, so that one message covers both cases.
template <class SchemaData, class Record>
const Record& findDependency(const KindRegistry<SchemaData, Record>& registry,
                             const std::string& dependency, const std::string& schemaTypeId) {
  if (const Record* const stored = registry.objects.find(dependency)) return *stored;
  if (const Record* const built = registry.built.find(dependency)) return *built;
  throw ValidationException("Dependency " + dependency + " in schema " + schemaTypeId +
                            " is missing or does not represent an object of the expected type.");
}

}  // namespace Units
