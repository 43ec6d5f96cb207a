#pragma once

#include "registry/Registries.h"

#include <set>
#include <string>

/// The type ids of all records that an engine serves.
inline std::set<std::string> storedIds(const Units::Registries& registries) {
  std::set<std::string> ids;
  const auto add = [&](const auto& kind) {
    for (const auto& [typeId, record] : kind.objects.records()) ids.insert(typeId);
  };
  add(registries.dimensions), add(registries.factors), add(registries.units);
  add(registries.symbols), add(registries.quantities);
  return ids;
}
