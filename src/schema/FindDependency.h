#pragma once

#include "registry/KindRegistry.h"

#include <TrelvonUnits/Exceptions.h>

#include <string>

namespace Units {

/// The record of one kind that a schema of the current build refers to, either stored or built.
/// Does not move until the build ends.
///
/// @throws ValidationException  there is no such record, or the type id belongs to another kind.
///                              Type ids are unique, so one message covers both cases.
template <class Record>
const Record& findDependency(const KindRegistry<Record>& registry, const std::string& dependency,
                             const std::string& schemaTypeId) {
  if (const Record* const stored = registry.objects.find(dependency)) return *stored;
  if (const Record* const built = registry.built.find(dependency)) return *built;
  throw ValidationException("Dependency " + dependency + " in schema " + schemaTypeId +
                            " is missing or does not represent an object of the expected type.");
}

}  // namespace Units
